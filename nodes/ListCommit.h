// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// What becomes of the text of the list's cell editor: it enters the tree when the editor is left, and there
// alone.
namespace nodes {

/// The parser's complaint about what is in the box, while the user types.
void txtListView_Change(DocumentWindow& window);
/// The commit: a text that passes its check goes into the tree and to the views, and the box closes. One that
/// doesn't leaves everything as it was: the user has been told why, and the box stays open with it. Nothing
/// happens when the box isn't open.
void txtListView_LostFocus(DocumentWindow& window);

} // namespace nodes
