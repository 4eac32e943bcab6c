// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The text box that edits a cell of the list in place. Its text enters the tree when it is left, and there
// alone. It works in the report view only.

/// Opens it on the second column of the current row.
void EditListViewAttribute(DocumentWindow& window);
/// Opens it on the third column, which only an element's row has.
void EditListViewText(DocumentWindow& window);
/// Opens it on the cell at a point, in twips. Kinds of rows that have no way back into the tree stay closed.
void ShowListViewTextBox(DocumentWindow& window, double left, double top);

/// `key` becomes 0 when it is used up.
void txtListView_KeyDown(DocumentWindow& window, int& key, int modifiers);
void txtListView_Change(DocumentWindow& window); ///< the parser's complaint while the user types
void txtListView_GotFocus(DocumentWindow& window);
/// The commit: a text that passes its check goes into the tree and to the views. One that doesn't leaves
/// everything as it was, and the user has been told why. Nothing happens when the box isn't open.
void txtListView_LostFocus(DocumentWindow& window);
void CancelListViewTextBox(DocumentWindow& window); ///< closes it without a commit

/// Lays the open box over its cell anew, after a column has got another width.
void LayListViewTextBox(DocumentWindow& window);
/// The open box follows the scrolling of the list.
void tmList_Timer(DocumentWindow& window);
/// Moves the editor and the button beside it by `delta` twips. Where its cell leaves the visible area the
/// editor goes to -10000, and `savedLeft` keeps the place it comes back to.
void SetListviewTextboxPosition(const controls::ListView& list, controls::TextBox& editor,
                                controls::CommandButton& button, bool horizontal, double delta,
                                double& savedLeft);
