// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

TEST(Toolbar, UpOneLevelStopsAtTheRootAndTheDropDownSetsTheStyle) {
    TestApp t;
    const DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    const TreeNode element = w.tvXML.Nodes(1).Child();
    t.ClickNode(element.Child());
    for (const TreeNode& parent : {element, w.tvXML.Nodes(1)}) {
        t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("uponelevel"));
        EXPECT_EQ(w.tvXML.SelectedItem(), parent);
    }
    t.PressButton(QStringLiteral("tbFileEdit"), QStringLiteral("listview"), QStringLiteral("list"));
    EXPECT_EQ(w.ListView1.View(), controls::lvwList);
    edit::DoTree(t.window());
    EXPECT_FALSE(
        t.frame().ToolbarByName(QStringLiteral("tbListEdit")).Button(QStringLiteral("uponelevel")).Usable());
}

} // namespace
