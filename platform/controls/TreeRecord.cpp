// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeRecord.h"
#include "platform/controls/TreeJournal.h"
#include "platform/controls/TreeStorage.h"
#include <utility>

namespace controls {

TreeRecord::TreeRecord(TreeView& tree)
    : tree_(tree), mark_(tree.journal_->entries.size()), content_(tree.journal_->content),
      revision_(tree.revision_), selected_(tree.SelectedItem()) {
    ++tree_.journal_->records;
}

TreeRecord::~TreeRecord() {
    if (--tree_.journal_->records > 0)
        return;
    tree_.journal_->entries.clear();
    tree_.storage_->compactIfWasteful();
}

bool TreeRecord::takeBack() {
    TreeView::Journal& journal = *tree_.journal_;
    if (journal.content != content_)
        return false;
    if (journal.entries.size() <= mark_)
        return true;
    const TreeUpdate update(tree_);
    const int records = std::exchange(journal.records, 0); // taking back isn't noted
    for (std::size_t i = journal.entries.size(); i > mark_; --i)
        tree_.storage_->takeBack(journal.entries[i - 1]);
    journal.entries.resize(mark_);
    journal.records = records;
    tree_.revision_ = revision_;
    tree_.storage_->selected = selected_ ? tree_.storage_->slotOrNone(selected_) : 0;
    return true;
}

TreeRebuild::TreeRebuild(TreeView& tree) : tree_(tree) {
    tree_.BeginUpdate();
    old_ = std::make_unique<TreeView::Storage>(tree_);
    old_->updates = tree_.storage_->updates;
    old_->generation = ++tree_.generations_;
    std::swap(old_, tree_.storage_);
}

TreeRebuild::~TreeRebuild() {
    if (kept_) {
        tree_.journal_->newContent();
        ++tree_.revision_;
    } else {
        old_->updates = tree_.storage_->updates;
        std::swap(old_, tree_.storage_);
    }
    tree_.EndUpdate();
}

} // namespace controls
