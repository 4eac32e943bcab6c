// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/SlotSequence.h"
#include "platform/controls/TreeView.h"

namespace controls {

/// The rows that a tree has while it is shown: its top nodes and, below each open node, its children. Tells
/// the row of a node and the node of a row among millions in some hundred steps. What opens, closes, comes or
/// goes costs what it has in rows itself, however many there are. It is told of each change.
class OpenRows {
public:
    /// Empty; the tree must outlive it.
    explicit OpenRows(TreeView& tree) : tree_(tree) {}

    int count() const { return static_cast<int>(rows_.size()); }
    TreeNode at(int row) const;            ///< nothing for a row that isn't there
    int rowOf(const TreeNode& node) const; ///< -1 for nothing and below a closed node

    void clear() { rows_.clear(); } ///< to be told before the tree is replaced
    void fill();                    ///< to be told when it is there
    void inserted(const TreeNode& node);
    void aboutToRemove(const TreeNode& node);
    void expandedChanged(const TreeNode& node);
    std::size_t bytes() const { return rows_.bytes(); }

private:
    using Slot = SlotSequence::Slot;
    std::vector<Slot> shownBelow(Slot top) const;
    std::size_t behind(Slot slot) const;
    void eraseFrom(std::size_t place, Slot slot);

    TreeView& tree_;
    SlotSequence rows_;
};

} // namespace controls
