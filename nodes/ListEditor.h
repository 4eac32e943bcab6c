// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Opening the text box that edits a cell of the list in place. It works in the report view only.
namespace nodes {

/// Opens it on the second column of the current row. A very long text opens in the one-by-one editor.
void EditListViewAttribute(DocumentWindow& window);
/// Opens it on the cell at a point, in twips; the third column is for an element's row alone. Kinds of rows
/// that have no way back into the tree stay closed.
void ShowListViewTextBox(DocumentWindow& window, double left, double top);

/// Tab goes from a name on to the next cell: name, value, text of an element, next row. With `back` the other
/// way round.
void ListView1_LabelTabbed(DocumentWindow& window, bool back);
void txtListView_GotFocus(DocumentWindow& window);
/// `key` becomes 0 when it is used up.
void txtListView_KeyDown(DocumentWindow& window, int& key, int modifiers);

} // namespace nodes
