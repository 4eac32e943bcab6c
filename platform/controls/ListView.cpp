// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListView.h"
#include "platform/controls/Faults.h"
#include <algorithm>

namespace controls {

const ListView::Slot& ListView::At(int index) const {
    if (index < 1 || index > Count())
        Throw(text::kFaultOutOfBounds);
    return slots_[static_cast<std::size_t>(index - 1)];
}

ListView::Slot& ListView::At(int index) {
    return const_cast<Slot&>(std::as_const(*this).At(index));
}

ListItem& ListView::ItemOf(const Slot& slot) const {
    if (!slot.item)
        slot.item = std::make_unique<ListItem>(make_(slot.number));
    return *slot.item;
}

int ListView::IndexOfNumber(std::uint32_t number) const {
    const auto found =
        std::lower_bound(slots_.begin(), slots_.end(), number,
                         [](const Slot& one, std::uint32_t wanted) { return one.number < wanted; });
    return found != slots_.end() && found->number == number ? static_cast<int>(found - slots_.begin()) + 1
                                                            : 0;
}

int ListView::Add(const QString& key, const QString& text, int icon, const QString& sub1,
                  const QString& sub2) {
    if (!key.isEmpty() && IndexOf(key) > 0)
        Throw(text::kFaultKeyNotUnique);
    const int position = Count();
    if (!quiet())
        aboutToInsert(position);
    Slot slot;
    slot.item = std::make_unique<ListItem>(ListItem{key, text, icon, icon, {sub1, sub2}, {}});
    slot.number = next_++;
    if (!key.isEmpty())
        numberByKey_.insert(key, slot.number);
    slots_.push_back(std::move(slot));
    if (!quiet())
        inserted(position);
    return position + 1;
}

void ListView::Fill(std::uint32_t count, RowMaker make, RowFinder find, CellReader read) {
    if (!slots_.empty())
        Throw(text::kFaultBadCall);
    if (!quiet())
        aboutToReset();
    make_ = std::move(make);
    find_ = std::move(find);
    read_ = std::move(read);
    slots_.resize(count);
    for (std::uint32_t i = 0; i < count; ++i)
        slots_[i].number = i;
    next_ = count;
    if (!quiet())
        reset();
}

void ListView::Clear() {
    if (slots_.empty())
        return;
    if (!quiet())
        aboutToReset();
    numberByKey_.clear();
    slots_.clear();
    make_ = {};
    find_ = {};
    read_ = {};
    current_ = 0;
    labelEdit_ = 0;
    firstVisible_ = 1;
    if (!quiet())
        reset();
}

int ListView::Count() const {
    return static_cast<int>(slots_.size());
}

const ListItem& ListView::Item(int index) const {
    return ItemOf(At(index));
}

const ListItem& ListView::Item(const QString& key) const {
    const int index = IndexOf(key);
    if (index == 0)
        Throw(text::kFaultNotFound);
    return Item(index);
}

text::CompactView ListView::Cell(int index, int column) const {
    const Slot& slot = At(index);
    if (!slot.item && read_)
        return read_(slot.number, column);
    const ListItem& item = ItemOf(slot);
    const QString& text = column == 1 ? item.Text : item.Sub[static_cast<std::size_t>(column - 2)];
    return {reinterpret_cast<const unsigned char*>(text.utf16()), static_cast<std::uint32_t>(text.size()),
            true};
}

int ListView::IndexOf(const QString& key) const {
    if (const auto known = numberByKey_.constFind(key); known != numberByKey_.constEnd())
        return IndexOfNumber(*known);
    const qint64 number = find_ ? find_(key) : -1;
    return number < 0 ? 0 : IndexOfNumber(static_cast<std::uint32_t>(number));
}

void ListView::Remove(int index) {
    const Slot& slot = At(index);
    const bool selectionLost = slot.selected || current_ == index;
    if (!quiet())
        aboutToRemove(index - 1);
    if (slot.item)
        numberByKey_.remove(slot.item->Key);
    slots_.erase(slots_.begin() + (index - 1));
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
    ListItem& item = ItemOf(At(index));
    if (item.Text == text)
        return;
    item.Text = text;
    if (!quiet())
        changed(index);
}

void ListView::SetSubItem(int index, int column, const QString& text) {
    if (column < 1 || column > 2)
        Throw(text::kFaultBadCall);
    QString& cell = ItemOf(At(index)).Sub[static_cast<std::size_t>(column - 1)];
    if (cell == text)
        return;
    cell = text;
    if (!quiet())
        changed(index);
}

// A tag is not shown, so nothing is announced.
void ListView::SetItemTag(int index, const QString& tag) {
    ItemOf(At(index)).Tag = tag;
}

bool ListView::Selected(int index) const {
    return At(index).selected;
}

void ListView::SetSelected(int index, bool selected) {
    if (std::exchange(At(index).selected, selected) != selected && !quiet())
        selectionChanged();
}

void ListView::SelectAll() {
    bool any = false;
    for (Slot& slot : slots_)
        any |= !std::exchange(slot.selected, true);
    if (any && !quiet())
        selectionChanged();
}

void ListView::ClearSelected() {
    bool any = false;
    for (Slot& slot : slots_)
        any |= std::exchange(slot.selected, false);
    if (any && !quiet())
        selectionChanged();
}

std::vector<int> ListView::SelectedRows() const {
    std::vector<int> rows;
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (slots_[i].selected)
            rows.push_back(static_cast<int>(i) + 1);
    }
    return rows;
}

int ListView::SelectedItem() const {
    return current_;
}

void ListView::SetSelectedItem(int index) {
    bool different = index != current_;
    if (index != 0)
        different |= !std::exchange(At(index).selected, true);
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
