// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/SlotSequence.h"
#include <algorithm>
#include <utility>

namespace controls {

namespace {

constexpr std::size_t kMost = 1024; // numbers in a block: looking through them takes as long as finding it

template <typename Vector> auto Iterator(Vector& vector, std::size_t index) {
    return vector.begin() + static_cast<std::ptrdiff_t>(index);
}

} // namespace

// The block in which a place lies; the last one for the place behind all.
std::size_t SlotSequence::blockAt(std::size_t place) const {
    const auto behind =
        std::upper_bound(order_.begin(), order_.end(), place,
                         [this](std::size_t wanted, Id id) { return wanted < blocks_[id].first; });
    return static_cast<std::size_t>(behind - order_.begin()) - 1;
}

SlotSequence::Slot SlotSequence::at(std::size_t place) const {
    const Block& block = blocks_[order_[blockAt(place)]];
    return block.slots[place - block.first];
}

std::size_t SlotSequence::placeOf(Slot slot) const {
    if (slot >= blockOf_.size() || blockOf_[slot] == kNone)
        return kNowhere;
    const Block& block = blocks_[blockOf_[slot]];
    const auto found = std::find(block.slots.begin(), block.slots.end(), slot);
    return block.first + static_cast<std::size_t>(found - block.slots.begin());
}

void SlotSequence::insert(std::size_t place, const std::vector<Slot>& slots) {
    if (slots.empty())
        return;
    if (const Slot highest = *std::max_element(slots.begin(), slots.end()); highest >= blockOf_.size())
        blockOf_.resize(std::size_t{highest} + 1, kNone);
    if (order_.empty())
        order_.push_back(addBlock());
    const std::size_t index = blockAt(place);
    Block& block = blocks_[order_[index]];
    block.slots.insert(Iterator(block.slots, place - block.first), slots.begin(), slots.end());
    for (const Slot slot : slots)
        blockOf_[slot] = order_[index];
    size_ += slots.size();
    if (block.slots.size() > kMost)
        split(index);
    countFrom(index);
}

SlotSequence::Id SlotSequence::addBlock() {
    if (free_.empty()) {
        blocks_.emplace_back();
        return static_cast<Id>(blocks_.size() - 1);
    }
    const Id id = free_.back();
    free_.pop_back();
    return id;
}

// One that is too full becomes several, half full each.
void SlotSequence::split(std::size_t index) {
    const std::vector<Slot> all = std::exchange(blocks_[order_[index]].slots, {});
    const std::size_t pieces = all.size() / (kMost / 2);
    std::vector<Id> ids(pieces, order_[index]);
    std::generate(ids.begin() + 1, ids.end(), [this] { return addBlock(); });
    order_.insert(Iterator(order_, index + 1), ids.begin() + 1, ids.end());
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        Block& block = blocks_[ids[piece]];
        block.slots.assign(Iterator(all, all.size() * piece / pieces),
                           Iterator(all, all.size() * (piece + 1) / pieces));
        for (const Slot slot : block.slots)
            blockOf_[slot] = ids[piece];
    }
}

void SlotSequence::erase(std::size_t place, std::size_t count) {
    if (count == 0)
        return;
    const std::size_t first = blockAt(place);
    std::size_t end = first, offset = place - blocks_[order_[first]].first;
    for (std::size_t left = count; left > 0; offset = 0)
        left -= eraseIn(blocks_[order_[end++]], offset, left);
    size_ -= count;
    dropEmpty(first, end);
    countFrom(first);
}

std::size_t SlotSequence::eraseIn(Block& block, std::size_t offset, std::size_t most) {
    const std::size_t end = std::min(offset + most, block.slots.size());
    for (std::size_t i = offset; i < end; ++i)
        blockOf_[block.slots[i]] = kNone;
    block.slots.erase(Iterator(block.slots, offset), Iterator(block.slots, end));
    return end - offset;
}

void SlotSequence::dropEmpty(std::size_t first, std::size_t end) {
    const auto isEmpty = [this](Id id) { return blocks_[id].slots.empty(); };
    const auto kept = std::stable_partition(Iterator(order_, first), Iterator(order_, end),
                                            [&](Id id) { return !isEmpty(id); });
    for (auto id = kept; id != Iterator(order_, end); ++id) {
        blocks_[*id] = {};
        free_.push_back(*id);
    }
    order_.erase(kept, Iterator(order_, end));
}

void SlotSequence::countFrom(std::size_t index) {
    std::size_t place = 0;
    if (index > 0)
        place = blocks_[order_[index - 1]].first + blocks_[order_[index - 1]].slots.size();
    for (; index < order_.size(); ++index) {
        blocks_[order_[index]].first = place;
        place += blocks_[order_[index]].slots.size();
    }
}

void SlotSequence::clear() {
    *this = {};
}

std::size_t SlotSequence::bytes() const {
    std::size_t sum = blocks_.capacity() * sizeof(Block) +
                      (order_.capacity() + free_.capacity() + blockOf_.capacity()) * sizeof(Id);
    for (const Block& block : blocks_)
        sum += block.slots.capacity() * sizeof(Slot);
    return sum;
}

} // namespace controls
