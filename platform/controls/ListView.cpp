// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListView.h"
#include "platform/controls/Faults.h"

namespace controls {

namespace {
constexpr qint64 kStride = qint64{1} << 32; // room for rows that are put between two others
} // namespace

ListView::Row& ListView::At(int index) const {
    if (index < 1 || index > Count())
        Throw(text::kFaultOutOfBounds);
    return *rows_[static_cast<std::size_t>(index - 1)];
}

// A place for a row at a 0-based position; all rows get new ones when no room is left there.
qint64 ListView::PlaceBefore(std::size_t position) {
    if (rows_.empty())
        return 0;
    if (position == rows_.size())
        return rows_.back()->place + kStride;
    if (position == 0)
        return rows_.front()->place - kStride;
    const qint64 low = rows_[position - 1]->place, high = rows_[position]->place;
    if (high - low > 1)
        return low + (high - low) / 2;
    qint64 place = 0;
    for (const auto& row : rows_)
        row->place = place += kStride;
    return PlaceBefore(position);
}

int ListView::Add(int index, const QString& key, const QString& text, int icon, const QString& sub1,
                  const QString& sub2) {
    if (index < 0 || index > Count() + 1)
        Throw(text::kFaultOutOfBounds);
    if (!key.isEmpty() && byKey_.contains(key))
        Throw(text::kFaultKeyNotUnique);
    const int position = index == 0 ? Count() : index - 1;
    if (!quiet())
        aboutToInsert(position);
    auto row = std::make_unique<Row>();
    static_cast<ListItem&>(*row) = {key, text, icon, icon, {sub1, sub2}, {}, false};
    row->place = PlaceBefore(static_cast<std::size_t>(position));
    if (!key.isEmpty())
        byKey_.insert(key, row.get());
    if (current_ > position)
        ++current_;
    rows_.insert(rows_.begin() + position, std::move(row));
    if (!quiet())
        inserted(position);
    return position + 1;
}

void ListView::Clear() {
    if (rows_.empty())
        return;
    if (!quiet())
        aboutToReset();
    byKey_.clear();
    rows_.clear();
    current_ = 0;
    if (!quiet())
        reset();
}

int ListView::Count() const {
    return static_cast<int>(rows_.size());
}

const ListItem& ListView::Item(int index) const {
    return At(index);
}

const ListItem& ListView::Item(const QString& key) const {
    const Row* const row = byKey_.value(key, nullptr);
    if (!row)
        Throw(text::kFaultNotFound);
    return *row;
}

int ListView::IndexOf(const QString& key) const {
    const Row* const row = byKey_.value(key, nullptr);
    if (!row)
        return 0;
    const auto found =
        std::lower_bound(rows_.begin(), rows_.end(), row->place,
                         [](const std::unique_ptr<Row>& one, qint64 place) { return one->place < place; });
    return static_cast<int>(found - rows_.begin()) + 1;
}

void ListView::Remove(int index) {
    const Row& row = At(index);
    const bool selectionLost = row.Selected || current_ == index;
    if (!quiet())
        aboutToRemove(index - 1);
    byKey_.remove(row.Key);
    rows_.erase(rows_.begin() + (index - 1));
    if (current_ == index)
        current_ = 0;
    else if (current_ > index)
        --current_;
    if (quiet())
        return;
    removed(index - 1);
    if (selectionLost)
        selectionChanged();
}

void ListView::SetText(int index, const QString& text) {
    Row& row = At(index);
    if (row.Text == text)
        return;
    row.Text = text;
    if (!quiet())
        changed(index);
}

void ListView::SetSubItem(int index, int column, const QString& text) {
    if (column < 1 || column > 2)
        Throw(text::kFaultBadCall);
    QString& cell = At(index).Sub[static_cast<std::size_t>(column - 1)];
    if (cell == text)
        return;
    cell = text;
    if (!quiet())
        changed(index);
}

// A tag is not shown, so nothing is announced.
void ListView::SetItemTag(int index, const QString& tag) {
    At(index).Tag = tag;
}

void ListView::SetSelected(int index, bool selected) {
    if (std::exchange(At(index).Selected, selected) != selected && !quiet())
        selectionChanged();
}

void ListView::ClearSelected() {
    bool any = false;
    for (const auto& row : rows_)
        any |= std::exchange(row->Selected, false);
    if (any && !quiet())
        selectionChanged();
}

int ListView::SelectedItem() const {
    return current_;
}

void ListView::SetSelectedItem(int index) {
    bool different = index != current_;
    if (index != 0)
        different |= !std::exchange(At(index).Selected, true);
    current_ = index;
    if (different && !quiet())
        selectionChanged();
}

void ListView::SetView(int view) {
    if (view < lvwIcon || view > lvwReport)
        Throw(text::kFaultBadCall);
    if (std::exchange(view_, view) != view)
        viewChanged();
}

void ListView::BeginUpdate() {
    if (updates_++ == 0)
        aboutToReset();
}

void ListView::EndUpdate() {
    if (updates_ > 0 && --updates_ == 0)
        reset();
}

} // namespace controls
