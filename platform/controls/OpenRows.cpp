// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/OpenRows.h"
#include "platform/controls/TreeStorage.h"

namespace controls {

TreeNode OpenRows::at(int row) const {
    if (row < 0 || row >= count())
        return {};
    return tree_.storage_->handle(rows_.at(static_cast<std::size_t>(row)));
}

int OpenRows::rowOf(const TreeNode& node) const {
    const std::size_t place = node.IsNothing() ? SlotSequence::kNowhere : rows_.placeOf(node.slot_);
    return place != SlotSequence::kNowhere ? static_cast<int>(place) : -1;
}

void OpenRows::fill() {
    clear();
    rows_.insert(0, shownBelow(0));
}

void OpenRows::inserted(const TreeNode& node) {
    const Slot parent = tree_.storage_->nodes.at(node.slot_).parent;
    const bool shown = parent == 0 || ((tree_.storage_->nodes.at(parent).flags & kExpanded) != 0 &&
                                       rows_.placeOf(parent) != SlotSequence::kNowhere);
    const std::size_t place = shown ? behind(node.slot_) : SlotSequence::kNowhere;
    if (place == SlotSequence::kNowhere)
        return;
    std::vector<Slot> slots = shownBelow(node.slot_);
    slots.insert(slots.begin(), node.slot_);
    rows_.insert(place, slots);
}

void OpenRows::aboutToRemove(const TreeNode& node) {
    eraseFrom(rows_.placeOf(node.slot_), node.slot_);
}

void OpenRows::expandedChanged(const TreeNode& node) {
    const std::size_t place = rows_.placeOf(node.slot_);
    if (place == SlotSequence::kNowhere)
        return;
    eraseFrom(place + 1, node.slot_);
    if (node.Expanded())
        rows_.insert(place + 1, shownBelow(node.slot_));
}

void OpenRows::eraseFrom(std::size_t place, Slot slot) {
    if (place != SlotSequence::kNowhere)
        rows_.erase(place, behind(slot) - place);
}

// The place behind a node and all rows below it, whether the node has a row or not. It doesn't ask what is
// open: of two nodes that open one after the other, the first may be told of last.
std::size_t OpenRows::behind(Slot slot) const {
    for (; slot != 0; slot = tree_.storage_->nodes.at(slot).parent) {
        if (const Slot next = tree_.storage_->nodes.at(slot).next; next != 0)
            return rows_.placeOf(next);
    }
    return rows_.size();
}

// Along the links: a tree may be deeper than the stack.
std::vector<OpenRows::Slot> OpenRows::shownBelow(Slot top) const {
    const NodeStore& nodes = tree_.storage_->nodes;
    std::vector<Slot> shown;
    if (top != 0 && (nodes.at(top).flags & kExpanded) == 0)
        return shown;
    for (Slot slot = nodes.at(top).firstChild; slot != 0;) {
        shown.push_back(slot);
        const TreeNodeData& node = nodes.at(slot);
        if ((node.flags & kExpanded) != 0 && node.firstChild != 0) {
            slot = node.firstChild;
            continue;
        }
        while (slot != top && nodes.at(slot).next == 0)
            slot = nodes.at(slot).parent;
        slot = slot != top ? nodes.at(slot).next : 0;
    }
    return shown;
}

} // namespace controls
