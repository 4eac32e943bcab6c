// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/KeyTable.h"
#include <limits>

namespace controls {

namespace {

// A decimal number as a program writes it: only digits, no leading zero. Reads up to `end` and not beyond
// `limit`.
std::optional<std::uint32_t> CanonicalNumber(QStringView digits, std::uint64_t limit) {
    if (digits.isEmpty() || digits.size() > 10 || (digits.size() > 1 && digits[0] == u'0'))
        return {};
    std::uint64_t number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return {};
        number = number * 10 + static_cast<std::uint64_t>(digit.unicode() - u'0');
    }
    if (number > limit)
        return {};
    return static_cast<std::uint32_t>(number);
}

} // namespace

// Only a key that comes back the same from its two numbers may be packed: "<01>5" and "<1>5" are two keys.
std::optional<KeyTable::Packed> KeyTable::pack(QStringView key) {
    const qsizetype close = key.indexOf(u'>');
    if (close < 2 || key[0] != u'<')
        return {};
    const auto kind = CanonicalNumber(key.mid(1, close - 1), kOddKey - 1);
    const auto serial = CanonicalNumber(key.mid(close + 1), std::numeric_limits<std::uint32_t>::max());
    if (!kind || !serial)
        return {};
    return Packed{static_cast<std::uint8_t>(*kind), *serial};
}

KeyTable::Page* KeyTable::page(std::uint32_t number) const {
    if (lastPage_ && lastNumber_ == number)
        return lastPage_;
    const auto found = pages_.find(number);
    if (found == pages_.end())
        return nullptr;
    lastNumber_ = number;
    return lastPage_ = found->second.get();
}

std::uint32_t KeyTable::findPacked(Packed key) const {
    if (const Page* const there = page(key.serial / kPage)) {
        const std::uint32_t slot = there->slots[key.serial % kPage];
        if (slot != 0 && nodes_.at(slot).kind == key.kind)
            return slot;
    }
    return twins_.isEmpty() ? 0 : twins_.value(key.whole(), 0);
}

std::uint32_t KeyTable::find(const QString& key) const {
    if (const auto packed = pack(key))
        return findPacked(*packed);
    return odd_.value(key, 0);
}

QString KeyTable::keyOf(const TreeNodeData& node) const {
    if (node.kind == kOddKey)
        return oddKeys_[node.serial];
    return u'<' + QString::number(node.kind) + u'>' + QString::number(node.serial);
}

bool KeyTable::claim(std::uint32_t slot, std::uint8_t kind, std::uint32_t serial) {
    const Packed key{kind, serial};
    if (findPacked(key) != 0)
        return false;
    Page* target = page(serial / kPage);
    if (!target) {
        auto& made = pages_[serial / kPage];
        made = std::make_unique<Page>();
        lastNumber_ = serial / kPage;
        target = lastPage_ = made.get();
    }
    std::uint32_t& place = target->slots[serial % kPage];
    if (place == 0) {
        place = slot;
        ++target->used;
    } else {
        twins_.insert(key.whole(), slot);
    }
    return true;
}

bool KeyTable::insert(std::uint32_t slot, const QString& key) {
    TreeNodeData& node = nodes_.at(slot);
    if (const auto packed = pack(key)) {
        if (!claim(slot, packed->kind, packed->serial))
            return false;
        node.kind = packed->kind;
        node.serial = packed->serial;
        return true;
    }
    if (odd_.contains(key))
        return false;
    std::uint32_t number = static_cast<std::uint32_t>(oddKeys_.size());
    if (freeOdd_.empty()) {
        oddKeys_.push_back(key);
    } else {
        number = freeOdd_.back();
        freeOdd_.pop_back();
        oddKeys_[number] = key;
    }
    odd_.insert(key, slot);
    node.kind = kOddKey;
    node.serial = number;
    return true;
}

void KeyTable::remove(std::uint32_t slot) {
    const TreeNodeData& node = nodes_.at(slot);
    if (node.kind == kOddKey) {
        odd_.remove(oddKeys_[node.serial]);
        oddKeys_[node.serial] = QString();
        freeOdd_.push_back(node.serial);
        return;
    }
    const std::uint32_t number = node.serial / kPage;
    Page* const there = page(number);
    if (!there || there->slots[node.serial % kPage] != slot) {
        twins_.remove(Packed{node.kind, node.serial}.whole());
        return;
    }
    there->slots[node.serial % kPage] = 0;
    if (--there->used == 0) {
        lastPage_ = nullptr;
        pages_.erase(number);
    }
}

void KeyTable::clear() {
    pages_.clear();
    lastPage_ = nullptr;
    twins_.clear();
    odd_.clear();
    oddKeys_.clear();
    freeOdd_.clear();
}

std::size_t KeyTable::bytes() const {
    std::size_t odd = (oddKeys_.capacity() + static_cast<std::size_t>(odd_.capacity())) * sizeof(QString);
    for (const QString& key : oddKeys_)
        odd += static_cast<std::size_t>(key.capacity()) * sizeof(QChar);
    return pages_.size() * (sizeof(Page) + 32) + static_cast<std::size_t>(twins_.capacity()) * 16 + odd;
}

} // namespace controls
