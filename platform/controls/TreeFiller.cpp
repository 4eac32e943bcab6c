// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeFiller.h"
#include "platform/controls/Faults.h"
#include "platform/controls/TreeStorage.h"

namespace controls {

TreeFiller::TreeFiller(TreeView& tree, TreeNode parent)
    : tree_(tree), top_(tree.storage_->slotOrNone(parent)),
      pictures_(static_cast<int>(std::min<qsizetype>(tree.ImageList.size(), 255))) {
    if (!tree.storage_->quiet())
        Throw(text::kFaultBadCall);
    tree.storage_->rows.clear();
    tree.storage_->noteEverything();
    tree.journal_->noteBefore(TreeView::Journal::What::Filled, top_, tree.storage_->nodes.at(top_));
    ++tree.revision_;
}

TreeFiller::Slot TreeFiller::append(Slot parent, std::uint8_t kind, std::uint32_t serial,
                                    text::StringPool::Ref text, int image, int selectedImage) {
    TreeView::Storage& storage = *tree_.storage_;
    if (image < 0 || image > pictures_ || selectedImage < 0 || selectedImage > pictures_)
        Throw(text::kFaultNotFound);
    if (!storage.keys.claim(storage.nodes.end(), kind, serial))
        Throw(text::kFaultKeyNotUnique);
    const Slot slot = storage.nodes.add();
    TreeNodeData& above = storage.nodes.at(parent);
    const Slot previous = above.lastChild;
    TreeNodeData& node = storage.nodes.at(slot);
    node.parent = parent;
    node.previous = previous;
    node.row = above.children;
    node.kind = kind;
    node.serial = serial;
    node.text = text;
    node.image = static_cast<std::uint8_t>(image);
    node.selectedImage = static_cast<std::uint8_t>(selectedImage);
    (previous != 0 ? storage.nodes.at(previous).next : above.firstChild) = slot;
    above.lastChild = slot;
    ++above.children;
    ++storage.count;
    return slot;
}

void TreeFiller::setTag(Slot slot, text::CompactView tag) {
    TreeView::Storage& storage = *tree_.storage_;
    storage.nodes.at(slot).tag = storage.pool.add(tag);
}

void TreeFiller::setTextFromTag(Slot slot, std::uint32_t length) {
    TreeView::Storage& storage = *tree_.storage_;
    TreeNodeData& node = storage.nodes.at(slot);
    const text::CompactView tag = storage.pool.view(node.tag);
    if (tag.length <= length) {
        node.text = node.tag;
        return;
    }
    shortened_.clear();
    shortened_.append(text::CompactView{tag.data, length, tag.wide});
    shortened_.append("...", 3);
    node.text = storage.pool.add(shortened_.view());
    node.flags |= kOwnText;
}

TreeFiller::Slot TreeFiller::parentOf(Slot slot) const {
    return tree_.storage_->nodes.at(slot).parent;
}

} // namespace controls
