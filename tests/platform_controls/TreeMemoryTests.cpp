// SPDX-License-Identifier: GPL-3.0-or-later
// A tree whose storage is tidied up while memory is short.
#include "platform/controls/TreeView.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {
long allocationsLeft = -1; // -1: memory never runs out
}

// Every allocation of this test program passes here; one of them can be made to fail.
void* operator new(std::size_t size) {
    if (allocationsLeft == 0)
        throw std::bad_alloc();
    if (allocationsLeft > 0)
        --allocationsLeft;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

using namespace controls;

// Texts that were replaced are thrown away now and then, which needs room for those that are in use.
TEST(TreeMemory, RunningOutOfItWhileOldTextsAreThrownAwayMixesUpNoTexts) {
    constexpr int kNodes = 50, kMost = 12;
    const QString large(8 << 20, u'x');
    for (long left = 0; left < kMost; ++left) {
        TreeView tree;
        TreeNode root = tree.Nodes.Add({}, 0, QStringLiteral("/a.xml"), QStringLiteral("/a.xml"));
        for (int i = 0; i < kNodes; ++i)
            tree.Nodes.Add(root, tvwChild, QStringLiteral("<1>%1").arg(i), QStringLiteral("name%1").arg(i))
                .SetTag(QStringLiteral("id=\"%1\"").arg(i));
        for (int i = 0; i < 10; ++i) {
            allocationsLeft = left;
            try {
                root.SetTag(large);
            } catch (const std::bad_alloc&) { // there is no room for the text itself: that is told
            }
            allocationsLeft = -1;
        }
        for (int i = 0; i < kNodes; ++i) {
            const TreeNode node = tree.Nodes(QStringLiteral("<1>%1").arg(i));
            ASSERT_EQ(node.Text(), QStringLiteral("name%1").arg(i)) << left;
            ASSERT_EQ(node.Tag(), QStringLiteral("id=\"%1\"").arg(i)) << left;
        }
    }
}

} // namespace
