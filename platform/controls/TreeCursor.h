// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"

namespace controls {

/// A place in a tree for reading whole documents: what a handle checks on each use is checked here once, when
/// the cursor is made. Good as long as the tree isn't changed. A cursor may stand on nothing; its kind is
/// then 0 and its texts are empty.
class TreeCursor {
public:
    TreeCursor() = default;
    explicit TreeCursor(TreeNode node); ///< throws Fault 91 for a removed node

    explicit operator bool() const { return slot_ != 0; }
    bool operator==(const TreeCursor& other) const { return slot_ == other.slot_; }
    TreeCursor parent() const;
    TreeCursor firstChild() const;
    TreeCursor lastChild() const;
    TreeCursor next() const;
    TreeCursor previous() const;
    /// The number in "<>" of the key; -1 for a key of another shape.
    int kind() const;
    text::CompactView text() const;
    text::CompactView tag() const;
    text::StringPool::Ref textId() const;
    TreeNode node() const;
    /// A number of its own in the tree; no other node gets it before the tree is emptied. 0 for nothing.
    std::uint32_t id() const { return slot_; }

    /// The place behind this one in document order that lies below `top`; nothing at the end.
    TreeCursor nextBelow(TreeCursor top) const;

private:
    TreeCursor(TreeView* tree, std::uint32_t slot) : tree_(tree), slot_(slot) {}
    const TreeNodeData& data() const;
    TreeView* tree_ = nullptr;
    std::uint32_t slot_ = 0;
};

} // namespace controls
