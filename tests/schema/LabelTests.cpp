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
    w.tvXML.SetSelectedItem(w.tvXML.Nodes(1).Child());
    EXPECT_FALSE(w.tvXML.StartLabelEdit());
    w.tvXML.SetSelectedItem(w.tvXML.Nodes(1));
    EXPECT_TRUE(w.tvXML.StartLabelEdit());
}

} // namespace
