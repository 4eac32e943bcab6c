// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeCursor.h"
#include "platform/controls/TreeRecord.h"
#include <gtest/gtest.h>
#include <random>

using controls::TreeNode;
using controls::TreeRecord;
using controls::TreeView;

namespace {

// All that a tree says of its nodes, in order.
QString Dump(const TreeView& tree) {
    QString dump;
    const TreeNode top = tree.Nodes.Count() > 0 ? tree.Nodes(1) : TreeNode();
    int depth = 0;
    for (TreeNode node = top; node;) {
        dump += QString(depth, u' ') + node.Key() + u'|' + node.Text() + u'|' + node.Tag() + u'|' +
                QString::number(node.Row()) + u'\n';
        EXPECT_EQ(tree.Nodes.Find(node.Key()), node);
        if (node.Child()) {
            node = node.Child();
            ++depth;
            continue;
        }
        while (node && !node.Next()) {
            node = node.Parent();
            --depth;
        }
        node = node ? node.Next() : node;
    }
    const TreeNode selected = tree.SelectedItem();
    return dump + QString::number(tree.Nodes.Count()) + (selected ? selected.Key() : QString());
}

class Walk {
public:
    explicit Walk(unsigned seed) : random_(seed) {
        tree.Nodes.Add({}, 0, QStringLiteral("c:\\x.xml"), QStringLiteral("x"));
    }

    void Steps(int count) {
        for (int i = 0; i < count; ++i)
            Step();
    }
    TreeView tree;

private:
    int Any(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }
    TreeNode AnyNode() {
        TreeNode node = tree.Nodes(1);
        for (int down = Any(6); down > 0 && node.Child(); --down) {
            node = node.Child();
            for (int on = Any(4); on > 0 && node.Next(); --on)
                node = node.Next();
        }
        return node;
    }
    void Step() {
        TreeNode node = AnyNode();
        const bool top = !node.Parent();
        const QString name = QString::number(++serial_);
        switch (Any(7)) {
        case 0:
        case 1:
            tree.Nodes.Add(node, top ? controls::tvwChild : 1 + Any(4), QStringLiteral("<1>") + name, name);
            break;
        case 2:
            if (!top)
                tree.Nodes.Remove(node);
            break;
        case 3:
            node.SetText(name);
            break;
        case 4:
            node.SetTag(name);
            break;
        case 5: // a key of another shape
            node.SetKey(QStringLiteral("odd ") + name);
            break;
        default:
            tree.SetSelectedItem(node);
        }
    }
    std::mt19937 random_;
    int serial_ = 0;
};

} // namespace

TEST(TreeRecord, WhatWasDoneIsTakenBackToTheLetter) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        Walk walk(seed);
        walk.Steps(80);
        const QString before = Dump(walk.tree);
        const std::uint64_t revision = walk.tree.Revision();
        {
            TreeRecord outer(walk.tree);
            walk.Steps(40);
            const QString between = Dump(walk.tree);
            {
                TreeRecord inner(walk.tree);
                walk.Steps(40);
                inner.takeBack();
                EXPECT_EQ(Dump(walk.tree), between) << seed;
                walk.Steps(10);
            }
            walk.Steps(10);
            outer.takeBack();
        }
        EXPECT_EQ(Dump(walk.tree), before) << seed;
        EXPECT_EQ(walk.tree.Revision(), revision) << seed;
        walk.Steps(40); // and the tree goes on
        Dump(walk.tree);
    }
}

TEST(TreeRecord, HandlesOfRemovedNodesAreGoodAgainAndAResetIsAnnounced) {
    TreeView tree;
    TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("x"), QStringLiteral("x"));
    TreeNode a = tree.Nodes.Add(root, controls::tvwChild, QStringLiteral("<1>1"), QStringLiteral("a"));
    TreeNode b = tree.Nodes.Add(a, controls::tvwChild, QStringLiteral("<1>2"), QStringLiteral("b"));
    tree.SetSelectedItem(b);
    int resets = 0;
    tree.reset.connect([&] { ++resets; });
    TreeRecord record(tree);
    tree.Nodes.Remove(a);
    EXPECT_FALSE(b);
    record.takeBack();
    EXPECT_EQ(b.Text(), QStringLiteral("b"));
    EXPECT_EQ(tree.SelectedItem(), b);
    EXPECT_EQ(resets, 1);
    record.takeBack(); // nothing is left to take back
    EXPECT_EQ(resets, 1);
}

TEST(TreeRecord, AContentThatDoesNotCompleteGivesWayToTheOldOne) {
    Walk walk(7);
    walk.Steps(50);
    TreeView& tree = walk.tree;
    const QString before = Dump(tree);
    const TreeNode old = tree.Nodes(1).Child();
    {
        controls::TreeRebuild rebuild(tree);
        EXPECT_EQ(tree.Nodes.Count(), 0);
        EXPECT_FALSE(old);
        tree.Nodes.Add({}, 0, QStringLiteral("y"), QStringLiteral("y"));
    }
    EXPECT_EQ(Dump(tree), before);
    EXPECT_TRUE(old);
    TreeRecord record(tree);
    {
        controls::TreeRebuild rebuild(tree);
        tree.Nodes.Add({}, 0, QStringLiteral("y"), QStringLiteral("y"));
        rebuild.keep();
    }
    EXPECT_FALSE(old);
    record.takeBack(); // what came before a whole new content is gone for good
    EXPECT_EQ(tree.Nodes.Count(), 1);
    EXPECT_EQ(tree.Nodes(1).Text(), QStringLiteral("y"));
}
