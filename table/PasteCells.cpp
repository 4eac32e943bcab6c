// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/PasteCells.h"
#include "core/edit/Transaction.h"
#include "nodes/PasteNodes.h"
#include "table/CellValue.h"
#include "table/GridCells.h"
#include "table/TableState.h"
#include "table/WriteCells.h"
#include <algorithm>
#include <optional>

namespace table {

namespace {

using controls::FlexGrid;
using controls::GridRange;

/// Where each value of a pasted row goes, and in how many rows.
class PastePlan {
public:
    PastePlan(const FlexGrid& grid, const ElementTable& table, const PastedBlock& block,
              const GridRange& selected)
        : table_(table), block_(block), selected_(selected), columnsSelected_(HaveColsSelected(grid)) {}

    int rows() const {
        const int pasted = static_cast<int>(block_.rows.size());
        return pasted == 1                                ? selected_.height()
               : selected_.height() == 1 || !block_.named ? pasted
                                                          : std::min(pasted, selected_.height());
    }
    /// One value for more cells than are pasted in one go.
    bool isTooMuch() const {
        return block_.isOneValue() && qint64(rows()) * selected_.width() > qint64(kMostPastedCells);
    }
    const PastedBlock::Row& row(int place) const {
        return block_.rows[block_.rows.size() == 1 ? 0 : static_cast<std::size_t>(place)];
    }
    /// The cells that a pasted row is for; nothing where they aren't all in the table.
    std::optional<std::vector<NewCell>> cellsOf(const PastedBlock::Row& row) const {
        if (block_.isOneValue() && !goesByName(row))
            return fill(row.values.front());
        return goesByName(row) ? byName(row) : byPlace(row);
    }

private:
    bool oneCell() const { return selected_.height() == 1 && selected_.width() == 1; }
    bool takesAnyName() const { return oneCell() || columnsSelected_; }
    bool isSelected(int column) const { return column >= selected_.left && column <= selected_.right; }

    // A value that is alone goes to the cell, whatever its name.
    bool goesByName(const PastedBlock::Row& row) const {
        if (row.names.isEmpty() || (row.names.size() == 1 && selected_.width() == 1))
            return false;
        return std::any_of(row.names.begin(), row.names.end(), [&](const QString& name) {
            const int column = table_.columnOf(name);
            return column >= Columns::kFirst && (oneCell() || isSelected(column));
        });
    }
    std::vector<NewCell> fill(const QString& value) const {
        std::vector<NewCell> cells;
        for (int column = selected_.left; column <= selected_.right; ++column)
            cells.push_back({table_.header(column), value});
        return cells;
    }
    std::vector<NewCell> byName(const PastedBlock::Row& row) const {
        std::vector<NewCell> cells;
        for (qsizetype i = 0; i < row.names.size(); ++i) {
            const int column = table_.columnOf(row.names[i]);
            if (column < 0 ? takesAnyName() : oneCell() || isSelected(column))
                cells.push_back({row.names[i], row.values[i], column < 0});
        }
        return cells;
    }
    std::optional<std::vector<NewCell>> byPlace(const PastedBlock::Row& row) const {
        std::vector<NewCell> cells;
        int column = selected_.left;
        for (const QString& value : row.values) {
            if (column > table_.textColumn())
                return {};
            cells.push_back({table_.header(column++), value});
        }
        return cells;
    }

    const ElementTable& table_;
    const PastedBlock& block_;
    GridRange selected_;
    bool columnsSelected_;
};

/// The values as they can be stored; nothing where one can't be, which is told.
std::optional<std::vector<NewCell>> Stored(DocumentWindow& window, std::vector<NewCell> cells) {
    for (NewCell& cell : cells) {
        const bool isText = cell.name == kNodeText;
        const auto value =
            isText ? TextValue(window.app, cell.value) : AttributeValue(window.app, cell.value);
        if (!value) {
            SayNoValue(window.app);
            return {};
        }
        cell.value = *value;
    }
    return cells;
}

struct PlannedRow {
    int row;
    std::vector<NewCell> cells;
};

/// All that is to be written; nothing where it can't be written whole, which is told.
std::optional<std::vector<PlannedRow>> PlanOf(DocumentWindow& window, const FlexGrid& grid,
                                              const ElementTable& table, const PastePlan& plan, int top) {
    std::vector<PlannedRow> planned;
    std::size_t written = 0;
    if (plan.isTooMuch()) {
        nodes::SayNothingFits(window);
        return {};
    }
    for (int i = 0; i < plan.rows(); ++i) {
        auto cells = top + i <= table.lastRow() ? plan.cellsOf(plan.row(i)) : std::nullopt;
        written += cells ? cells->size() : 0;
        if (!cells || written > kMostPastedCells) {
            nodes::SayNothingFits(window);
            return {};
        }
        auto stored = Stored(window, std::move(*cells));
        if (!stored)
            return {};
        planned.push_back({grid.SourceRow(top + i), std::move(*stored)});
    }
    return planned;
}

} // namespace

void PasteCellAtTableView(DocumentWindow& window, FlexGrid& grid, const PastedBlock& block) {
    edit::Run(window, "PasteCellAtTableView", [&] {
        const auto table = TableIn(window, grid);
        const GridRange selected = SelectedData(window, grid);
        if (!table || block.rows.empty() || selected.height() < 1 || selected.width() < 1)
            return nodes::SayNothingFits(window);
        const PastePlan plan(grid, *table, block, selected);
        const auto planned = PlanOf(window, grid, *table, plan, selected.top);
        if (!planned)
            return;
        CellWriter writer(window, grid, static_cast<int>(planned->size()));
        for (const PlannedRow& one : *planned)
            SetCells(writer, *table, one.row, one.cells);
    });
}

} // namespace table
