// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeCursor.h"
#include "platform/controls/TreeStorage.h"

namespace controls {

TreeCursor::TreeCursor(TreeNode node)
    : tree_(node.Owner()), slot_(tree_ ? tree_->storage_->slotOrNone(node) : 0) {}

// Slot 0 is the invisible parent of the top nodes: a cursor on nothing never reads it.
const TreeNodeData& TreeCursor::data() const {
    static constexpr TreeNodeData kNothing{};
    return slot_ != 0 ? tree_->storage_->nodes.at(slot_) : kNothing;
}

TreeCursor TreeCursor::parent() const {
    return {tree_, data().parent};
}
TreeCursor TreeCursor::firstChild() const {
    return {tree_, data().firstChild};
}
TreeCursor TreeCursor::lastChild() const {
    return {tree_, data().lastChild};
}
TreeCursor TreeCursor::next() const {
    return {tree_, data().next};
}
TreeCursor TreeCursor::previous() const {
    return {tree_, data().previous};
}

int TreeCursor::kind() const {
    const std::uint8_t kind = data().kind;
    return kind == kOddKey ? -1 : kind;
}

text::CompactView TreeCursor::text() const {
    return slot_ != 0 ? tree_->storage_->pool.view(data().text) : text::CompactView();
}
text::CompactView TreeCursor::tag() const {
    return slot_ != 0 ? tree_->storage_->pool.view(data().tag) : text::CompactView();
}
text::StringPool::Ref TreeCursor::textId() const {
    return data().text;
}
TreeNode TreeCursor::node() const {
    return slot_ != 0 ? tree_->storage_->handle(slot_) : TreeNode();
}

TreeCursor TreeCursor::nextBelow(TreeCursor top) const {
    const NodeStore& nodes = tree_->storage_->nodes;
    if (const std::uint32_t child = data().firstChild; child != 0)
        return {tree_, child};
    for (std::uint32_t slot = slot_; slot != top.slot_; slot = nodes.at(slot).parent) {
        if (const std::uint32_t next = nodes.at(slot).next; next != 0)
            return {tree_, next};
    }
    return {};
}

} // namespace controls
