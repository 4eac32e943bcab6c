// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/NodeOrder.h"
#include <bit>

namespace controls {

void NodeOrder::remove(std::uint32_t slot) {
    const std::uint32_t place = slot - 1, number = place / kBlock, bit = place % kBlock;
    if (number >= blocks_.size())
        blocks_.resize(number + 1);
    if (!blocks_[number])
        blocks_[number] = std::make_unique<Block>();
    blocks_[number]->removed[bit / 64] |= std::uint64_t{1} << (bit % 64);
    ++blocks_[number]->count;
    ++removed_;
    dirty_ = true;
}

void NodeOrder::restore(std::uint32_t slot) {
    const std::uint32_t place = slot - 1, bit = place % kBlock;
    Block& block = *blocks_[place / kBlock];
    block.removed[bit / 64] &= ~(std::uint64_t{1} << (bit % 64));
    --block.count;
    --removed_;
    dirty_ = true;
}

void NodeOrder::clear() {
    last_ = removed_ = 0;
    blocks_.clear();
    removedBefore_.clear();
    dirty_ = false;
}

void NodeOrder::sumUp() const {
    if (!dirty_)
        return;
    removedBefore_.clear();
    std::uint32_t sum = 0;
    for (const auto& block : blocks_) {
        removedBefore_.push_back(sum);
        sum += block ? block->count : 0;
    }
    dirty_ = false;
}

std::uint32_t NodeOrder::livingBefore(std::uint32_t block) const {
    return block * kBlock - (block < removedBefore_.size() ? removedBefore_[block] : removed_);
}

std::uint32_t NodeOrder::indexOf(std::uint32_t slot) const {
    if (removed_ == 0)
        return slot;
    sumUp();
    const std::uint32_t place = slot - 1, number = place / kBlock, bit = place % kBlock;
    std::uint32_t index = livingBefore(number) + bit + 1;
    if (number < blocks_.size() && blocks_[number]) {
        const auto& removed = blocks_[number]->removed;
        for (std::uint32_t word = 0; word < bit / 64; ++word)
            index -= static_cast<std::uint32_t>(std::popcount(removed[word]));
        const std::uint64_t below = (std::uint64_t{1} << (bit % 64)) - 1;
        index -= static_cast<std::uint32_t>(std::popcount(removed[bit / 64] & below));
    }
    return index;
}

std::uint32_t NodeOrder::slotAt(std::uint32_t index) const {
    if (removed_ == 0)
        return index;
    sumUp();
    // The last block that has fewer than `index` living slots before it.
    std::uint32_t low = 0, high = (last_ - 1) / kBlock;
    while (low < high) {
        const std::uint32_t middle = low + (high - low + 1) / 2;
        if (livingBefore(middle) < index)
            low = middle;
        else
            high = middle - 1;
    }
    std::uint32_t left = index - livingBefore(low);
    if (low >= blocks_.size() || !blocks_[low])
        return low * kBlock + left;
    const auto& removed = blocks_[low]->removed;
    std::uint32_t word = 0;
    for (;; ++word) {
        const auto living = static_cast<std::uint32_t>(std::popcount(~removed[word]));
        if (living >= left)
            break;
        left -= living;
    }
    std::uint64_t living = ~removed[word];
    while (--left > 0)
        living &= living - 1;
    return low * kBlock + word * 64 + static_cast<std::uint32_t>(std::countr_zero(living)) + 1;
}

std::size_t NodeOrder::bytes() const {
    std::size_t bytes = 0;
    for (const auto& block : blocks_)
        bytes += block ? sizeof(Block) : 0;
    return bytes + blocks_.capacity() * sizeof(blocks_[0]) +
           removedBefore_.capacity() * sizeof(std::uint32_t);
}

} // namespace controls
