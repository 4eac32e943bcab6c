// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "textview/TextState.h"

// From a change in a pane to a step of the history: it is told from how the pane stood before and after.
namespace textview {

/// The difference of two moments by the table of single edits: typing, overtyping, a deleted selection,
/// Backspace, Delete and a dragged selection are told by caret and selection alone. Empty for any other pair.
UndoRecord RichTextChange(const TextStatus& now, const TextStatus& old);

/// Records a change of rtxtXML, and brings it into the other pane. Nothing while the other pane is in use or
/// the program writes. A step that the table can't tell is kept as a whole-text step, so that undo always
/// finds the way back.
void RecordTextChange(DocumentWindow& window);
/// The same for rtxtXML2.
void RecordTextChange2(DocumentWindow& window);

} // namespace textview
