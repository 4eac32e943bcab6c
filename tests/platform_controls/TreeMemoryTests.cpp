// SPDX-License-Identifier: GPL-3.0-or-later
// A tree whose storage is tidied up while memory is short.
#include "platform/controls/TreeView.h"
#include "tests/support/ScarceMemory.h"
#include <gtest/gtest.h>

namespace {

using namespace controls;
using test::allocationsLeft;

// Texts that were replaced are thrown away now and then, which needs room for those that are in use.
TEST(TreeMemory, RunningOutOfItWhileOldTextsAreThrownAwayMixesUpNoTexts) {
    constexpr int kNodes = 3, kMost = 12;
    const auto large = [](int i) { return QString(8 << 20, QChar(u'a' + i)); };
    for (long left = 0; left < kMost; ++left) {
        TreeView tree;
        TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("/a.xml"), QStringLiteral("/a.xml"));
        for (int i = 0; i < kNodes; ++i)
            tree.Nodes.Add(root, tvwChild, QStringLiteral("<1>%1").arg(i), QStringLiteral("name%1").arg(i))
                .SetTag(large(i));
        for (int i = 0; i < 10; ++i) {
            const QString replaced = large(9 + i % 2);
            allocationsLeft = left;
            try {
                root.SetTag(replaced);
            } catch (const std::bad_alloc&) { // there is no room for the text itself: that is told
            }
            allocationsLeft = -1;
        }
        EXPECT_EQ(root.Text(), QStringLiteral("/a.xml")) << left;
        for (int i = 0; i < kNodes; ++i) {
            const TreeNode node = tree.Nodes(QStringLiteral("<1>%1").arg(i));
            EXPECT_EQ(node.Text(), QStringLiteral("name%1").arg(i)) << left;
            EXPECT_TRUE(node.Tag() == large(i)) << left;
        }
    }
}

} // namespace
