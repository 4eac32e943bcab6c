// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"

namespace controls {

/// Notes what is done to a tree's nodes as long as it lives, so that it can be taken back: nodes that were
/// added or removed, keys, texts and tags; and the selection. Records may be nested; each takes back what
/// came after it. What a whole new content did (Clear, TreeRebuild) can't be taken back, nor what came before
/// it.
class TreeRecord {
public:
    explicit TreeRecord(TreeView& tree);
    ~TreeRecord();
    TreeRecord(const TreeRecord&) = delete;
    TreeRecord& operator=(const TreeRecord&) = delete;

    /// All is as it was; handles on nodes that were removed are good again. Announced as one reset. False
    /// where a whole new content is in the way.
    bool takeBack();

private:
    TreeView& tree_;
    std::size_t mark_;
    std::uint64_t content_, revision_;
    TreeNode selected_;
};

/// A whole new content in place of a tree's: the tree is empty when this is made, and gets its old content
/// back unless the new one is kept. One update of the tree.
class TreeRebuild {
public:
    explicit TreeRebuild(TreeView& tree);
    ~TreeRebuild();
    TreeRebuild(const TreeRebuild&) = delete;
    TreeRebuild& operator=(const TreeRebuild&) = delete;

    void keep() { kept_ = true; }

private:
    TreeView& tree_;
    std::unique_ptr<TreeView::Storage> old_;
    bool kept_ = false;
};

} // namespace controls
