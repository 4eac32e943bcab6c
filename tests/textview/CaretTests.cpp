// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/textview/TextDesk.h"

namespace {

using test::TextDesk;

TEST(Caret, ShowsLineAndColumnFromOne) {
    TextDesk desk;
    const auto panel = [&] { return desk.app.frame().StatusBar1().Panel(2); };
    desk.CaretBehind(QStringLiteral("<b>"));
    EXPECT_EQ(panel(), QStringLiteral("Ln 2 , Col 5"));
    desk.Press(Qt::Key_Right);
    EXPECT_EQ(panel(), QStringLiteral("Ln 2 , Col 6"));
    desk.Type(QStringLiteral("x"));
    EXPECT_EQ(panel(), QStringLiteral("Ln 2 , Col 7"));
    desk.Type(QStringLiteral("\r"));
    EXPECT_EQ(panel(), QStringLiteral("Ln 3 , Col 1"));
    desk.Select(0);
    EXPECT_EQ(panel(), QStringLiteral("Ln 1 , Col 1"));
    // What is dragged over the text takes the caret along.
    desk.pane().charFromPos = [](double x, double) { return static_cast<qsizetype>(x / 15); };
    desk.pane().DragOver(45, 30);
    EXPECT_EQ(panel(), QStringLiteral("Ln 1 , Col 4"));
}

TEST(Caret, ArrowsOverATagsBorderSelectTheNodeAndClicksDo) {
    TextDesk desk("<a>\n\t<b>one</b>\n\t<c>two</c>\n</a>");
    const auto node = [&] { return desk.window().tvXML.SelectedItem().Text(); };
    desk.CaretBehind(QStringLiteral("<b>"));
    EXPECT_EQ(node(), QStringLiteral("b"));
    EXPECT_EQ(desk.window().txtXPath.Text(), QStringLiteral("/a[1]/b[1]"));
    desk.Select(desk.Text().indexOf(QStringLiteral("<c>")));
    EXPECT_EQ(node(), QStringLiteral("b")) << "in front of the tag";
    desk.Press(Qt::Key_Right);
    EXPECT_EQ(node(), QStringLiteral("c"));
    desk.window().tvXML.SetSelectedItem(desk.window().tvXML.Nodes(1).Child());
    desk.Press(Qt::Key_Right);
    EXPECT_EQ(node(), QStringLiteral("a")) << "inside the tag the tree stays";
    desk.Press(Qt::Key_Right);
    EXPECT_EQ(node(), QStringLiteral("c"));
    desk.Type(QStringLiteral("x"));
    desk.Undo();
    EXPECT_EQ(node(), QStringLiteral("c")) << "undo keeps the node at the caret";
}

} // namespace
