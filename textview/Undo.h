// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <vector>

// The history of the text. A typed change is kept as what it took away and what it put in, told from how the
// pane stood before and after; see ChangeText for a change that comes from the tree. Undo works on the text
// alone and builds the tree from it.

/// How the pane stands now.
void SetTextStatus(const controls::RichTextBox& richText, TextStatus& status);

/// Fills a record with the difference of two moments by the table of single edits: typing, overtyping, a
/// deleted selection, Backspace, Delete and a dragged selection are told by caret and selection alone. Any
/// other pair leaves the record as it is.
void RichTextChange(UndoRecord& record, const TextStatus& now, const TextStatus& old);

/// Puts a text in at a 0-based position, colours it and leaves it selected. Nothing for an empty text. One
/// that is too long to be coloured takes `colours`, counted from its start.
void RInsert(Application& app, controls::RichTextBox& richText, qsizetype position, const QString& text,
             const std::vector<controls::ColourRun>& colours = {});
/// Takes as many characters away as `text` has.
void RDelete(controls::RichTextBox& richText, qsizetype position, const QString& text);

/// Records a change of rtxtXML, and brings it into the other pane. Nothing while the other pane is in use or
/// the program writes. A step that the table can't tell is kept as a whole-text step, so that undo always
/// finds the way back.
void RecordTextChange(DocumentWindow& window);
/// The same for rtxtXML2.
void RecordTextChange2(DocumentWindow& window);

/// Takes the last step back, or does it again, in both panes, and builds the tree from the text. A pane whose
/// text doesn't hold what the step would take away stays as it is.
void rUndo(DocumentWindow& window);
void rRedo(DocumentWindow& window);
