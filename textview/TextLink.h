// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The text view and the tree find each other: leaving an edited text, the caret on a node, the node at a
// caret.
namespace textview {

/// Leaving the text view in use: an edited text is parsed and the tree built anew from it. Nothing happens
/// where it is what was read, or refused, last.
void LeaveTextView(DocumentWindow& window);
/// Leaves the text view in use if its text is ahead of the tree, as it also is when a command changed it
/// while the focus was elsewhere. False when it doesn't parse and the user has just been told.
bool ReadEditedText(DocumentWindow& window);
/// The user goes on in the text, and the tree will be built anew from it: the running edit writes what is new
/// in the tree, also where a node was left empty. A label that is being edited is waited for.
void BringTextUpToDate(DocumentWindow& window);
/// Puts the caret of the text view in use on the current node and marks its first character.
void NavToNodeRelatedText(DocumentWindow& window);
/// Selects the tree node that the caret stands in, without a parse.
void SelectNodeAtCaret(DocumentWindow& window);

} // namespace textview
