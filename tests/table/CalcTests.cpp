// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Statistics.h"
#include "tests/table/TableDesk.h"
#include <cmath>

namespace {

using table::Figure;
using table::FigureOf;
using test::TableDesk;

struct TableCalc : TableDesk {
    /// Opens the box below a column and chooses an entry; what the cell shows then.
    std::string Choose(int index, int column = 2) {
        const int row = Grid().Rows() - 1;
        DblClick(row, column);
        EXPECT_TRUE(w->cmbSum.Visible());
        w->cmbSum.DropDown();
        w->cmbSum.UserChose(index);
        w->cmbSum.LostFocus();
        return Grid().TextMatrix(row, column).toStdString();
    }
};

TEST_F(TableCalc, EachFigureCountsBlanksAndWordsAsZero) {
    Open("<r><a x='1'/><a x='x'/><a x=''/><a x='3'/></r>");
    const char* results[] = {"", "4", "1", "3", "0", "1.5", "3", "1.22474487139159", "1"};
    for (int i = 1; i <= 8; ++i)
        EXPECT_EQ(Choose(i), results[i]) << table::kFigureNames[static_cast<std::size_t>(i - 1)];
    EXPECT_EQ(w->cmbSum.Text(), QStringLiteral("1")) << "the number in the place of its name";
    EXPECT_EQ(w->cmbSum.Items().at(8), QStringLiteral("1"));
    w->cmbSum.DropDown();
    EXPECT_EQ(w->cmbSum.Items().at(8), QStringLiteral("AVEDEV"));
    EXPECT_EQ(w->cmbSum.Text(), QStringLiteral("1"));
    EXPECT_EQ(Choose(0), "");
    EXPECT_EQ(TagAt(2), "x=\"x\"");
}

TEST_F(TableCalc, AResultStaysOverEditsAndGoesWithTheNextLoad) {
    Open("<r><a x='1'/><a x='2'/></r>");
    EXPECT_EQ(Choose(1), "3");
    Edit(1, 2, "5");
    EXPECT_EQ(Grid().TextMatrix(3, 2), QStringLiteral("3"));
    Menu("mnuSortZA");
    EXPECT_EQ(Grid().TextMatrix(3, 2), QStringLiteral("3")) << "its row stays the last one";
    t.ClickNode(Element());
    t.ClickNode(Element().Child());
    EXPECT_EQ(Grid().TextMatrix(3, 2), QString());
}

TEST_F(TableCalc, TheNumberAtTheBeginningOfACellCounts) {
    const std::pair<const char*, double> cases[] = {
        {"12abc", 12}, {"1e3", 1000},   {"  7 ", 7}, {"-.5x", -0.5}, {"&amp;H1F", 31}, {"&amp;o17z", 15},
        {"abc", 0},    {"1,234", 1234}, {"1,23", 1}, {"$5", 5},      {"\t4", 4},       {"&lt;3", 0}};
    QByteArray rows = "<a x='1,234'/>"; // as it stands in the first row
    for (const auto& [cell, number] : cases)
        rows += QByteArray("<a x=\"") + cell + "\"/>";
    Open("<r>" + rows + "</r>");
    const std::vector<double> values = table::ColumnValues(*table::TableOf(*w).tables[0], 2);
    EXPECT_EQ(values[0], 1);
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(values[i + 1], cases[i].second) << cases[i].first;
}

TEST(Statistics, SmallDifferencesOfLargeValuesAreTold) {
    const std::vector<double> values{1e9, 1e9 + 1, 1e9 + 2};
    EXPECT_NEAR(FigureOf(Figure::Var, values), 2.0 / 3, 1e-12);
    EXPECT_NEAR(FigureOf(Figure::StDev, values), std::sqrt(2.0 / 3), 1e-12);
    EXPECT_NEAR(FigureOf(Figure::AveDev, values), 2.0 / 3, 1e-12);
    const std::vector<double> cancelling{1e16, 1, -1e16, 1};
    EXPECT_EQ(FigureOf(Figure::Sum, cancelling), 2);
    const std::vector<double> infinite{INFINITY, 1};
    EXPECT_TRUE(std::isinf(FigureOf(Figure::Sum, infinite)));
    EXPECT_EQ(FigureOf(Figure::Range, std::vector<double>{-2, 5}), 7);
}

TEST_F(TableCalc, TheBoxUsesUpEveryKey) {
    Open();
    DblClick(4, 2);
    for (int pressed : {int(Qt::Key_A), int(Qt::Key_Down), int(Qt::Key_Down), int(Qt::Key_Tab)}) {
        w->cmbSum.KeyDown(pressed, 0);
        EXPECT_EQ(pressed, 0);
    }
    EXPECT_FALSE(w->cmbSum.Visible());
    EXPECT_EQ(Grid().TextMatrix(4, 2), QStringLiteral("16.5")) << "sum, as the first choice";
    DblClick(4, 1);
    EXPECT_FALSE(w->cmbSum.Visible());
}

// --- order
// ---------------------------------------------------------------------------------------------------

TEST_F(TableCalc, SortingOrdersTheGridAlone) {
    Open("<r><a x='10' y='b'/><a x='9' y='A'/><a x='' y='c'/><a x='word' y='b'/><a x='9' y='B'/></r>");
    Drag(1, 2, 5, 2);
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("az"));
    EXPECT_EQ(Cells(),
              "<a>|x|y|Node Text\n[2]-|9|A|\n[5]-|9|B|\n[1]-|10|b|\n[4]-|word|b|\n[3]-||c|\n(Calc)|||");
    Drag(1, 2, 5, 3);
    t.ChooseMenu(QStringLiteral("mnuSortZA"));
    EXPECT_EQ(Cells(),
              "<a>|x|y|Node Text\n[4]-|word|b|\n[1]-|10|b|\n[5]-|9|B|\n[2]-|9|A|\n[3]-||c|\n(Calc)|||");
    EXPECT_EQ(Xml().find("<r><a x=\"10\""), 0U);
    Edit(3, 2, "99"); // the fifth element
    EXPECT_EQ(Element().LastChild().Tag(), QStringLiteral("x=\"99\" y=\"B\""));
    EXPECT_EQ(Grid().TextMatrix(3, 1), QStringLiteral("[5]-")) << "the order stays over an edit";
    t.ClickNode(Element().LastChild());
    EXPECT_EQ(Grid().Row(), 3);
    t.ClickNode(Element());
    t.ClickNode(Element().Child());
    EXPECT_EQ(Grid().TextMatrix(1, 1), QStringLiteral("[1]-"));
}

// --- chart
// ---------------------------------------------------------------------------------------------------

TEST_F(TableCalc, ASelectedBlockGoesToTheChart) {
    Open("<r><a x='1' y='b'/><a x='2' y='5'/></r>");
    EXPECT_TRUE(w->chtAna.Visible());
    Drag(1, 2, 3, 3); // the row for calculations is among them
    const controls::ChartTable& data = w->chtAna.Data();
    ASSERT_EQ(data.series.size(), 2U);
    EXPECT_EQ(data.rows, 2U);
    EXPECT_EQ(data.series[0].name, QStringLiteral("x"));
    EXPECT_EQ(data.series[0].values, (std::vector<double>{1, 2}));
    EXPECT_EQ(data.category(1), QStringLiteral("[2]-"));
    t.ChooseMenu(QStringLiteral("mnuViewChart"), 10);
    EXPECT_EQ(w->chtAna.chartType(), 14);
    t.ChooseMenu(QStringLiteral("mnuViewChart"), 11);
    EXPECT_EQ(w->chtAna.chartType(), 16);
    t.ChooseMenu(QStringLiteral("mnuViewChart"), 2);
    EXPECT_EQ(w->chtAna.chartType(), 2);
}

} // namespace
