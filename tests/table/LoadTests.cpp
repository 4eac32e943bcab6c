// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "core/model/NodeContent.h"
#include "tests/table/TableDesk.h"

namespace {

using test::TableDesk;

struct TableLoad : TableDesk {};

TEST_F(TableLoad, ALevelIsAStackOfGridsOneForEachNameInTheOrderTheyComeFirst) {
    Open();
    ASSERT_EQ(Grids(), 2);
    EXPECT_EQ(Cells(0), "<item>|id|name|Node Text\n"
                        "[1]-|007|Tea|fine\n"
                        "[2]+|8|Cup|\n"
                        "[3]-|1.5|Pot|\n"
                        "(Calc)|||");
    EXPECT_EQ(Cells(1), "<note>|Node Text\n[1]-|x\n(Calc)|");
    EXPECT_EQ(Grid(1).Cols(), 3);
    EXPECT_EQ(Grid().ColWidth(0), 0);
    EXPECT_EQ(Grid().TextMatrix(1, 0), Element().Child().Key());
    EXPECT_EQ(Grid().TextMatrix(0, 0) + Grid().TextMatrix(4, 0), QString());
    EXPECT_TRUE(Grid().Style(1, 1).Underline && Grid().Style(4, 1).Bold && Grid().Style(4, 1).Italic);
    EXPECT_EQ(Grid(1).Place().Top, Grid(0).Place().Height);
}

TEST_F(TableLoad, ARowThatBringsAColumnStaysEmptyFromThatAttributeOn) {
    Open("<r><a x='1'/><a x='2' y='3' z='4'>t</a><a y='5' z='6' x='7'>u</a><a z='8' y='9'>v</a></r>");
    EXPECT_EQ(Cells(), "<a>|x|y|z|Node Text\n"
                       "[1]-|1|||\n"
                       "[2]-|2|||\n"
                       "[3]-||5||\n"
                       "[4]-||9|8|v\n"
                       "(Calc)||||");
}

TEST_F(TableLoad, NumbersAreRewrittenFromTheSecondRowOn) {
    const std::pair<const char*, const char*> cases[] = {
        {"007", "7"},          {"1.50", "1.5"},
        {"1e3", "1000"},       {"1,234.50", "1234.5"},
        {"$5", "5"},           {"-0", "0"},
        {"+3", "3"},           {".5", "0.5"},
        {"1e-7", "0.0000001"}, {"12abc", "12abc"},
        {"1,23", "1,23"},      {"", ""},
        {"--5", "--5"},        {"1e", "1e"},
        {" 42 ", "42"},        {"0012345678901234567", "0012345678901234567"},
        {"1e999", "1e999"},    {"&amp;H1F", "&amp;H1F"}};
    QByteArray rows;
    for (const auto& [value, shown] : cases)
        rows += QByteArray("<a x=\"") + value + "\"/>";
    Open("<r><a x=\"007\"/>" + rows + "</r>");
    EXPECT_EQ(Grid().TextMatrix(1, 2), QStringLiteral("007"));
    int row = 2;
    for (const auto& [value, shown] : cases)
        EXPECT_EQ(Grid().TextMatrix(row++, 2), QLatin1String(shown)) << value;
    EXPECT_EQ(TagAt(2), "x=\"007\"");
}

TEST_F(TableLoad, NamesThatDifferInCaseAreTwoGridsAndTwoColumns) {
    Open("<r><a x='1' X='2'/><A/><a X='3'>t<b/>u</a></r>");
    ASSERT_EQ(Grids(), 2);
    EXPECT_EQ(Cells(0), "<a>|x|X|Node Text\n[1]-|1|2|\n[2]+||3|t\n(Calc)|||");
    EXPECT_EQ(Cells(1), "<A>|Node Text\n[1]-|\n(Calc)|");
}

TEST_F(TableLoad, ASchemaWindowHasNoRowForCalculationsAndNoChart) {
    Open("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='a'/></xs:schema>",
         QStringLiteral("s.xsd"));
    EXPECT_EQ(Cells(), "<xs:element>|name|Node Text\n[1]-|a|");
    EXPECT_FALSE(w->chtAna.Visible());
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuViewChart"), 3).Enabled());
}

// --- following the tree
// --------------------------------------------------------------------------------------

TEST_F(TableLoad, TheRowOfTheCurrentNodeIsSelectedAndOtherGridsHaveNoSelection) {
    Open();
    const int fills = t.app().work.tableFills;
    t.ClickNode(Element().LastChild());
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{3, 1, 3, 4}));
    t.ClickNode(m_tvXML::FirstTextChild(Element().Child()).Parent().Parent().LastChild().Previous()); // note
    EXPECT_EQ(Grid(0).Selection(), (controls::GridRange{0, 0, 0, 0}));
    EXPECT_EQ(Grid(1).Selection(), (controls::GridRange{1, 1, 1, 2}));
    EXPECT_EQ(t.app().work.tableFills, fills) << "the level is the same";
}

TEST_F(TableLoad, ATextGivesWayToItsParentAndAnotherNodeToTheFirstElement) {
    Open();
    t.ClickNode(m_tvXML::FirstTextChild(Element().Child()));
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    t.ClickNode(Element().Child().Next()); // the comment
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    EXPECT_EQ(Grids(), 2);
}

TEST_F(TableLoad, ALevelWithoutElementsAndTheRootLeaveTheGridsAsTheyAre) {
    Open("<r><a x='1'/><b><!--c--></b></r>");
    const std::string before = Cells();
    t.ClickNode(Element().LastChild().Child());
    EXPECT_EQ(m_tvXML::GetKeyType(w->tvXML.SelectedItem()), m_tvXML::kComment);
    EXPECT_EQ(Cells(), before);
    t.ClickNode(Root());
    EXPECT_EQ(Cells(), before);
    w->tbsXML.Select(QStringLiteral("listview"));
    w->tbsXML.Select(QStringLiteral("tableview"));
    EXPECT_EQ(w->tvXML.SelectedItem(), Element()) << "the root gives way to its first child";
    EXPECT_EQ(Cells(), "<r>|Node Text\n[1]+|\n(Calc)|");
}

TEST_F(TableLoad, GridsNeverShowWhatIsGone) {
    Open();
    t.ClickNode(Root());
    edit::Run(*w, "Elsewhere", [&] { w->tvXML.Nodes.Remove(Element().Child()); });
    EXPECT_EQ(Grids(), 2);
    EXPECT_EQ(Grid().TextMatrix(1, 3), QStringLiteral("Cup"));
    t.EditText(QStringLiteral("<other/>"));
    w->tbsXML.Select(QStringLiteral("tableview"));
    EXPECT_EQ(Cells(), "<other>|Node Text\n[1]-|\n(Calc)|");
    t.EditText({});
    w->tbsXML.Select(QStringLiteral("tableview"));
    EXPECT_EQ(Grids(), 0);
}

TEST_F(TableLoad, AChangeOfTheTreeLoadsTheLevelAnew) {
    Open();
    Menu("mnuDeleteP");
    EXPECT_EQ(Cells(0), "<item>|id|name|Node Text\n[1]+|008|Cup|\n[2]-|1.5|Pot|\n(Calc)|||");
    Undo();
    EXPECT_EQ(Grid().Rows(), 5);
}

TEST_F(TableLoad, WidthsThatTheUserGaveComeBackWithTheTable) {
    Open();
    Grid().UserResizedColumn(2, 2500);
    DblClick(2, 1); // down, and up again
    EXPECT_EQ(Cells(), "<part>|Node Text\n[1]-|\n(Calc)|");
    EXPECT_NE(Grid().ColWidth(2), 2500);
    DblClick(1, 1);
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("item"));
    EXPECT_EQ(Grid().ColWidth(2), 2500);
}

} // namespace
