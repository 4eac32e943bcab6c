// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/table/TableDesk.h"

namespace {

using test::TableDesk;

struct TableClipboard : TableDesk {
    void Clip(const QString& text) { t.clipboard.SetText(text); }
    std::string Clipped() { return t.clipboard.text.toStdString(); }
};

constexpr char kTwo[] = "<r><a x='1' y='2'>t</a><a x='03' y='4'/></r>";

// --- copying
// -------------------------------------------------------------------------------------------------

TEST_F(TableClipboard, ABlockIsCopiedAsElementsAndAsATable) {
    Open(kTwo);
    Drag(1, 2, 2, 4);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipped(), "<a x=\"1\" y=\"2\" >t</a>\r\n<a x=\"03\" y=\"4\" />");
    EXPECT_EQ(t.clipboard.xml, t.clipboard.text);
    EXPECT_EQ(t.clipboard.html.toStdString(),
              "<table cellSpacing=\"0\" cellPadding=\"0\" border=\"1\"><thead><tr><td>x</td><td>y</td>"
              "<td>Node Text</td></tr></thead><tr><td>1</td><td>2</td><td>t</td></tr>"
              "<tr><td>3</td><td>4</td><td>&nbsp;</td></tr></table>");
    Menu("mnuCopyAsHTML");
    EXPECT_EQ(t.clipboard.text, t.clipboard.html);
}

TEST_F(TableClipboard, WholeRowsAreCopiedAsNodesAndNothingLeavesTheClipboardAsItWas) {
    Open("<r><a x='1'><b/></a><a x='2'/></r>");
    Drag(1, 1, 2, 3);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipped(), "\t<a x=\"1\">\r\n\t\t<b></b>\r\n\t</a>\r\n\t<a x=\"2\"></a>");
    Grid().Select(0, 0, 0, 0);
    t.prompts.Answer(services::Answer::Ok);
    Control(Qt::Key_C);
    EXPECT_EQ(t.prompts.Texts(), QStringList{QStringLiteral("This type of data can not copy!")});
    EXPECT_NE(Clipped(), "");
    Drag(1, 0, 1, 1);
    EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuEditCopy")).Enabled(), false);
}

// --- pasting
// -------------------------------------------------------------------------------------------------

TEST_F(TableClipboard, ACopiedBlockGoesIntoTheColumnsOfItsNames) {
    Open("<r><a x='1' y='2' z='3'>t</a><a z='6' y='5' x='4'/><a/></r>");
    Drag(1, 2, 1, 3);
    Control(Qt::Key_C);
    Drag(2, 2, 3, 4); // a single row goes into every selected one
    Control(Qt::Key_V);
    EXPECT_EQ(Xml(), "<r><a x=\"1\" y=\"2\" z=\"3\">t</a><a z=\"6\" y=\"2\" x=\"1\"></a>"
                     "<a  x=\"1\" y=\"2\"></a></r>");
    Undo();
    EXPECT_EQ(TagAt(2), "z=\"6\" y=\"5\" x=\"4\"") << "one step";
}

TEST_F(TableClipboard, OneCellGoesIntoAnotherColumn) {
    Open("<r><a x='it&apos;s' y='2'>t</a><a x='3' y='4'/></r>");
    Click(1, 2);
    Control(Qt::Key_C);
    Drag(2, 3, 2, 4);
    Control(Qt::Key_V);
    EXPECT_EQ(Xml(), "<r><a x=\"it&apos;s\" y=\"2\">t</a><a x=\"3\" y=\"it&apos;s\">it&apos;s</a></r>");
    Click(1, 4);
    Control(Qt::Key_C);
    Click(1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1), "x=\"t\" y=\"2\"");
}

TEST_F(TableClipboard, NamesThatTheTableLacksBecomeAttributes) {
    Open(kTwo);
    Clip(QStringLiteral("<q y=\"9\" n=\"8\">u</q>"));
    Click(2, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(Xml(), "<r><a x=\"1\" y=\"2\">t</a><a x=\"03\" y=\"9\" n=\"8\">u</a></r>");
}

TEST_F(TableClipboard, NamesWithACommonEndingStayApart) {
    Open("<r><a ax='3' y='4'/><a/></r>");
    Clip(QStringLiteral("<?xml version=\"1.0\"?>\r\n<a ax=\"5\" x=\"9\"/>"));
    Click(1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1), "ax=\"5\" y=\"4\" x=\"9\"");
    Open("<r><a surname='S1' name='N1'/><a surname='S2' name='N2'/><a surname='S3'/><a/></r>",
         QStringLiteral("people.xml"));
    Drag(1, 2, 2, 3);
    Control(Qt::Key_C);
    for (const int row : {2, 3}) {
        Click(row, 2);
        Control(Qt::Key_V);
    }
    EXPECT_EQ(TagAt(2), "surname=\"S1\" name=\"N1\"");
    EXPECT_EQ(TagAt(3), "surname=\"S1\" name=\"N1\"");
    EXPECT_EQ(TagAt(4), " surname=\"S2\" name=\"N2\"");
}

TEST_F(TableClipboard, LinesOfAnotherProgramFillCellsFromTheCurrentOneOn) {
    Open("<r><a x='1' y='2'/><a x='3' y='4'/><a x='5' y='6'/></r>");
    Clip(QStringLiteral("p\t\"two\nlines\"\r\nq & q\ta\"b\r\n"));
    Click(2, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(Xml(), "<r><a x=\"1\" y=\"2\"></a><a x=\"p\" y=\"two&#10;lines\"></a>"
                     "<a x=\"q &amp; q\" y=\"a&quot;b\"></a></r>");
    Clip(QStringLiteral("7\r\n"));
    Drag(1, 2, 2, 3);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1) + TagAt(2), "x=\"7\" y=\"7\"x=\"7\" y=\"7\"") << "one value into every cell";
    Clip(QStringLiteral("<5\t>6\r\n1\t2\r\n"));
    Click(1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1) + TagAt(2), "x=\"&lt;5\" y=\">6\"x=\"1\" y=\"2\"");
}

TEST_F(TableClipboard, WhatDoesntFitIsRefusedWhole) {
    Open(kTwo);
    const std::string before = Xml();
    const std::pair<const char*, std::pair<int, int>> cases[] = {
        {"1\t2\n3\t4\n5\t6", {1, 2}}, {"1\t2\t3\t4", {1, 2}}, {"1\t2", {1, 4}},
        {"good\tbad\x01", {1, 2}},    {"1", {3, 2}},          {"<b/>", {3, 1}}};
    for (const auto& [text, cell] : cases) {
        t.prompts.Answer(services::Answer::Ok);
        Clip(QString::fromUtf8(text));
        Click(cell.first, cell.second);
        Control(Qt::Key_V);
        EXPECT_EQ(Xml(), before) << text;
    }
    EXPECT_EQ(t.prompts.boxes.size(), std::size(cases));
    Clip(QStringLiteral("<a x=\"1\" y=\"2\"><a x="));
    Click(1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1), "x=\"&lt;a x=&quot;1&quot; y=&quot;2&quot;>&lt;a x=\" y=\"2\"") << "one value";
}

TEST_F(TableClipboard, WholeRowsTakeNodesAsRows) {
    Open(kTwo);
    Drag(1, 1, 1, 4);
    Clip(QStringLiteral("<a x=\"5\"/><b/>"));
    Control(Qt::Key_V);
    EXPECT_EQ(Cells(0), "<a>|x|y|Node Text\n[1]-|1|2|t\n[2]-|3|4|\n[3]-|5||\n(Calc)|||");
    EXPECT_EQ(Grids(), 2);
    Drag(1, 1, 1, 4);
    Clip(QStringLiteral("8\t9"));
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(1), "x=\"8\" y=\"9\"");
    Drag(2, 1, 2, 4);
    Clip(QStringLiteral("word"));
    Control(Qt::Key_V);
    EXPECT_EQ(Grid().TextMatrix(2, 4), QStringLiteral("word")) << "a text of the row, its cells stay";
    EXPECT_EQ(TagAt(2), "x=\"03\" y=\"4\"");
}

TEST_F(TableClipboard, AHundredThousandCellsAreOneStepAndOneFill) {
    QByteArray rows;
    for (int i = 0; i < 2000; ++i)
        rows += "<a p='1' q='2' s='3' u='4' v='5'/>";
    Open("<r>" + rows + "</r>");
    const std::string before = Xml();
    const int texts = t.app().work.texts, fills = t.app().work.tableFills;
    QString lines;
    for (int i = 0; i < 2000; ++i)
        lines += QStringLiteral("a%1\tb\tc\td\te\n").arg(i);
    Clip(lines);
    Click(1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(TagAt(2000), "p=\"a1999\" q=\"b\" s=\"c\" u=\"d\" v=\"e\"");
    EXPECT_EQ(t.app().work.texts, texts + 1);
    EXPECT_EQ(t.app().work.tableFills, fills);
    Undo();
    EXPECT_EQ(Xml(), before);
}

// --- deleting
// ------------------------------------------------------------------------------------------------

TEST_F(TableClipboard, CellsAreEmptiedColumnsTakenOutRowsRemoved) {
    Open("<r><a x='1' y='2'>t</a><a x='03'/><a y='4'/></r>");
    Drag(1, 2, 3, 2);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<r><a x=\"\" y=\"2\">t</a><a x=\"\"></a><a y=\"4\"></a></r>");
    Click(1, 4);
    Key(Qt::Key_Delete);
    EXPECT_FALSE(Element().Child().Child());
    Undo();
    Undo();
    Drag(0, 2, 4, 2); // the header selects down to the last row
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<r><a  y=\"2\">t</a><a></a><a y=\"4\"></a></r>");
    Drag(2, 1, 3, 3);
    Control(Qt::Key_X);
    EXPECT_EQ(Cells(), "<a>|y|Node Text\n[1]-|2|t\n(Calc)||");
    EXPECT_EQ(Clipped(), "\t<a></a>\r\n\t<a y=\"4\"></a>");
    Undo();
    EXPECT_EQ(Grid().Rows(), 5);
}

TEST_F(TableClipboard, AllIsAllCellsOfData) {
    Open(kTwo);
    Click(1, 2);
    Menu("mnuSelectAll");
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{1, 2, 2, 4}));
    Open("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='a'/><xs:element name='b'/>"
         "</xs:schema>",
         QStringLiteral("s.xsd"));
    Click(1, 2);
    Control(Qt::Key_A);
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{1, 2, 2, 3}));
    Key(Qt::Key_Delete);
    EXPECT_EQ(TagAt(1) + TagAt(2), "name=\"\"name=\"\"");
}

} // namespace
