// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeView.h"
#include <gtest/gtest.h>
#include <list>
#include <random>

// Long runs of random edits, each step compared with a tree that is written the plainest way.
namespace {

using namespace controls;

struct Plain {
    QString key, tag;
    Plain* parent = nullptr;
    std::list<std::unique_ptr<Plain>> children;
};

class Pair {
public:
    explicit Pair(unsigned seed) : random_(seed) { tree.ImageList = QStringList{QStringLiteral("element")}; }

    Plain* any() { return order.empty() ? nullptr : order[random_() % order.size()]; }
    unsigned chance(unsigned of) { return static_cast<unsigned>(random_() % of); }

    void add(Plain* relative, int relationship, const QString& key) {
        const TreeNode node =
            tree.Nodes.Add(relative ? tree.Nodes(relative->key) : TreeNode(), relationship, key, key);
        node.Owner()->Nodes(key).SetTag(u'#' + key);
        Plain* const parent = !relative ? &top : relationship == tvwChild ? relative : relative->parent;
        auto place = parent->children.end();
        if (relative && (relationship == tvwNext || relationship == tvwPrevious)) {
            place = find(relative);
            if (relationship == tvwNext)
                ++place;
        }
        auto made = std::make_unique<Plain>();
        *made = {key, u'#' + key, parent, {}};
        order.push_back(made.get());
        parent->children.insert(place, std::move(made));
    }

    void remove(Plain* node) {
        if (chance(2) == 0)
            tree.Nodes.Remove(node->key);
        else
            tree.Nodes.Remove(tree.Nodes(node->key).Index());
        forget(node);
        node->parent->children.erase(find(node));
    }

    void compare() { // the whole of both
        ASSERT_EQ(tree.Nodes.Count(), static_cast<int>(order.size()));
        for (std::size_t i = 0; i < order.size(); ++i) {
            const TreeNode node = tree.Nodes(static_cast<int>(i) + 1);
            ASSERT_EQ(node.Key(), order[i]->key) << "at index " << i + 1;
            ASSERT_EQ(node.Index(), static_cast<int>(i) + 1);
            ASSERT_EQ(node.Tag(), order[i]->tag);
            ASSERT_EQ(tree.NodeOf(node.Data()), node);
            compareFamily(node, *order[i]);
        }
        compareFamily(TreeNode(), top);
    }

    TreeView tree;
    Plain top;
    std::vector<Plain*> order;

private:
    std::list<std::unique_ptr<Plain>>::iterator find(Plain* node) {
        auto& family = node->parent->children;
        return std::find_if(family.begin(), family.end(), [&](const auto& one) { return one.get() == node; });
    }
    void forget(Plain* node) {
        for (const auto& child : node->children)
            forget(child.get());
        std::erase(order, node);
    }
    void compareFamily(TreeNode parent, const Plain& plain) {
        const int count = static_cast<int>(plain.children.size());
        ASSERT_EQ(parent ? parent.Children() : tree.TopCount(), count);
        TreeNode previous;
        int row = 0;
        for (const auto& child : plain.children) {
            const TreeNode node = tree.ChildAt(parent, row);
            ASSERT_EQ(node.Key(), child->key);
            ASSERT_EQ(node.Row(), row++);
            ASSERT_EQ(node.Parent(), parent);
            ASSERT_EQ(node.Previous(), previous);
            ASSERT_EQ(previous ? previous.Next() : node.FirstSibling(), node);
            previous = node;
        }
        ASSERT_EQ(parent ? parent.LastChild() : previous, previous);
        ASSERT_TRUE(tree.ChildAt(parent, count).IsNothing());
    }
    std::mt19937 random_;
};

QString RandomKey(Pair& pair, int number) {
    switch (pair.chance(8)) {
    case 0:
        return QStringLiteral("/home/u/%1.xml").arg(number);
    case 1: // two kinds share a serial
        return QStringLiteral("<3>%1").arg(number / 2);
    case 2:
        return QStringLiteral("<8>%1").arg(number / 2);
    default:
        return QStringLiteral("<1>%1").arg(number);
    }
}

TEST(TreeAgainstList, RandomAddsAndRemovesKeepOrderRowsAndKeys) {
    for (const bool listened : {false, true}) {
        Pair pair(listened ? 11 : 7);
        if (listened) // rows are then asked for at every step, else only when all is compared
            pair.tree.aboutToRemove.connect([](TreeNode, int, int) {});
        for (int step = 1; step <= 4000; ++step) {
            Plain* const relative = pair.any();
            const unsigned act = pair.chance(100);
            if (relative && (act < 30 || pair.order.size() > 300)) {
                pair.remove(relative);
            } else if (const QString key = RandomKey(pair, step); !pair.tree.Nodes.Find(key)) {
                pair.add(relative, relative ? 1 + static_cast<int>(pair.chance(4)) : 0, key);
            }
            if (step % 50 == 0)
                pair.compare();
            if (::testing::Test::HasFatalFailure())
                return;
        }
    }
}

// The notes that spare a large family from being numbered at each change must not outlive their truth. Some
// changes are announced, which asks for rows, and some are made in silence.
TEST(TreeAgainstList, RowsInALargeFamilyAreRightAfterEachChange) {
    Pair pair(3);
    pair.add(nullptr, 0, QStringLiteral("/x"));
    Plain* const root = pair.order[0];
    for (int i = 0; i < 3000; ++i)
        pair.add(root, tvwChild, QStringLiteral("<1>%1").arg(i));
    int announced = -1;
    pair.tree.aboutToInsert.connect([&](TreeNode, int first, int) { announced = first; });
    pair.tree.aboutToRemove.connect([&](TreeNode, int first, int) { announced = first; });
    auto at = [&](int row) { return std::next(root->children.begin(), row)->get(); };
    int near = 1500;
    for (int step = 0; step < 3000; ++step) {
        const int count = static_cast<int>(root->children.size());
        if (pair.chance(10) == 0)
            near =
                static_cast<int>(pair.chance(static_cast<unsigned>(count))); // else keep to the neighbourhood
        near = std::clamp(near + static_cast<int>(pair.chance(5)) - 2, 0, count - 1);
        const unsigned act = pair.chance(5);
        if (act == 0) {
            ASSERT_EQ(pair.tree.ChildAt(pair.tree.Nodes(1), near).Key(), at(near)->key);
        } else if (act == 1) {
            ASSERT_EQ(pair.tree.Nodes(at(near)->key).Row(), near);
        } else {
            std::optional<TreeUpdate> silence;
            if (pair.chance(3) == 0)
                silence.emplace(pair.tree);
            const bool before = pair.chance(2) == 0;
            if (act == 2)
                pair.remove(at(near));
            else
                pair.add(at(near), before ? tvwPrevious : tvwNext, QStringLiteral("<3>%1").arg(step));
            if (!silence) {
                ASSERT_EQ(announced, act == 2 || before ? near : near + 1);
            }
        }
    }
    pair.compare();
}

} // namespace
