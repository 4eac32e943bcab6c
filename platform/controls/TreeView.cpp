// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeView.h"
#include "platform/controls/Faults.h"
#include "platform/controls/TreeJournal.h"
#include "platform/controls/TreeStorage.h"
#include <utility>

namespace controls {

TreeView::TreeView() : journal_(std::make_unique<Journal>()), storage_(std::make_unique<Storage>(*this)) {}

TreeView::~TreeView() = default;

TreeNode TreeView::SelectedItem() const {
    return storage_->handle(storage_->selected);
}

void TreeView::SetSelectedItem(TreeNode node) {
    storage_->select(storage_->slotOrNone(node));
}

void TreeView::BeginUpdate() {
    if (storage_->updates++ == 0)
        aboutToReset();
}

void TreeView::EndUpdate() {
    if (storage_->updates == 0 || --storage_->updates > 0)
        return;
    storage_->compactIfWasteful();
    reset();
}

TreeChanges TreeView::TakeChanges() {
    return std::exchange(storage_->changes, TreeChanges{false, {}});
}

text::StringPool::Ref TreeView::InternText(const QString& text) {
    if (text.isEmpty())
        return 0;
    const auto known = storage_->names.constFind(text);
    if (known != storage_->names.constEnd())
        return *known;
    const text::StringPool::Ref ref = storage_->pool.add(QStringView(text));
    storage_->names.insert(text, ref);
    return ref;
}

int TreeView::ImageIndex(const QString& image) const {
    if (image.isEmpty())
        return 0;
    const qsizetype place = ImageList.indexOf(image) + 1;
    // A node keeps the place in one byte.
    if (place == 0 || place > 255)
        Throw(text::kFaultNotFound);
    return static_cast<int>(place);
}

void TreeView::SetTextFromTag(TreeNode node, std::uint32_t length) {
    if (&Storage::of(node) != storage_.get())
        Throw(text::kFaultBadCall);
    const TreeNodeData& data = storage_->nodes.at(node.slot_);
    const text::CompactView text = storage_->pool.view(data.text), tag = storage_->pool.view(data.tag);
    if (tag.length <= length) {
        if (data.text != data.tag && !(text == tag))
            storage_->setText(node.slot_, data.tag, false);
        return;
    }
    text::CompactBuilder shortened;
    shortened.append(text::CompactView{tag.data, length, tag.wide});
    shortened.append("...", 3);
    if (!(text == shortened.view()))
        storage_->setText(node.slot_, storage_->pool.add(shortened.view()), true);
}

TreeNode TreeView::NodeOf(const TreeNodeData* data) const {
    return storage_->handle(storage_->slotOf(data));
}

TreeNode TreeView::ChildAt(TreeNode parent, int row) const {
    const std::uint32_t above = storage_->slotOrNone(parent);
    return row < 0 ? TreeNode()
                   : storage_->handle(storage_->rows.childAt(above, static_cast<std::uint32_t>(row)));
}

int TreeView::TopCount() const {
    return static_cast<int>(storage_->nodes.at(0).children);
}

std::size_t TreeView::bytes() const {
    return storage_->bytes();
}

} // namespace controls
