// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using services::Answer;

struct TextAndTree : testing::Test {
    test::TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"),
                                          "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\n");
};

TEST_F(TextAndTree, AnEditReachesTheTreeOnLeaving) {
    app.EditText(QStringLiteral("<order><item>Kaffee</item></order>"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Child().Tag(), QStringLiteral("Kaffee"));
    EXPECT_FALSE(window.bond.bTextChanged());
    // The text view still shows, so it takes the tree's form of the text.
    EXPECT_EQ(window.rtxtXML.Text().toStdString(), "<order>\r\n\t<item>Kaffee</item>\r\n</order>");
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());
    app.EditText({});
    EXPECT_EQ(window.tvXML.Nodes.Count(), 1);
    EXPECT_TRUE(app.prompts.boxes.empty());
}

TEST_F(TextAndTree, ABadEditKeepsTheTreeAndIsReportedOnce) {
    app.prompts.Answer(Answer::Ok);
    app.EditText(QStringLiteral("<order><item></order>"));
    EXPECT_EQ(window.tvXML.Nodes.Count(), 6);
    EXPECT_EQ(window.rtxtXML.Text(), QStringLiteral("<order><item></order>"));
    window.rtxtXML.LostFocus();
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
}

TEST_F(TextAndTree, AClickOnAnotherTabCountsAsLeaving) {
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.GotFocus();
    window.rtxtXML.UserSelected(0, window.rtxtXML.Text().size());
    window.rtxtXML.Type(QStringLiteral("<order><x/></order>"));
    window.tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Text(), QStringLiteral("x"));
    // A bad text holds the user in the text view, with one box.
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.UserSelected(0, 1);
    app.prompts.Answer(Answer::Ok);
    window.rtxtXML.Type(QStringLiteral("<<"));
    window.tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
    EXPECT_EQ(window.rtxtXML.SelStart(), 1); // the second "<" is the error
}

TEST_F(TextAndTree, AnEditThatWasTakenBackLeavesTheTreeAlone) {
    DocumentWindow& other = app.OpenText(QStringLiteral("c.xml"), "<a><![CDATA[kept]]></a>");
    const QString text = other.rtxtXML.Text();
    app.EditText(text);
    EXPECT_EQ(other.rtxtXML.Text(), text);
    EXPECT_FALSE(other.bond.bTextChanged());
}

TEST_F(TextAndTree, CaretAndTreeFollowEachOther) {
    const TreeNode second = window.tvXML.Nodes(1).Child().LastChild();
    app.ClickNode(second);
    window.tbsXML.Select(QStringLiteral("textview"));
    EXPECT_EQ(window.rtxtXML.SelStart(), window.rtxtXML.Text().lastIndexOf(QStringLiteral("<item>")));
    EXPECT_EQ(window.rtxtXML.SelLength(), 1);
    window.rtxtXML.UserSelected(window.rtxtXML.Text().indexOf(QStringLiteral("Tee")), 0);
    window.rtxtXML.Click();
    EXPECT_EQ(window.tvXML.SelectedItem(), window.tvXML.Nodes(1).Child().Child());
}

} // namespace
