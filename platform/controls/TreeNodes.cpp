// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Faults.h"
#include "platform/controls/TreeStorage.h"

namespace controls {

TreeNode TreeNodes::Add(TreeNode relative, int relationship, const QString& key, const QString& text,
                        const QString& image, const QString& selectedImage) {
    auto& storage = *tree_.storage_;
    const std::uint32_t base = storage.slotOrNone(relative);
    std::uint32_t parent = 0, before = 0;
    if (base != 0) {
        const TreeNodeData& node = storage.nodes.at(base);
        if (relationship < tvwLast || relationship > tvwChild)
            Throw(text::kFaultBadCall);
        parent = relationship == tvwChild ? base : node.parent;
        if (relationship == tvwNext || relationship == tvwPrevious)
            before = relationship == tvwNext ? node.next : base;
    }
    if (key.isEmpty())
        Throw(text::kFaultInvalidKey);
    if (storage.keys.find(key) != 0)
        Throw(text::kFaultKeyNotUnique);
    const auto picture = static_cast<std::uint8_t>(tree_.ImageIndex(image));
    const auto selectedPicture = static_cast<std::uint8_t>(tree_.ImageIndex(selectedImage));

    const text::StringPool::Ref name = storage.pool.add(QStringView(text)); // before anything is announced

    const bool told = !storage.quiet() && (tree_.aboutToInsert.isConnected() || tree_.inserted.isConnected());
    const int row = !told         ? 0
                    : before != 0 ? static_cast<int>(storage.rows.rowOf(before))
                                  : static_cast<int>(storage.nodes.at(parent).children);
    if (told)
        tree_.aboutToInsert(storage.handle(parent), row, row);
    const std::uint32_t slot = storage.link(parent, before);
    storage.keys.insert(slot, key);
    TreeNodeData& node = storage.nodes.at(slot);
    node.text = name;
    node.flags |= kOwnText;
    node.image = picture;
    node.selectedImage = selectedPicture;
    const TreeNode added = storage.handle(slot);
    if (told)
        tree_.inserted(storage.handle(parent), row, row);
    return added;
}

TreeNode TreeNodes::Find(const QString& key) const {
    const auto& storage = *tree_.storage_;
    return storage.handle(storage.keys.find(key));
}

TreeNode TreeNodes::operator()(const QString& key) const {
    const TreeNode node = Find(key);
    if (node.IsNothing())
        Throw(text::kFaultNotFound);
    return node;
}

TreeNode TreeNodes::operator()(int index) const {
    const auto& storage = *tree_.storage_;
    if (index < 1 || index > Count())
        Throw(text::kFaultOutOfBounds);
    return storage.handle(storage.slotAt(static_cast<std::uint32_t>(index)));
}

int TreeNodes::Count() const {
    return static_cast<int>(tree_.storage_->count);
}

void TreeNodes::Remove(const QString& key) {
    Remove((*this)(key));
}

void TreeNodes::Remove(int index) {
    Remove((*this)(index));
}

void TreeNodes::Remove(TreeNode node) {
    const std::uint32_t slot = tree_.storage_->slotOrNone(node);
    if (slot == 0)
        Throw(text::kFaultNothing);
    tree_.storage_->remove(slot);
}

void TreeNodes::Clear() {
    auto& storage = *tree_.storage_;
    if (storage.quiet()) {
        storage.wipe();
    } else if (Count() > 0) {
        tree_.aboutToReset();
        storage.wipe();
        tree_.reset();
    }
}

} // namespace controls
