// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Transaction.h"
#include "table/ElementTable.h"
#include "table/TagText.h"
#include <QString>
#include <memory>
#include <optional>
#include <span>

// Cells are written straight into the nodes of their rows.
namespace table {

/// Writes elements that a grid shows, inside an edit. Where the grids showed the tree as it was before, and
/// the columns stand after it, the grids aren't made anew: cells are read from the tree when they are looked
/// at. An order that the user gave the rows, results of calculations and what is selected stay then.
class CellWriter {
public:
    /// `rows`: about how many will be written. Many are announced by the tree as one change.
    CellWriter(DocumentWindow& window, const controls::FlexGrid& grid, int rows);
    ~CellWriter();
    CellWriter(const CellWriter&) = delete;
    CellWriter& operator=(const CellWriter&) = delete;

    // Rows are the table's own, from 1, whatever order the grid shows them in.
    /// Where the document couldn't be read with it this is told, and a fault takes the edit back.
    void setTag(int row, const QString& tag);
    void setText(int row, const QString& text); ///< the first text of the element; empty takes it away

private:
    void noteRow(int row);
    DocumentWindow& window_;
    int grid_;
    std::shared_ptr<ElementTable> table_;
    bool current_;
    bool columnsStand_ = true;
    int first_ = 0, last_ = 0; ///< of the rows that were written
    std::optional<controls::TreeUpdate> quiet_;
};

/// Gives an element attributes, or its text, their values.
void SetCells(CellWriter& writer, const ElementTable& table, int row, std::span<const NewCell> cells);
/// Takes attributes, and the text, away; the element has them.
void DeleteCells(CellWriter& writer, const ElementTable& table, int row, std::span<const int> columns);

} // namespace table
