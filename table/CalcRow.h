// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The row below a table, in which a box chooses what its cells tell of the columns above. Results stand in
// the grid alone, until it is loaded anew.
namespace table {

/// Opens the box over the grid's current cell. Not in the columns of keys and labels, nor in row 0 or 1.
void ShowCalc(DocumentWindow& window, controls::FlexGrid& grid, controls::ComboBox& cmb, int key);
/// The names of the figures, and a text in the box.
void FillCalcCombo(controls::ComboBox& cmb, const QString& text);

/// The chosen figure goes into the cell; the list shows it in the place of its name until it opens again.
void cmbSum_Click(DocumentWindow& window);
void cmbSum_DropDown(DocumentWindow& window);
void cmbSum_LostFocus(DocumentWindow& window);

} // namespace table
