// SPDX-License-Identifier: GPL-3.0-or-later
// The grids of the table view with real widgets, mouse and keys.
#include "desktop/base/Twips.h"
#include "desktop/chart/ChartPane.h"
#include "desktop/table/SheetPane.h"
#include "desktop/table/SheetPlaces.h"
#include "table/Sheet.h"
#include "tests/desktop/ShownApp.h"
#include "window/WindowKinds.h"
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

using controls::FlexGrid;
using controls::GridRange;
using desktop::GridPlace;
using desktop::SheetPlaces;

/// Cells that tell where they are.
class Numbered : public controls::GridSource {
public:
    Numbered(int rows, int cols) : rows_(rows), cols_(cols) {}
    int rowCount() const override { return rows_; }
    int columnCount() const override { return cols_; }
    QString text(int row, int column) const override {
        ++read;
        return QStringLiteral("%1/%2").arg(row).arg(column);
    }
    controls::GridStyle style(int, int) const override { return {}; }
    mutable int read = 0;

private:
    int rows_, cols_;
};

/// A sheet on an offscreen platform, with grids that the test made.
struct Grids : ::testing::Test {
    test::TestApp t;
    DocumentWindow window{t.app(), window::XMLKind()};
    desktop::SheetPane pane;

    Grids() {
        for (controls::TextBox* editor : {&window.txtTView, &window.txtTViewHeader})
            editor->SetVisible(false);
        window.cmbSum.SetVisible(false);
        pane.SetWindow(&window);
        pane.resize(640, 400);
        pane.show();
        pane.activateWindow();
        pane.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pane));
    }
    ~Grids() override { pane.SetWindow(nullptr); }
    controls::FlexGridArray& All() { return window.hfgrdTableView; }
    FlexGrid& Grid(int index) { return All()(index); }
    desktop::SheetView& View() { return pane.View(); }
    SheetPlaces Places() { return {window, View().size()}; }

    /// Grids of so many rows, the header among them, and columns, the hidden one among them.
    std::vector<std::shared_ptr<Numbered>> Make(const std::vector<std::pair<int, int>>& sizes) {
        std::vector<std::shared_ptr<Numbered>> sources;
        All().UnloadFrom(1);
        All().BeginUpdate();
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            FlexGrid& grid = i == 0 ? Grid(0) : All().Load();
            sources.push_back(std::make_shared<Numbered>(sizes[i].first, sizes[i].second));
            grid.SetFrozenCols(2);
            grid.SetSource(sources.back());
            grid.SetColWidth(0, 0);
            grid.SetVisible(true);
        }
        All().EndUpdate();
        table::SetTableViewOutlook(window);
        return sources;
    }
    QPoint On(FlexGrid& grid, int row, int col) { return Places().RectOf(grid, row, col).center(); }
    void ClickCell(FlexGrid& grid, int row, int col, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(&View(), Qt::LeftButton, held, On(grid, row, col));
    }
    void Drag(QPoint from, QPoint to) {
        QTest::mousePress(&View(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, View().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&View(), &move);
        QTest::mouseRelease(&View(), Qt::LeftButton, {}, to);
    }
    void Type(const QString& text) {
        for (const QChar unit : text)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(unit),
                                {});
    }
    bool Shows(FlexGrid& grid, int row, int col) {
        const QRect cell = Places().RectOf(grid, row, col);
        return View().rect().contains(cell) && cell.top() >= Places().BottomOfHeader(grid);
    }
};

TEST_F(Grids, TheMouseSelectsCellsRowsColumnsAndAll) {
    Make({{9, 6}, {4, 4}});
    FlexGrid& grid = Grid(0);
    ClickCell(grid, 2, 3);
    EXPECT_EQ(grid.Selection(), (GridRange{2, 3, 2, 3}));
    ClickCell(grid, 4, 5, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), (GridRange{2, 3, 4, 5}));
    EXPECT_EQ(grid.Row(), 2);
    ClickCell(grid, 3, 1);
    EXPECT_EQ(grid.Selection(), (GridRange{3, 1, 3, 5})) << "a label stands for its row";
    ClickCell(grid, 0, 4);
    EXPECT_EQ(grid.Selection(), (GridRange{1, 4, 8, 4})) << "a header for its column";
    ClickCell(grid, 0, 1);
    EXPECT_EQ(grid.Selection(), (GridRange{1, 1, 8, 5})) << "the corner for all";
    Drag(On(grid, 6, 4), On(grid, 3, 2));
    EXPECT_EQ(grid.Selection(), (GridRange{3, 2, 6, 4}));
    EXPECT_EQ(grid.Row(), 6);
    Drag(On(grid, 2, 1), On(grid, 5, 1));
    EXPECT_EQ(grid.Selection(), (GridRange{2, 1, 5, 5}));
    ClickCell(Grid(1), 2, 2);
    EXPECT_EQ(View().Current(), &Grid(1));
}

TEST_F(Grids, EachActRaisesItsEventsOnce) {
    Make({{5, 5}, {4, 4}});
    QStringList heard;
    controls::GridEvents& events = All().events();
    const auto note = [&](const char* what) {
        return [&heard, what](FlexGrid& grid) {
            heard << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(grid.Index);
        };
    };
    events.Click.connect(note("click"));
    events.DblClick.connect(note("double"));
    events.MouseDown.connect([&](FlexGrid& grid, int button) {
        heard << QStringLiteral("down%1 %2/%3").arg(button).arg(grid.MouseRow).arg(grid.MouseCol);
    });
    events.MouseUp.connect([&](FlexGrid&, int button) { heard << QStringLiteral("up%1").arg(button); });
    events.KeyPress.connect([&](FlexGrid& grid, int key) {
        heard << QStringLiteral("key %1 %2").arg(QChar(key)).arg(grid.Index);
    });
    events.KeyUp.connect([&](FlexGrid&, int key, int) { heard << QStringLiteral("keyup %1").arg(key); });
    ClickCell(Grid(1), 2, 3);
    EXPECT_EQ(heard, QStringList({"down1 2/3", "up1", "click 1"}));
    heard.clear();
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, On(Grid(0), 0, 2));
    EXPECT_EQ(heard.filter("double"), QStringList({"double 0"}));
    EXPECT_EQ(Grid(0).MouseRow, 0);
    heard.clear();
    Drag(On(Grid(0), 1, 2), On(Grid(0), 2, 2));
    EXPECT_EQ(heard, QStringList({"down1 1/2", "up1", "click 0"})) << "its first row is the current one";
    Grid(0).Select(1, 2, 3, 3);
    heard.clear();
    QTest::mouseClick(&View(), Qt::RightButton, {}, On(Grid(0), 2, 3));
    EXPECT_EQ(heard, QStringList({"down2 2/3", "up2"}));
    EXPECT_EQ(Grid(0).Selection(), (GridRange{1, 2, 3, 3})) << "what is selected is what the menu is for";
    heard.clear();
    QTest::keyClick(&View(), 'a');
    QTest::keyClick(&View(), Qt::Key_Down);
    QTest::keyClick(&View(), Qt::Key_Delete);
    EXPECT_EQ(heard, QStringList({"key a 0", QStringLiteral("keyup %1").arg(Qt::Key_A),
                                  QStringLiteral("keyup %1").arg(Qt::Key_Down),
                                  QStringLiteral("keyup %1").arg(Qt::Key_Delete)}));
}

TEST_F(Grids, KeysMoveTheCurrentCellAndGoOnInTheNextGrid) {
    Make({{1000, 30}, {4, 4}});
    FlexGrid& grid = Grid(0);
    ClickCell(grid, 1, 2);
    struct Step {
        Qt::Key key;
        Qt::KeyboardModifiers held;
        GridRange selection;
    };
    const Step steps[] = {{Qt::Key_Down, {}, {2, 2, 2, 2}},
                          {Qt::Key_Right, Qt::ShiftModifier, {2, 2, 2, 3}},
                          {Qt::Key_Down, Qt::ShiftModifier, {2, 2, 3, 3}},
                          {Qt::Key_End, {}, {2, 29, 2, 29}},
                          {Qt::Key_Home, {}, {2, 2, 2, 2}},
                          {Qt::Key_Left, {}, {2, 1, 2, 1}},
                          {Qt::Key_Left, {}, {2, 1, 2, 1}},
                          {Qt::Key_End, Qt::ControlModifier, {999, 29, 999, 29}},
                          {Qt::Key_Home, Qt::ControlModifier, {1, 2, 1, 2}},
                          {Qt::Key_Up, {}, {1, 2, 1, 2}},
                          {Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier, {1, 2, 999, 2}}};
    for (const Step& step : steps) {
        QTest::keyClick(&View(), step.key, step.held);
        EXPECT_EQ(grid.Selection(), step.selection) << QKeySequence(step.key).toString().toStdString();
        EXPECT_TRUE(Shows(grid, grid.RowSel(), grid.ColSel())) << "the key leads where one looks";
    }
    grid.Select(1, 2, 1, 2);
    QTest::keyClick(&View(), Qt::Key_PageDown);
    EXPECT_GT(grid.Row(), 5);
    QTest::keyClick(&View(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_Down);
    EXPECT_EQ(View().Current(), &Grid(1));
    EXPECT_EQ(Grid(1).Selection(), (GridRange{1, 2, 1, 2}));
    EXPECT_TRUE(Shows(Grid(1), 1, 2));
    QTest::keyClick(&View(), Qt::Key_Up);
    EXPECT_EQ(View().Current(), &grid);
    EXPECT_EQ(grid.Row(), 999);
}

TEST_F(Grids, AMillionRowsAreScrolledAndOnlyWhatIsSeenIsRead) {
    const auto sources = Make({{1'000'002, 10}, {3, 3}});
    auto& bar = *pane.findChild<QScrollBar*>(QStringLiteral("vsTableView"));
    sources[0]->read = 0;
    View().grab();
    EXPECT_LT(sources[0]->read, 2000);
    bar.setValue(bar.maximum());
    EXPECT_TRUE(Shows(Grid(1), 2, 2)) << "the sheet's end";
    bar.setValue(bar.maximum() / 2);
    const auto [first, last] = Places().VisibleRows(Grid(0));
    EXPECT_NEAR(first, 500'000, 100);
    EXPECT_GT(last, first + 5);
    EXPECT_EQ(Places().RectOf(Grid(0), 0, 2).top(), 0) << "the header stays in sight";
    EXPECT_EQ(Places().At(On(Grid(0), first + 2, 3)), (GridPlace{&Grid(0), first + 2, 3}));
    const int before = bar.value();
    QWheelEvent wheel(QPointF(50, 50), View().mapToGlobal(QPointF(50, 50)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&View(), &wheel);
    EXPECT_GT(bar.value(), before + 10);
    EXPECT_LT(bar.value(), before + 200);
    sources[0]->read = 0;
    View().grab();
    EXPECT_LT(sources[0]->read, 2000);
}

TEST_F(Grids, AmongThousandsOfGridsOnlyThoseInSightAreRead) {
    const auto sources = Make(std::vector<std::pair<int, int>>(2000, {3, 4}));
    View().grab();
    EXPECT_GT(sources[0]->read, 0);
    EXPECT_EQ(sources[1000]->read, 0);
    table::ScrollSheet(window, Grid(1000).Place().Top);
    View().grab();
    EXPECT_GT(sources[1000]->read, 0);
    EXPECT_EQ(sources[1999]->read, 0);
    ClickCell(Grid(1001), 1, 2);
    EXPECT_EQ(View().Current()->Index, 1001);
}

TEST_F(Grids, ColumnsAreResizedAndFittedAndLabelsStay) {
    Make({{50, 40}});
    FlexGrid& grid = Grid(0);
    int resized = 0;
    All().events().ColumnResized.connect([&](FlexGrid&, int) { ++resized; });
    const QRect header = Places().RectOf(grid, 0, 2);
    const QPoint border(header.right(), header.center().y());
    Drag(border, border + QPoint(60, 0));
    EXPECT_EQ(desktop::ToPixels(grid.ColWidth(2)), header.width() + 60);
    EXPECT_EQ(resized, 1);
    EXPECT_EQ(grid.Selection(), (GridRange{1, 1, 1, 1})) << "a border selects nothing";
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, border + QPoint(60, 0));
    EXPECT_LT(desktop::ToPixels(grid.ColWidth(2)), header.width()) << "as narrow as its texts";
    const QRect label = Places().RectOf(grid, 3, 1);
    View().SetCurrent(grid);
    View().ScrollBy({100'000, 0});
    EXPECT_TRUE(Shows(grid, 3, 39));
    EXPECT_EQ(Places().RectOf(grid, 3, 1), label) << "labels stay in sight";
    EXPECT_EQ(Places().At(label.center()).col, 1);
    EXPECT_EQ(Places().VisibleCols(grid).front(), 1);
    EXPECT_GT(Places().VisibleCols(grid)[1], 20);
}

TEST_F(Grids, EditorsLieOverTheirCellsAndTakeKeys) {
    Make({{9, 6}});
    controls::TextBox& model = window.txtTView;
    const auto open = [&](const QString& text) {
        model.SetText(text);
        const FlexGrid& grid = Grid(0);
        model.Move({grid.ColLeft(3), grid.RowTop(2), grid.ColWidth(3), grid.RowHeight(2)});
        model.SetVisible(true);
        model.SetFocus();
    };
    open(QStringLiteral("blue"));
    auto& line = *pane.findChild<QLineEdit*>(QStringLiteral("txtTView"));
    EXPECT_TRUE(line.hasFocus());
    EXPECT_EQ(line.geometry(), Places().RectOf(Grid(0), 2, 3));
    Type(QStringLiteral("sky "));
    EXPECT_EQ(model.Text(), QStringLiteral("sky blue")) << "the caret stands before the old text";
    EXPECT_EQ(model.SelStart(), 4);
    model.SetVisible(false);
    EXPECT_TRUE(View().hasFocus()) << "the next key is for the grid";

    open(QStringLiteral("one\r\ntwo"));
    auto& box = *pane.findChild<QPlainTextEdit*>(QStringLiteral("txtTViewLarge"));
    ASSERT_TRUE(box.hasFocus());
    std::vector<int> keys;
    model.KeyDown.connect([&](int& key, int) { keys.push_back(key); });
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(keys.empty()) << "to the second line";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(keys, std::vector<int>({Qt::Key_Down})) << "to the cell below";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    Type(QStringLiteral("!"));
    EXPECT_EQ(model.Text(), QStringLiteral("one\r\ntwo!"));
    EXPECT_EQ(model.SelStart(), 9);
}

TEST_F(Grids, TheListOfFiguresOpensByKeysAndTheBoxStays) {
    Make({{9, 6}});
    controls::ComboBox& model = window.cmbSum;
    const auto fill = [&model] {
        model.Clear();
        for (const char* name : {"", "Sum", "Average"})
            model.AddItem(QLatin1String(name));
    };
    int dropped = 0, lost = 0;
    QString chosen;
    model.DropDown.connect([&] {
        ++dropped;
        fill();
    });
    model.LostFocus.connect([&] { ++lost; });
    model.Click.connect([&] { chosen = model.Text(); });
    model.KeyDown.connect([](int& key, int) { key = 0; });
    fill();
    model.Move({Grid(0).ColLeft(3), Grid(0).RowTop(8), 1440, 315});
    model.SetVisible(true);
    model.SetFocus();
    auto& box = *pane.findChild<QComboBox*>(QStringLiteral("cmbSum"));
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(model.ListIndex(), -1) << "the key is the control's";
    for (const Qt::Key key : {Qt::Key_F4, Qt::Key_Space}) {
        QTest::keyClick(&box, key);
        ASSERT_TRUE(box.view()->isVisible());
        EXPECT_EQ(lost, 0) << "while the list is open the box stays";
        QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Return);
        EXPECT_EQ(chosen, QStringLiteral("Sum"));
        EXPECT_TRUE(box.isVisible());
    }
    EXPECT_EQ(dropped, 2);
    View().setFocus();
    EXPECT_EQ(lost, 1);
}

TEST_F(Grids, AssistiveProgramsReadTheCurrentGridAsATable) {
    Make({{9, 6}, {4, 4}});
    QAccessibleInterface* sheet = QAccessible::queryAccessibleInterface(&View());
    ASSERT_TRUE(sheet && sheet->tableInterface());
    QAccessibleTableInterface& cells = *sheet->tableInterface();
    EXPECT_EQ(cells.rowCount(), 9);
    ClickCell(Grid(0), 2, 3);
    QAccessibleInterface* focused = sheet->focusChild();
    ASSERT_TRUE(focused);
    EXPECT_EQ(focused->text(QAccessible::Name), QStringLiteral("2/3"));
    EXPECT_TRUE(focused->state().focused);
    EXPECT_EQ(sheet->child(sheet->indexOfChild(focused)), focused);
    EXPECT_EQ(focused->rect().topLeft(), View().mapToGlobal(Places().RectOf(Grid(0), 2, 3).topLeft()));
    QAccessibleInterface* last = cells.cellAt(8, 5);
    ClickCell(Grid(1), 1, 2);
    EXPECT_EQ(cells.columnCount(), 4);
    EXPECT_FALSE(last->isValid()) << "the other grid is smaller";
}

/// The table tab of the whole application.
struct TableTab : ::testing::Test {
    test::ShownApp t;
    TableTab() {
        t.OpenText(QStringLiteral("shop.xml"), "<shop><pen price='3' size='1'><cap/></pen>"
                                               "<pen price='5' size='2'>blue</pen></shop>");
        t.window().tvXML.SetSelectedItem(t.window().tvXML.SelectedItem().Child().Child());
        t.ClickTab(QStringLiteral("tableview"));
        View().setFocus();
    }
    desktop::SheetView& View() { return t.Find<desktop::SheetPane>(QStringLiteral("pctTableView")).View(); }
    FlexGrid& Grid() { return t.window().hfgrdTableView(0); }
    QPoint On(int row, int col) {
        return SheetPlaces(t.window(), View().size()).RectOf(Grid(), row, col).center();
    }
    void DoubleClick(int row, int col) {
        const QPoint place = View().mapTo(t.main.get(), On(row, col));
        QTest::mouseClick(t.main->windowHandle(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(t.main->windowHandle(), Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
    }
};

TEST_F(TableTab, ACellIsEditedAndTheNextKeyGoesToTheGrid) {
    DoubleClick(2, 2);
    ASSERT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("txtTView"));
    t.Type(QStringLiteral("1"));
    t.Press(Qt::Key_Up);
    t.Type(QStringLiteral("2"));
    EXPECT_EQ(Grid().TextMatrix(2, 2), QStringLiteral("15"));
    t.Click(View(), On(2, 3)); // a click elsewhere is a commit, too
    EXPECT_EQ(Grid().TextMatrix(1, 2), QStringLiteral("23"));
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("price=\"23\"")));
    EXPECT_TRUE(View().hasFocus());
    EXPECT_EQ(Grid().Row(), 2);
    EXPECT_EQ(Grid().Col(), 3);
}

TEST_F(TableTab, ADoubleClickOnALabelWalksDownAndUpAndKeysFollow) {
    DoubleClick(1, 1);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("cap"));
    EXPECT_EQ(Grid().TextMatrix(0, 1), QStringLiteral("<cap>"));
    DoubleClick(1, 1);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("pen"));
    t.Press(Qt::Key_Down);
    EXPECT_EQ(Grid().Row(), 2);
    t.Click(View(), On(2, 1));
    EXPECT_EQ(t.window().txtXPath.Text(), QStringLiteral("/shop[1]/pen[2]"));
}

TEST_F(TableTab, TheClickBehindAWalkUpLeadsToItsRow) {
    t.OpenText(QStringLiteral("boxes.xml"), "<shop><pen/><box><cap/><cap/></box><box/></shop>");
    const controls::TreeNode shop = t.window().tvXML.SelectedItem().Child();
    t.window().tvXML.SetSelectedItem(shop.LastChild().Previous().Child());
    t.ClickTab(QStringLiteral("tableview"));
    ASSERT_EQ(Grid().TextMatrix(0, 1), QStringLiteral("<cap>"));
    DoubleClick(2, 1); // the second release is over another grid
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("box"));
    FlexGrid& boxes = t.window().hfgrdTableView(1);
    EXPECT_EQ(View().Current(), &boxes) << "keys are for the row that was walked up to";
    t.Click(View(), SheetPlaces(t.window(), View().size()).RectOf(boxes, 2, 1).center());
    EXPECT_EQ(t.window().txtXPath.Text(), QStringLiteral("/shop[1]/box[2]"));
}

TEST_F(TableTab, TabStaysInTheGrid) {
    DoubleClick(2, Grid().Cols() - 1);
    t.Press(Qt::Key_Tab);
    EXPECT_TRUE(View().hasFocus());
    DoubleClick(1, 2);
    t.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(View().hasFocus());
    DoubleClick(0, 2);
    t.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(TableTab, WhatIsSelectedIsDrawnAndOtherTabsHaveNoChart) {
    auto& chart = t.Find<desktop::ChartPane>(QStringLiteral("chtAna"));
    EXPECT_TRUE(chart.isVisible());
    t.Click(View(), On(0, 2));
    QCoreApplication::processEvents();
    const controls::ChartTable& drawn = *chart.View().Picture().table;
    ASSERT_EQ(drawn.series.size(), 1U);
    EXPECT_EQ(drawn.series[0].values, std::vector<double>({3, 5})) << "not the row for calculations";
    t.Click(View(), On(1, 1));
    t.Press(Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_TRUE(chart.View().Picture().table->series.empty()) << "what was drawn is gone";
    t.ClickTab(QStringLiteral("listview"));
    EXPECT_FALSE(t.window().chtAna.Visible());
}

} // namespace
