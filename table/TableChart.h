// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace table {

/// Gives the selected block of cells to the chart: its columns are the series, under their headers; its rows
/// the categories, under their labels. The row for calculations is
/// left out.
void ChartFromTableSelection(DocumentWindow& window, const controls::FlexGrid& grid);
/// Draws the same block once more: its cells were written.
void DrawChartAgain(DocumentWindow& window);

} // namespace table
