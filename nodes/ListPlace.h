// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The place of the text box that edits a cell of the list, and its end. All lengths are twips.
namespace nodes {

/// Lays editor and button over a cell; column 1 or 2 of the row's sub-items, 0: its name.
void SetListViewComboBox(DocumentWindow& window, int row, int column);
/// Lays the open box over its cell anew, after a column has got another width.
void LayListViewTextBox(DocumentWindow& window);
/// The box begins to follow the scrolling of the list: it has been given the focus.
void FollowScrolling(DocumentWindow& window);
/// It follows.
void tmList_Timer(DocumentWindow& window);
/// Moves the editor and the button beside it by `delta`. Where its cell leaves the visible area the editor
/// goes to -10000, and `savedLeft` keeps the place it comes back to.
void SetListviewTextboxPosition(const controls::ListView& list, controls::TextBox& editor,
                                controls::CommandButton& button, bool horizontal, double delta,
                                double& savedLeft);
/// The column that is being edited: 1, 2 for an element's text, or 0 for an element's name.
int EditedColumn(const DocumentWindow& window);
void CancelListViewTextBox(DocumentWindow& window); ///< closes it without a commit

} // namespace nodes
