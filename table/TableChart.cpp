// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableChart.h"
#include "table/GridCells.h"
#include "table/TableState.h"
#include <vector>

namespace table {

namespace {

using controls::FlexGrid;

/// The block as it stands, for a chart that is drawn later: what was selected may be another one by then.
controls::ChartCells CellsOf(DocumentWindow& window, const FlexGrid& grid, const controls::GridRange& range) {
    const auto table = TableIn(window, grid);
    auto rows = std::make_shared<std::vector<int>>();
    for (int row = range.top; row <= range.bottom; ++row)
        rows->push_back(grid.SourceRow(row));
    const auto column = [left = range.left](std::size_t place) { return left + static_cast<int>(place); };
    // A number is the same whether it is rewritten or not, and rewriting is what takes the time.
    const auto cell = [table, rows, column](std::size_t row, std::size_t place) {
        return table->shownValue((*rows)[row], column(place)).toString();
    };
    return {.rows = rows->size(),
            .columns = static_cast<std::size_t>(range.width()),
            .cell = cell,
            .header = [table, column](std::size_t place) { return table->header(column(place)); },
            .category = [table, rows](std::size_t row) { return table->text((*rows)[row], 1); }};
}

} // namespace

void ChartFromTableSelection(DocumentWindow& window, const FlexGrid& grid) {
    const controls::GridRange range = SelectedData(window, grid);
    if (range.height() < 1 || range.width() < 1)
        return;
    window.chtAna.SetShowLegend(true);
    TableOf(window).charted = CellsOf(window, grid, range);
    DrawChartAgain(window);
}

void DrawChartAgain(DocumentWindow& window) {
    if (const auto& charted = TableOf(window).charted)
        window.chtAna.SetChartData(*charted);
}

} // namespace table
