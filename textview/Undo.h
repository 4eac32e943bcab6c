// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The history of the text. A typed change is kept as what it took away and what it put in, one that comes
// from the tree as the whole text. Undo works on the text alone and builds the tree from it.
namespace textview {

/// Takes the last step back, or does it again, in both panes, and builds the tree from the text: that of a
/// large document when no more steps come for a moment. The caret of the pane in use goes to the change
/// (quirk 49). A pane whose text doesn't hold what the step would take away stays as it is.
void rUndo(DocumentWindow& window);
void rRedo(DocumentWindow& window);
/// Builds the tree that waits for the steps to end, at once.
void FollowSteps(DocumentWindow& window);

} // namespace textview
