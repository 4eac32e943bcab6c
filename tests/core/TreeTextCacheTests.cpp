// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/TreeTextCache.h"
#include "platform/text/TextTools.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::TreeNode;
using controls::TreeView;

const QString kUnit = QStringLiteral("\t");

// Changes a tree at random and asks after each change, or after a few, for the text.
class Gardener {
public:
    explicit Gardener(unsigned seed) : random_(seed) {
        root_ = tree.Nodes.Add({}, 0, QStringLiteral("file.xml"), QStringLiteral("file.xml"));
        add(root_, controls::tvwChild, 1);
    }

    void change() {
        const TreeNode node = any();
        switch (random_() % 8) {
        case 0:
            if (node.Parent() && node.Parent() != root_)
                tree.Nodes.Remove(node);
            break;
        case 1:
            TreeNode(node).SetTag(pick(
                {QString(), QStringLiteral("a=\"1\""), QStringLiteral("one\ntwo\r"), QString(300, u'x')}));
            break;
        case 2:
            TreeNode(node).SetText(QStringLiteral("name%1").arg(random_() % 100));
            break;
        default:
            add(node, 2 + static_cast<int>(random_() % 3), pick({1, 1, 1, 3, 7, 8, 4}));
        }
    }

    TreeView tree;
    TreeNode root() const { return root_; }

private:
    template <typename T> T pick(std::initializer_list<T> choices) {
        return *(choices.begin() + random_() % choices.size());
    }
    TreeNode any() {
        TreeNode node;
        while (!node)
            node = tree.Nodes(1 + static_cast<int>(random_() % static_cast<unsigned>(tree.Nodes.Count())));
        return node;
    }
    void add(TreeNode relative, int relationship, int kind) {
        if (relationship != controls::tvwChild && !relative.Parent())
            return;
        const QString key = QStringLiteral("<%1>%2").arg(kind).arg(++number_);
        TreeNode node = tree.Nodes.Add(relative, relationship, key, QStringLiteral("n%1").arg(number_));
        if (kind != 1)
            node.SetTag(QStringLiteral("value %1").arg(number_));
    }

    std::mt19937 random_;
    TreeNode root_;
    int number_ = 0;
};

TEST(TreeTextCache, TheTextOfAChangedTreeIsThatOfOneWrittenWhole) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        Gardener garden(seed);
        m_tvXML::TreeTextCache cache(seed % 2 == 0 ? 40 : 400);
        std::mt19937 random(seed);
        for (int step = 0; step < 700; ++step) {
            for (auto changes = step == 500 ? 3000 : 1 + random() % 3; changes > 0; --changes)
                garden.change();
            const QString whole = text::ToCrLf(m_tvXML::GetTreeNodesXML(garden.root(), kUnit));
            ASSERT_EQ(cache.text(garden.root(), kUnit, {}).toString(), whole) << seed << " " << step;
        }
        garden.tree.BeginUpdate();
        garden.tree.EndUpdate();
        EXPECT_EQ(cache.text(garden.root(), {}, {}).toString(),
                  text::ToCrLf(m_tvXML::GetTreeNodesXML(garden.root(), {})));
    }
}

TEST(TreeTextCache, ANewTreeIsWrittenWhole) {
    Gardener garden(99);
    m_tvXML::TreeTextCache cache(100);
    cache.text(garden.root(), kUnit, {});
    garden.tree.Nodes.Clear();
    const TreeNode root = garden.tree.Nodes.Add({}, 0, QStringLiteral("new"), QStringLiteral("new"));
    EXPECT_EQ(cache.text(root, kUnit, {}).toString(), QString());
    garden.tree.Nodes.Add(root, controls::tvwChild, QStringLiteral("<1>1"), QStringLiteral("a"));
    EXPECT_EQ(cache.text(root, kUnit, {}).toString(), QStringLiteral("<a></a>"));
}

} // namespace
