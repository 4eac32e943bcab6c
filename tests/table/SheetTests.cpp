// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/table/TableDesk.h"
#include <cmath>

namespace {

using test::TableDesk;

/// Two tables, of 100 rows and of 10, in a window that shows 20.
struct TableSheet : TableDesk {
    void OpenTwo() {
        QByteArray rows;
        for (int i = 0; i < 100; ++i)
            rows += "<a x='1'/>";
        for (int i = 0; i < 10; ++i)
            rows += "<b y='1'/>";
        Open("<r>" + rows + "</r>");
    }
    double Top() { return w->pctTV.Place().Top; }
    /// Whether a row stands in the window, below its header.
    bool InSight(int row, int index) {
        const double top = Grid(index).Place().Top + Grid(index).RowTop(row) + Top();
        return top >= Grid(index).RowHeight(0) && top + Grid(index).RowHeight(row) <= 6000;
    }
};

TEST_F(TableSheet, GridsTouchAndTheSheetIsAsTallAsAllOfThem) {
    OpenTwo();
    EXPECT_EQ(Grid(0).Place().Height, 300 + 300 * 102 + 250);
    EXPECT_EQ(Grid(1).Place().Top, Grid(0).Place().Height);
    EXPECT_EQ(Grid(1).Place().Width, w->pctTV.Place().Width);
    EXPECT_EQ(w->pctTV.Place().Height, Grid(1).Place().Top + 300 + 300 * 12 + 250 + 150);
    EXPECT_TRUE(w->vsTableView.Visible());
    EXPECT_EQ(w->vsTableView.Place().Left, w->pctTV.Place().Width - 90 + 15);
    table::ResizeTableView(*w, 9000, 40'000);
    EXPECT_FALSE(w->vsTableView.Visible());
    EXPECT_EQ(Top(), 0);
}

TEST_F(TableSheet, TheBarMovesTheSheetByHundredthsOfTheOverhang) {
    OpenTwo();
    const double overhang = table::SheetOverhang(*w);
    EXPECT_EQ(Top(), 0);
    w->vsTableView.SetValue(50);
    EXPECT_DOUBLE_EQ(Top(), -overhang / 2);
    w->vsTableView.SetValue(1);
    EXPECT_DOUBLE_EQ(Top(), -overhang / 100);
    table::ScrollSheet(*w, -5);
    EXPECT_EQ(Top(), 0);
    table::ScrollSheet(*w, 1e9);
    EXPECT_DOUBLE_EQ(Top(), -overhang);
}

TEST_F(TableSheet, TheRowOfTheCurrentNodeComesIntoSight) {
    OpenTwo();
    controls::TreeNode node = Element().LastChild();
    t.ClickNode(node);
    EXPECT_EQ(w->vsTableView.Value(), std::lround(Grid(1).Place().Top / w->pctTV.Place().Height * 100 + 1));
    EXPECT_TRUE(InSight(10, 1));
    t.ClickNode(w->tvXML.ChildAt(Element(), 60));
    EXPECT_TRUE(InSight(61, 0)) << "the grid's own place is not enough";
    const double top = Top();
    t.ClickNode(w->tvXML.ChildAt(Element(), 61));
    EXPECT_TRUE(InSight(62, 0));
    EXPECT_LE(std::abs(Top() - top), 600) << "one that is in sight already hardly moves";
    table::ResizeTableView(*w, 8000, 6000);
    EXPECT_TRUE(InSight(62, 0)) << "the user goes on where they looked";
}

TEST_F(TableSheet, TheHeaderStaysInSightAndItsEditorWithIt) {
    OpenTwo();
    table::ScrollSheet(*w, 9000);
    EXPECT_EQ(table::HeaderTop(*w, Grid(0)), 9000);
    EXPECT_EQ(table::HeaderTop(*w, Grid(1)), Grid(1).Place().Top);
    DblClick(0, 2);
    EXPECT_EQ(w->txtTViewHeader.Place().Top, 9000);
    w->txtTViewHeader.LostFocus();
    DblClick(40, 2);
    const controls::Bounds place = w->txtTView.Place();
    EXPECT_EQ(place, (controls::Bounds{Grid(0).ColLeft(2), Grid(0).RowTop(40), Grid(0).ColWidth(2), 300}));
    Grid(0).UserResizedColumn(1, 900);
    EXPECT_EQ(w->txtTView.Place().Left, Grid(0).ColLeft(2)) << "an open editor goes along";
    table::SetTableRowHeight(*w, 400);
    EXPECT_EQ(Grid(1).Place().Top, 400 + 400 * 102 + 250);
}

} // namespace
