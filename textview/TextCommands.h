// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Commands on the text of a window.
namespace textview {

/// Puts a text in at the caret of the editor that is showing: the text pane in use, the open editor of the
/// list, or the schema's text.
void InsertString(DocumentWindow& window, const QString& text);

void SelectAllAtTextView(DocumentWindow& window); ///< the view stays where it is
/// Menus and status bar for the selection of the pane in use, where a command has set it.
void ShowSelection(DocumentWindow& window);
/// Opens the find dialog on the pane in use while the text view shows.
void RFind(DocumentWindow& window);

/// Whether the text parses. A fault is told in a box or, when quiet, on the status bar; success in a box
/// unless quiet.
bool Validate(DocumentWindow& window, bool quiet);

/// Two panes on one text, or one again: the keys then go to the upper one.
void SplitText(DocumentWindow& window);
void SplitTextViewHalf(DocumentWindow& window); ///< the panes alone

/// The 0-based position of the character at a point of the pane, in twips; that of the caret while no widget
/// shows the pane.
qsizetype rtGetCharFromPos(const controls::RichTextBox& richText, double x, double y);

} // namespace textview
