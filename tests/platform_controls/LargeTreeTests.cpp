// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeFiller.h"
#include <gtest/gtest.h>

// Sizes at which a recursion overflows the stack, and at which work that grows with the square never ends.
namespace {

using namespace controls;

TEST(LargeTree, AChainDeeperThanAnyStackIsShownAndRemoved) {
    constexpr std::uint32_t kDepth = 300'000;
    TreeView tree;
    const TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("/deep.xml"), QString());
    tree.Nodes.Add({}, 0, QStringLiteral("/other.xml"), QString());
    {
        const TreeUpdate update(tree);
        TreeFiller filler(tree, root);
        TreeFiller::Slot slot = filler.top();
        for (std::uint32_t i = 1; i <= kDepth; ++i)
            slot = filler.append(slot, 1, i, 0, 0, 0);
    }
    TreeNode last = tree.Nodes(QStringLiteral("<1>%1").arg(kDepth));
    last.EnsureVisible();
    EXPECT_TRUE(tree.Nodes(QStringLiteral("<1>1")).Expanded());
    tree.SetSelectedItem(last);
    tree.Nodes.Remove(root);
    EXPECT_EQ(tree.Nodes.Count(), 1);
    EXPECT_EQ(tree.SelectedItem().Key(), QStringLiteral("/other.xml"));
}

TEST(LargeTree, AHugeFamilyIsEditedInTheMiddleAndClearedFromEitherEnd) {
    constexpr int kChildren = 400'000;
    TreeView tree;
    const TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("/wide.xml"), QString());
    int lastRow = -1;
    tree.aboutToRemove.connect([&](TreeNode, int first, int) { lastRow = first; });
    for (int i = 0; i < kChildren; ++i)
        tree.Nodes.Add(root, tvwChild, QStringLiteral("<1>%1").arg(i), QString());
    const TreeNode middle = tree.Nodes(QStringLiteral("<1>200000"));
    for (int i = 0; i < 20'000; ++i)
        tree.Nodes.Add(middle, tvwNext, QStringLiteral("<3>%1").arg(i), QString());
    EXPECT_EQ(tree.Nodes(QStringLiteral("<1>200001")).Row(), 220'001);
    for (int i = 0; i < 20'000; ++i)
        tree.Nodes.Remove(middle.Next());
    EXPECT_EQ(lastRow, 200'001);
    for (int i = 0; i < 100'000; ++i)
        tree.Nodes.Remove(root.Child());
    for (int i = 0; i < 100'000; ++i)
        tree.Nodes.Remove(root.LastChild());
    EXPECT_EQ(lastRow, kChildren - 200'000);
    EXPECT_EQ(middle.Row(), 100'000);
    EXPECT_EQ(middle.Index(), 100'002) << "removed nodes close up in the collection";
    EXPECT_EQ(tree.Nodes(100'002), middle);
    EXPECT_EQ(tree.ChildAt(root, 100'000), middle);
    const TreeNode added = tree.Nodes.Add(root, tvwChild, QStringLiteral("<8>1"), QString());
    EXPECT_EQ(tree.ChildAt(root, root.Children() - 1), added);
}

TEST(LargeTree, StorageOfReplacedTextsIsWonBackAndLivingTextsStay) {
    TreeView tree;
    const TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("/x.xml"), QStringLiteral("/x.xml"));
    {
        const TreeUpdate update(tree);
        TreeFiller filler(tree, root);
        const auto name = tree.InternText(QStringLiteral("книга"));
        filler.append(filler.top(), 1, 1, name, 0, 0);
        filler.append(filler.top(), 1, 2, name, 0, 0);
        const TreeFiller::Slot words = filler.append(filler.top(), 3, 3, 0, 0, 0);
        text::CompactBuilder tag;
        tag.append(u"a &amp; b");
        filler.setTag(words, tag.view());
        filler.setTextFromTag(words, 64);
    }
    TreeNode first = tree.Nodes(QStringLiteral("<1>1"));
    const TreeNode second = first.Next(), shared = second.Next();
    for (int i = 0; i < 300; ++i)
        first.SetTag(QString(1'000'000, QChar(u'a' + i % 26)));
    EXPECT_LT(tree.bytes(), 200'000'000u);
    EXPECT_EQ(first.Tag(), QString(1'000'000, QChar(u'a' + 299 % 26)));
    EXPECT_EQ(first.Text(), QStringLiteral("книга"));
    EXPECT_EQ(first.TextId(), second.TextId());
    EXPECT_EQ(shared.Text() + shared.Tag() + root.Text(), QStringLiteral("a &amp; ba &amp; b/x.xml"));
    const TreeUpdate update(tree);
    EXPECT_EQ(tree.InternText(QStringLiteral("книга")), first.TextId());
}

} // namespace
