// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Copy, cut, paste and delete on the selection of the text pane in use.
namespace textview {

void RichTextCopy(DocumentWindow& window); ///< the clipboard stays where nothing is selected
void RichTextCut(DocumentWindow& window);
void RichTextDelete(DocumentWindow& window);
/// The clipboard's text, or what was copied last where the clipboard holds no text any longer.
void RichTextPaste(DocumentWindow& window);

/// The rows that were copied last, also where the clipboard holds them no longer.
void PasteListViewItemsToTextView(DocumentWindow& window);
/// The node that was copied last: as it was copied or, where the clipboard holds that no longer, as it is
/// now.
void PasteTreeNodeToTextView(DocumentWindow& window);

} // namespace textview
