// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Faults.h"
#include "platform/controls/TreeStorage.h"

namespace controls {

bool TreeNode::IsNothing() const {
    return !TreeView::Storage::isLiving(*this);
}

QString TreeNode::Key() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.keys.keyOf(storage.nodes.at(slot_));
}

void TreeNode::SetKey(const QString& key) {
    auto& storage = TreeView::Storage::of(*this);
    const std::uint32_t owner = storage.keys.find(key);
    if (owner == slot_)
        return;
    if (key.isEmpty())
        Throw(text::kFaultInvalidKey);
    if (owner != 0)
        Throw(text::kFaultKeyNotUnique);
    storage.noteKey(slot_);
    storage.keys.remove(slot_);
    storage.keys.insert(slot_, key);
    storage.note(slot_);
}

QString TreeNode::Text() const {
    return TextView().toString();
}

void TreeNode::SetText(const QString& text) {
    auto& storage = TreeView::Storage::of(*this);
    if (!(TextView() == QStringView(text)))
        storage.setText(slot_, storage.pool.add(QStringView(text)), true);
}

QString TreeNode::Tag() const {
    return TagView().toString();
}

void TreeNode::SetTag(const QString& tag) {
    auto& storage = TreeView::Storage::of(*this);
    if (!(TagView() == QStringView(tag)))
        storage.setTag(slot_, storage.pool.add(QStringView(tag)));
}

namespace {

QString PictureKey(const TreeView& tree, int place) {
    return place > 0 ? tree.ImageList.value(place - 1) : QString();
}

} // namespace

QString TreeNode::Image() const {
    const auto& storage = TreeView::Storage::of(*this);
    return PictureKey(storage.tree, storage.nodes.at(slot_).image);
}

void TreeNode::SetImage(const QString& image) {
    auto& storage = TreeView::Storage::of(*this);
    const auto place = static_cast<std::uint8_t>(tree_->ImageIndex(image));
    if (std::exchange(storage.nodes.at(slot_).image, place) != place && !storage.quiet())
        tree_->changed(*this);
}

QString TreeNode::SelectedImage() const {
    const auto& storage = TreeView::Storage::of(*this);
    return PictureKey(storage.tree, storage.nodes.at(slot_).selectedImage);
}

void TreeNode::SetSelectedImage(const QString& image) {
    auto& storage = TreeView::Storage::of(*this);
    const auto place = static_cast<std::uint8_t>(tree_->ImageIndex(image));
    if (std::exchange(storage.nodes.at(slot_).selectedImage, place) != place && !storage.quiet())
        tree_->changed(*this);
}

bool TreeNode::Expanded() const {
    return (TreeView::Storage::of(*this).nodes.at(slot_).flags & kExpanded) != 0;
}

void TreeNode::SetExpanded(bool expanded) {
    if (Expanded() == expanded)
        return;
    auto& storage = TreeView::Storage::of(*this);
    storage.nodes.at(slot_).flags ^= kExpanded;
    if (!storage.quiet())
        tree_->expandedChanged(*this);
}

bool TreeNode::Selected() const {
    return TreeView::Storage::of(*this).selected == slot_;
}

void TreeNode::SetSelected(bool selected) {
    auto& storage = TreeView::Storage::of(*this);
    if (selected)
        storage.select(slot_);
    else if (storage.selected == slot_)
        storage.select(0);
}

void TreeNode::EnsureVisible() {
    const auto& storage = TreeView::Storage::of(*this);
    // From the inside out: a widget then lays out its rows once, when the outermost ancestor opens.
    for (TreeNode ancestor = Parent(); ancestor; ancestor = ancestor.Parent())
        ancestor.SetExpanded(true);
    if (!storage.quiet())
        tree_->ensureVisible(*this);
}

TreeNode TreeNode::Parent() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(slot_).parent);
}

TreeNode TreeNode::Child() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(slot_).firstChild);
}

TreeNode TreeNode::LastChild() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(slot_).lastChild);
}

TreeNode TreeNode::Next() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(slot_).next);
}

TreeNode TreeNode::Previous() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(slot_).previous);
}

TreeNode TreeNode::FirstSibling() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(storage.nodes.at(slot_).parent).firstChild);
}

TreeNode TreeNode::LastSibling() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(storage.nodes.at(slot_).parent).lastChild);
}

TreeNode TreeNode::Root() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.handle(storage.nodes.at(0).firstChild);
}

int TreeNode::Children() const {
    return static_cast<int>(TreeView::Storage::of(*this).nodes.at(slot_).children);
}

int TreeNode::Index() const {
    return static_cast<int>(TreeView::Storage::of(*this).indexOf(slot_));
}

int TreeNode::Row() const {
    return static_cast<int>(TreeView::Storage::of(*this).rows.rowOf(slot_));
}

int TreeNode::KeyKind() const {
    const std::uint8_t kind = TreeView::Storage::of(*this).nodes.at(slot_).kind;
    return kind == kOddKey ? -1 : kind;
}

text::CompactView TreeNode::TextView() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.pool.view(storage.nodes.at(slot_).text);
}

text::CompactView TreeNode::TagView() const {
    const auto& storage = TreeView::Storage::of(*this);
    return storage.pool.view(storage.nodes.at(slot_).tag);
}

text::StringPool::Ref TreeNode::TextId() const {
    return TreeView::Storage::of(*this).nodes.at(slot_).text;
}

const TreeNodeData* TreeNode::Data() const {
    return IsNothing() ? nullptr : &tree_->storage_->nodes.at(slot_);
}

} // namespace controls
