// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"

namespace controls {

/// Copies a document into a tree, node by node behind the last sibling, at the speed of memory: what a handle
/// checks on each use is checked here once, when the filler is made. Nodes are named by their slots, which
/// are good as long as the filler lives. Only within an update; nothing else may change the tree meanwhile.
class TreeFiller {
public:
    using Slot = std::uint32_t;

    /// Throws Fault 5 outside an update, Fault 91 for a removed parent.
    TreeFiller(TreeView& tree, TreeNode parent);
    Slot top() const { return top_; } ///< the parent it was made for; 0: top level

    /// Adds a last child with the key "<kind>serial" and a text by pool number. Pictures are places of the
    /// image list, 0 for none. Throws Fault 35602 for a key that exists, 35601 for a picture that isn't in
    /// the list.
    Slot append(Slot parent, std::uint8_t kind, std::uint32_t serial, text::StringPool::Ref text, int image,
                int selectedImage);
    void setTag(Slot slot, text::CompactView tag); ///< of a node without one
    /// The tag as text, cut to `length` characters with "..." behind when it is longer.
    void setTextFromTag(Slot slot, std::uint32_t length);
    Slot parentOf(Slot slot) const;

private:
    TreeView& tree_;
    Slot top_;
    int pictures_;
    text::CompactBuilder shortened_;
};

} // namespace controls
