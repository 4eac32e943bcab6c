// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The editors that lie over the grids: txtTView over a cell, txtTViewHeader over a header, cmbSum over a cell
// of the row for calculations. One is open at a time.
namespace table {

/// Lays an editor over the cell that is being edited.
void LayCellEditor(DocumentWindow& window, controls::TextBox& editor);
void LayHeaderEditor(DocumentWindow& window, controls::TextBox& editor);
void LayCalcBox(DocumentWindow& window, controls::ComboBox& box);
/// The open one anew: a column has another width, or the grid is scrolled.
void LayTableEditors(DocumentWindow& window);

/// Closes them without a commit.
void CloseTableEditors(DocumentWindow& window);
/// The text box that is open; null without one.
controls::TextBox* OpenTableCell(DocumentWindow& window);

} // namespace table
