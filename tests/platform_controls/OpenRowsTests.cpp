// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/OpenRows.h"
#include <gtest/gtest.h>
#include <random>

// The rows of a tree after random changes, compared with a walk along all of its open nodes.
namespace {

using namespace controls;

struct OpenRowsOf : ::testing::Test {
    TreeView tree;
    OpenRows rows{tree};
    TreeNode root;
    int serial = 0;
    std::mt19937 random{5};

    // The root is opened again as soon as it is closed, before the rows are told of either.
    OpenRowsOf() {
        tree.expandedChanged.connect([](TreeNode node) {
            if (!node.Parent() && !node.Expanded())
                node.SetExpanded(true);
        });
        tree.expandedChanged.connect([this](TreeNode node) { rows.expandedChanged(node); });
        tree.aboutToReset.connect([this] { rows.clear(); });
        tree.reset.connect([this] { rows.fill(); });
        tree.inserted.connect(
            [this](TreeNode parent, int row, int) { rows.inserted(tree.ChildAt(parent, row)); });
        tree.aboutToRemove.connect(
            [this](TreeNode parent, int row, int) { rows.aboutToRemove(tree.ChildAt(parent, row)); });
        root = Add({}, 0);
        root.SetExpanded(true);
    }
    TreeNode Add(TreeNode relative, int relationship) {
        return tree.Nodes.Add(relative, relationship, QStringLiteral("<1>%1").arg(++serial), QString());
    }
    unsigned Chance(unsigned of) { return static_cast<unsigned>(random() % of); }
    TreeNode Any() {
        return tree.Nodes(1 + static_cast<int>(Chance(static_cast<unsigned>(tree.Nodes.Count()))));
    }
    /// `count` nodes anywhere; every second one is open.
    void Grow(int count) {
        for (int i = 0; i < count; ++i)
            Add(Chance(3) > 0 ? root.Child() ? root.Child() : root : Any(), tvwChild)
                .SetExpanded(Chance(2) == 0);
    }
    static void Walk(TreeNode node, bool shown, std::vector<TreeNode>& open, std::vector<TreeNode>& hidden) {
        for (; node; node = node.Next()) {
            (shown ? open : hidden).push_back(node);
            Walk(node.Child(), shown && node.Expanded(), open, hidden);
        }
    }
    void Compare() {
        std::vector<TreeNode> open, hidden;
        Walk(root, true, open, hidden);
        ASSERT_EQ(rows.count(), static_cast<int>(open.size()));
        for (int row = 0; row < rows.count(); ++row) {
            ASSERT_EQ(rows.at(row), open[static_cast<std::size_t>(row)]) << "row " << row;
            ASSERT_EQ(rows.rowOf(rows.at(row)), row);
        }
        for (const TreeNode& node : hidden)
            ASSERT_EQ(rows.rowOf(node), -1);
        EXPECT_FALSE(rows.at(rows.count()));
    }
    void ChangeAnything() {
        TreeNode node = Any();
        const unsigned act = Chance(100);
        if (act < 40)
            Add(node, node == root ? tvwChild : 1 + static_cast<int>(Chance(4)));
        else if (act < 70)
            node.SetExpanded(!node.Expanded());
        else if (act < 95 && node != root)
            tree.Nodes.Remove(node);
        else
            root.Child().SetExpanded(!root.Child().Expanded());
    }
};

TEST_F(OpenRowsOf, AreThoseOfAWalkAfterEachOfManyChanges) {
    Grow(4000);
    Compare();
    for (int step = 1; step <= 3000 && !HasFatalFailure(); ++step) {
        if (!root.Child() || step % 900 == 0)
            Grow(3000);
        ChangeAnything();
        if (step % 20 == 0)
            Compare();
    }
    root.SetExpanded(false);
    Compare();
    {
        const TreeUpdate replaced(tree);
        tree.Nodes.Clear();
        EXPECT_EQ(rows.count(), 0) << "handles of the old nodes mean nothing now";
        root = Add({}, 0);
        root.SetExpanded(true);
        Grow(2000);
    }
    Compare();
    while (root.Child())
        tree.Nodes.Remove(root.Child());
    Compare();
}

// A million rows that come and go one by one: with a walk along them for each, this never ends.
TEST_F(OpenRowsOf, AHugeFamilyCostsNoWalkForEachChange) {
    constexpr int kChildren = 300'000;
    for (int i = 0; i < kChildren; ++i)
        Add(root, tvwChild).SetExpanded(true);
    const TreeNode middle = tree.ChildAt(root, kChildren / 2);
    for (int i = 0; i < 50'000; ++i)
        Add(middle, tvwNext).SetExpanded(true);
    for (TreeNode child = middle; child && child.Row() < kChildren / 2 + 10'000; child = child.Next())
        Add(child, tvwChild);
    EXPECT_EQ(rows.rowOf(root.LastChild()), kChildren + 50'000 + 10'000);
    for (int i = 0; i < 50'000; ++i)
        tree.Nodes.Remove(middle.Next());
    EXPECT_EQ(rows.count(), 1 + kChildren + 1);
    EXPECT_LT(rows.bytes(), 10'000'000U);
}

} // namespace
