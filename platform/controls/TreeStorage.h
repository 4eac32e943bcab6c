// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/KeyTable.h"
#include "platform/controls/SiblingRows.h"
#include "platform/controls/TreeJournal.h"
#include "platform/controls/TreeView.h"

namespace controls {

/// All that a tree holds. Its routines change the nodes and announce it.
struct TreeView::Storage {
    using Ref = text::StringPool::Ref;

    explicit Storage(TreeView& owner) : tree(owner) {}

    /// The storage that a handle belongs to; throws Fault 91 for nothing and for a removed node.
    static Storage& of(const TreeNode& node);
    static bool isLiving(const TreeNode& node);
    /// Slot of a handle of this tree, 0 for nothing; throws Fault 91 for a removed node and 5 for one of
    /// another tree.
    std::uint32_t slotOrNone(const TreeNode& node) const;
    TreeNode handle(std::uint32_t slot) const;
    std::uint32_t slotOf(const TreeNodeData* data) const; ///< 0 for null and for a removed node
    /// The order of adding, from 1 to `count`: that of the slots. The first node is found at once, others by
    /// counting.
    std::uint32_t slotAt(std::uint32_t index) const;
    std::uint32_t indexOf(std::uint32_t slot) const;
    bool isRemoved(std::uint32_t slot) const { return (nodes.at(slot).flags & kRemoved) != 0; }
    bool quiet() const { return updates > 0; }

    /// Adds a node without key, text and pictures; `before` 0: behind the last child. No announcement.
    std::uint32_t link(std::uint32_t parent, std::uint32_t before);
    void remove(std::uint32_t top);
    void wipe(); ///< no node is left and all memory is given back; no announcement

    /// The node is no longer as it was.
    void note(std::uint32_t slot);
    void noteEverything() { changes = {}; }
    /// The node is about to be written to.
    void aboutToWrite(std::uint32_t slot);
    void noteKey(std::uint32_t slot); ///< it is about to get another one

    void setText(std::uint32_t slot, Ref ref, bool own);
    void setTag(std::uint32_t slot, Ref ref);
    void select(std::uint32_t slot);
    std::size_t bytes() const;

    TreeView& tree;
    NodeStore nodes;
    std::uint32_t count = 0; ///< of living nodes
    KeyTable keys{nodes};
    SiblingRows rows{nodes};
    text::StringPool pool;
    QHash<QString, Ref> names; ///< interned
    std::uint32_t selected = 0;
    std::uint32_t generation = 1; ///< of the nodes; handles made before wipe() carry an earlier one
    int updates = 0;
    TreeChanges changes; ///< since they were taken last

    void compactIfWasteful();
    /// Undoes what an entry tells; all that came after it is undone already.
    void takeBack(const Journal::Entry& entry);

private:
    void unlink(std::uint32_t slot);
    void dispose(std::uint32_t top);
    void relink(std::uint32_t top);
    void revive(const Journal::Entry& removed);
    /// Every node of a branch, parents first.
    template <typename Visit> void walk(std::uint32_t top, Visit visit);
    void noteRemoval(std::uint32_t top);
    void removeAll(bool hadSelection);
    void countWaste(Ref ref);
    void compact();

    mutable std::uint32_t oldest_ = 1; ///< every slot below it is a removed node's
    std::size_t wasted_ = 0;           ///< bytes in the pool that no node uses any more, about
};

} // namespace controls
