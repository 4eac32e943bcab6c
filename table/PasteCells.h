// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "table/PastedBlock.h"

namespace table {

/// Writes what was copied into the selected cells of a grid, as one edit: all of it or, with a word, nothing
/// (quirk 72).
///
/// One value goes into every selected cell. Lines of values go cell by cell from the selection's upper left
/// corner on. Values with names go into the columns of their names: the selected ones, or all where one cell
/// is selected; where none of the names is there, they go cell by cell. Names that the table lacks become new
/// attributes where whole columns, or one cell, are selected. A single row is written into every selected
/// row.
void PasteCellAtTableView(DocumentWindow& window, controls::FlexGrid& grid, const PastedBlock& block);

} // namespace table
