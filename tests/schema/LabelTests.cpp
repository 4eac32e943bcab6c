// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

struct SchemaTree : testing::Test {
    test::TestApp t;
    DocumentWindow& w =
        t.OpenText(QStringLiteral("a.xsd"), "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"/>");
};

// Its labels can't be edited, so the node has its name at once.
TEST_F(SchemaTree, ANewElementReachesTextAndListWithoutANameOfTheUser) {
    t.ClickNode(w.tvXML.Nodes(1).Child());
    t.frame().RunMenuCommand(QStringLiteral("mnuNewCNodeP"));
    EXPECT_TRUE(w.rtxtXML.Text().contains(QStringLiteral("<Unnamed>")));
    EXPECT_EQ(w.txtXPath.Text(), QStringLiteral("/xs:schema[1]/Unnamed[1]"));
}

TEST_F(SchemaTree, OnlyTheDocumentsNameIsALabelToEdit) {
    const auto offered = [this] { return t.frame().Menu(QStringLiteral("mnuEditName")).Usable(); };
    t.ClickNode(w.tvXML.Nodes(1).Child());
    EXPECT_FALSE(w.tvXML.StartLabelEdit());
    EXPECT_FALSE(offered()) << "the entry would do nothing";
    w.ListView1.GotFocus();
    w.ListView1.MouseDown();
    w.ListView1.SetSelectedItem(1);
    w.ListView1.Click();
    EXPECT_TRUE(offered()) << "names change in the list";
    t.ClickNode(w.tvXML.Nodes(1));
    EXPECT_TRUE(offered());
    EXPECT_TRUE(w.tvXML.StartLabelEdit());
}

} // namespace
