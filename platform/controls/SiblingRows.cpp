// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/SiblingRows.h"

namespace controls {

namespace {
constexpr std::uint32_t kLongWalk = 1024; // cheaper than numbering siblings that are worth a thought
constexpr std::uint32_t kShortWalk = 32;  // cheaper than having a list of the siblings
} // namespace

void SiblingRows::clear() {
    cursor_ = {};
    list_.clear();
}

// The row where it is known at once: by the node itself, by its place at an end, or by the cursor beside it.
std::uint32_t SiblingRows::rowWithoutWalk(std::uint32_t slot) const {
    const TreeNodeData& node = nodes_.at(slot);
    const TreeNodeData& parent = nodes_.at(node.parent);
    if ((parent.flags & kRowsDirty) == 0)
        return node.row;
    if (node.previous == 0)
        return 0;
    if (node.next == 0)
        return parent.children - 1;
    if (cursor_.slot == 0 || cursor_.parent != node.parent)
        return kUnknown;
    if (cursor_.slot == slot)
        return cursor_.row;
    if (cursor_.slot == node.previous)
        return cursor_.row + 1;
    return cursor_.slot == node.next ? cursor_.row - 1 : kUnknown;
}

std::uint32_t SiblingRows::rowOf(std::uint32_t slot) const {
    const TreeNodeData& node = nodes_.at(slot);
    const std::uint32_t row = rowWithoutWalk(slot);
    if (row != kUnknown) {
        if ((nodes_.at(node.parent).flags & kRowsDirty) != 0)
            cursor_ = {node.parent, slot, row};
        return row;
    }
    if (cursor_.slot != 0 && cursor_.parent == node.parent && walkTo(slot))
        return cursor_.row;
    number(node.parent);
    return node.row;
}

bool SiblingRows::walkTo(std::uint32_t slot) const {
    std::uint32_t forward = cursor_.slot, backward = cursor_.slot;
    for (std::uint32_t steps = 0; steps <= kLongWalk; ++steps) {
        if (forward == slot || backward == slot) {
            cursor_.row = forward == slot ? cursor_.row + steps : cursor_.row - steps;
            cursor_.slot = slot;
            return true;
        }
        forward = forward != 0 ? nodes_.at(forward).next : 0;
        backward = backward != 0 ? nodes_.at(backward).previous : 0;
    }
    return false;
}

void SiblingRows::number(std::uint32_t parent) const {
    std::uint32_t row = 0;
    for (std::uint32_t child = nodes_.at(parent).firstChild; child != 0; child = nodes_.at(child).next)
        nodes_.at(child).row = row++;
    nodes_.at(parent).flags &= static_cast<std::uint8_t>(~kRowsDirty);
}

std::uint32_t SiblingRows::step(std::uint32_t slot, std::int64_t by) const {
    for (; by > 0; --by)
        slot = nodes_.at(slot).next;
    for (; by < 0; ++by)
        slot = nodes_.at(slot).previous;
    return slot;
}

std::uint32_t SiblingRows::childAt(std::uint32_t parent, std::uint32_t row) const {
    const TreeNodeData& above = nodes_.at(parent);
    if (row >= above.children)
        return 0;
    if (!list_.empty() && listed_ == parent)
        return list_[row];
    const std::int64_t wanted = row, fromLast = wanted - (std::int64_t{above.children} - 1);
    const std::int64_t fromCursor = wanted - cursor_.row;
    std::uint32_t slot = 0;
    if (wanted <= kShortWalk) {
        slot = step(above.firstChild, wanted);
    } else if (-fromLast <= kShortWalk) {
        slot = step(above.lastChild, fromLast);
    } else if (cursor_.slot != 0 && cursor_.parent == parent && std::abs(fromCursor) <= kShortWalk) {
        slot = step(cursor_.slot, fromCursor);
    } else {
        list_.clear();
        list_.reserve(above.children);
        for (std::uint32_t child = above.firstChild; child != 0; child = nodes_.at(child).next)
            list_.push_back(child);
        listed_ = parent;
        return list_[row];
    }
    cursor_ = {parent, slot, row};
    return slot;
}

// Forgets what was known of the rows of siblings.
void SiblingRows::leave(std::uint32_t parent) const {
    if (cursor_.parent == parent)
        cursor_ = {};
    if (listed_ == parent)
        list_.clear();
}

void SiblingRows::inserted(std::uint32_t slot) {
    TreeNodeData& node = nodes_.at(slot);
    TreeNodeData& parent = nodes_.at(node.parent);
    if (node.next == 0) {
        node.row = parent.children - 1;
        if (!list_.empty() && listed_ == node.parent)
            list_.push_back(slot);
        return;
    }
    // What is known of the neighbours tells the row of the new node, as long as they haven't moved in the
    // notes.
    std::uint32_t row = kUnknown;
    if ((parent.flags & kRowsDirty) == 0)
        row = nodes_.at(node.next).row;
    else if (node.previous == 0)
        row = 0;
    else if (cursor_.slot != 0 && (cursor_.slot == node.next || cursor_.slot == node.previous))
        row = cursor_.slot == node.next ? cursor_.row : cursor_.row + 1;
    leave(node.parent);
    parent.flags |= kRowsDirty;
    if (row != kUnknown)
        cursor_ = {node.parent, slot, row};
}

void SiblingRows::aboutToRemove(std::uint32_t slot) {
    const TreeNodeData& node = nodes_.at(slot);
    if (node.next == 0) {
        if (cursor_.slot == slot)
            cursor_ = node.previous != 0 ? Cursor{node.parent, node.previous, cursor_.row - 1} : Cursor{};
        if (!list_.empty() && listed_ == node.parent)
            list_.pop_back();
        return;
    }
    const std::uint32_t row = rowWithoutWalk(slot);
    leave(node.parent);
    nodes_.at(node.parent).flags |= kRowsDirty;
    if (row != kUnknown)
        cursor_ = {node.parent, node.next, row};
}

} // namespace controls
