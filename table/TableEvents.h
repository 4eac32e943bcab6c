// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace table {

/// Joins the grids, their editors and the scroll bar to what they do.
void ConnectTables(DocumentWindow& window);

/// What a double click does, and the command that edits a value: a row's label walks down to the row's
/// elements, or up where it has none; a header and a cell are edited; in the row for calculations its box
/// opens.
void hfgrdTableView_DblClick(DocumentWindow& window, controls::FlexGrid& grid);

} // namespace table
