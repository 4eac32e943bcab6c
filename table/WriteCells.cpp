// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/WriteCells.h"
#include "nodes/NodeValue.h"
#include "table/GridCells.h"
#include "table/Prefixes.h"
#include "table/TableChart.h"
#include "table/TableState.h"
#include "table/TagText.h"
#include <algorithm>

namespace table {

namespace {

// Changes of more nodes are announced as a whole: a widget would follow them one by one.
constexpr int kAnnouncedOneByOne = 2000;

} // namespace

CellWriter::CellWriter(DocumentWindow& window, const controls::FlexGrid& grid, int rows)
    : window_(window), grid_(grid.Index), table_(TableIn(window, grid)), current_(GridsAreCurrent(window)) {
    if (rows > kAnnouncedOneByOne)
        quiet_.emplace(window.tvXML);
}

CellWriter::~CellWriter() {
    if (!current_ || !columnsStand_ || first_ == 0)
        return;
    TableOf(window_).shownRevision = window_.tvXML.Revision();
    DrawChartAgain(window_);
    controls::FlexGrid& grid = window_.hfgrdTableView(grid_);
    const bool sorted = grid.IsSorted();
    grid.CellsChanged({sorted ? 0 : first_, 0, sorted ? grid.Rows() - 1 : last_, grid.Cols() - 1});
}

void CellWriter::noteRow(int row) {
    first_ = first_ == 0 ? row : std::min(first_, row);
    last_ = std::max(last_, row);
}

void CellWriter::setTag(int row, const QString& tag) {
    controls::TreeNode element = table_->element(row);
    if (!PrefixesStand(element, tag)) {
        SayNoDeclaration(window_.app);
        throw text::Fault(text::kFaultDeclined, {});
    }
    element.SetTag(tag);
    columnsStand_ = columnsStand_ && table_->columnsStandAfter(row);
    noteRow(row);
}

void CellWriter::setText(int row, const QString& text) {
    nodes::WriteElementText(window_, table_->element(row), text);
    noteRow(row);
}

void SetCells(CellWriter& writer, const ElementTable& table, int row, std::span<const NewCell> cells) {
    const QString before = table.element(row).Tag();
    const bool withText = !cells.empty() && cells.back().name == kNodeText; // the last column
    if (withText)
        writer.setText(row, cells.back().value);
    const QString tag = WithValues(before, cells.first(cells.size() - (withText ? 1 : 0)));
    if (tag != before)
        writer.setTag(row, tag);
}

void DeleteCells(CellWriter& writer, const ElementTable& table, int row, std::span<const int> columns) {
    const QString before = table.element(row).Tag();
    QString tag = before;
    for (const int column : columns) {
        if (column == table.textColumn())
            writer.setText(row, {});
        else
            tag = WithoutName(tag, table.header(column));
    }
    if (tag != before)
        writer.setTag(row, tag);
}

} // namespace table
