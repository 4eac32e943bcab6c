// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FlexGrid.h"
#include "platform/text/Fault.h"
#include <gtest/gtest.h>

namespace {

using controls::FlexGrid;
using controls::FlexGridArray;
using controls::GridRange;

/// Row r, column c reads "r.c"; numbers in column 1 go down.
struct Numbered : controls::GridSource {
    int rowCount() const override { return 6; }
    int columnCount() const override { return 4; }
    QString text(int row, int column) const override {
        return column == 1 ? QString::number(100 - row) : QStringLiteral("%1.%2").arg(row).arg(column);
    }
    controls::GridStyle style(int row, int) const override { return {.Bold = row == 0}; }
};

std::string Column(const FlexGrid& grid, int column) {
    QStringList cells;
    for (int row = 0; row < grid.Rows(); ++row)
        cells << grid.TextMatrix(row, column);
    return cells.join(u' ').toStdString();
}

TEST(FlexGrid, CellsOfItsOwnAndCellsOverASource) {
    FlexGridArray grids;
    FlexGrid& grid = grids(0);
    grid.SetRows(3);
    grid.SetCols(3);
    grid.SetTextMatrix(2, 2, QStringLiteral("x"));
    grid.SetRows(2);
    grid.SetRows(3);
    EXPECT_EQ(grid.TextMatrix(2, 2), QString());
    EXPECT_THROW(grid.TextMatrix(3, 0), text::Fault);
    EXPECT_THROW(grid.Select(0, 0, 0, 3), text::Fault);

    grid.SetSource(std::make_shared<Numbered>());
    EXPECT_EQ(grid.TextMatrix(5, 3), QStringLiteral("5.3"));
    grid.SetTextMatrix(5, 3, QString());
    EXPECT_EQ(grid.TextMatrix(5, 3), QString());
    EXPECT_TRUE(grid.Style(0, 0).Bold);
    EXPECT_THROW(grid.SetRows(9), text::Fault);
    grid.Clear();
    EXPECT_EQ(grid.TextMatrix(5, 3), QStringLiteral("5.3"));
}

TEST(FlexGrid, SortingKeepsHeaderAndTailAndCarriesWhatWasWritten) {
    FlexGridArray grids;
    FlexGrid& grid = grids(0);
    grid.SetSource(std::make_shared<Numbered>());
    grid.SetTailRows(1);
    grid.SetTextMatrix(1, 2, QStringLiteral("mine"));
    grid.Select(1, 1, 1, 1);
    grid.Sort(controls::flexSortGenericAscending);
    EXPECT_EQ(Column(grid, 1), "100 96 97 98 99 95");
    EXPECT_EQ(grid.TextMatrix(4, 2), QStringLiteral("mine"));
    EXPECT_EQ(grid.SourceRow(4), 1);
    EXPECT_EQ(grid.RowOfSource(1), 4);
    grid.Sort(controls::flexSortNone);
    EXPECT_EQ(Column(grid, 1), "100 99 98 97 96 95");
}

TEST(FlexGrid, ItTellsOfEachChangeOnceAndOfNoneThatIsNone) {
    FlexGridArray grids;
    FlexGrid& grid = grids(0);
    QStringList told;
    grid.events().SelChange.connect([&](FlexGrid& one) { told << QStringLiteral("sel%1").arg(one.Index); });
    grid.events().EnterCell.connect([&](FlexGrid&) { told << QStringLiteral("enter"); });
    grid.events().cellsChanged.connect(
        [&](FlexGrid&, const GridRange& at) { told << QStringLiteral("cells%1").arg(at.bottom); });
    grid.events().columnsChanged.connect([&](FlexGrid&) { told << QStringLiteral("columns"); });
    grid.SetSource(std::make_shared<Numbered>());
    grid.Select(1, 1, 3, 2);
    grid.Select(1, 1, 3, 3);
    grid.Select(1, 1, 3, 3);
    EXPECT_EQ(told.join(u' ').toStdString(), "sel0 sel0");
    told.clear();
    grid.SetRow(2);
    grid.SetTextMatrix(2, 2, QStringLiteral("x"));
    grid.SetColWidth(2, 700);
    grid.SetColWidth(2, 700);
    EXPECT_EQ(told.join(u' ').toStdString(), "enter sel0 cells2 columns");
    told.clear();
    {
        const controls::FlexGridUpdate quiet(grids);
        grids.Load().SetSource(std::make_shared<Numbered>());
        grid.SetRow(3);
    }
    EXPECT_TRUE(told.isEmpty());
    grids(1).SetRow(3);
    EXPECT_EQ(told.join(u' ').toStdString(), "enter sel1");
}

TEST(FlexGrid, ColumnsAreFoundWhereTheyStandScrolledOrNot) {
    FlexGridArray grids;
    FlexGrid& grid = grids(0);
    grid.SetSource(std::make_shared<Numbered>());
    grid.SetFrozenCols(2);
    grid.SetColWidth(0, 0);
    grid.SetColWidth(1, 500);
    grid.SetColWidth(2, 2000);
    grid.SetColWidth(3, 3000);
    grid.Move({0, 0, 4000, 3000});
    EXPECT_EQ(grid.ColAt(0), 1);
    EXPECT_EQ(grid.ColAt(500), 2);
    EXPECT_EQ(grid.ColAt(2500), 3);
    grid.ShowColumn(3);
    EXPECT_EQ(grid.ScrollLeft(), 1500);
    EXPECT_EQ(grid.ColLeft(3), 1000);
    EXPECT_EQ(grid.ColAt(499), 1);
    EXPECT_EQ(grid.ColAt(600), 2);
    EXPECT_EQ(grid.ColAt(1000), 3);
    EXPECT_EQ(grid.ColAt(4000), -1);
    grid.ShowColumn(2);
    EXPECT_EQ(grid.ScrollLeft(), 0);
    grid.SetScrollLeft(1e9);
    EXPECT_EQ(grid.ScrollLeft(), 1500);
    grid.Move({0, 0, 9000, 3000});
    EXPECT_EQ(grid.ScrollLeft(), 0) << "wide enough now";
    EXPECT_EQ(grid.ColAt(8000), -1);
}

} // namespace
