// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace controls {

/// A long sequence of numbers, each in it once. Tells the place of a number and the number at a place without
/// a walk along it, and takes changes anywhere. The numbers stand in blocks of up to a thousand; a block
/// knows where it begins, and a number its block. It holds four bytes for each number, and four for each one
/// up to the highest.
class SlotSequence {
public:
    using Slot = std::uint32_t;
    static constexpr std::size_t kNowhere = ~std::size_t{0};

    std::size_t size() const { return size_; }
    Slot at(std::size_t place) const;     ///< `place` below size()
    std::size_t placeOf(Slot slot) const; ///< kNowhere for one that isn't in it
    /// Puts numbers that aren't in it yet in front of what stands at `place`; size(): behind all.
    void insert(std::size_t place, const std::vector<Slot>& slots);
    void erase(std::size_t place, std::size_t count); ///< `place + count` at most size()
    void clear();                                     ///< all memory is given back
    std::size_t bytes() const;                        ///< memory held

private:
    using Id = std::uint32_t;
    static constexpr Id kNone = ~Id{0};
    struct Block {
        std::vector<Slot> slots;
        std::size_t first = 0; ///< place of its first number
    };
    std::size_t blockAt(std::size_t place) const;
    Id addBlock();
    void split(std::size_t index);
    std::size_t eraseIn(Block& block, std::size_t offset, std::size_t most);
    void dropEmpty(std::size_t first, std::size_t end);
    void countFrom(std::size_t index);

    std::vector<Block> blocks_;    ///< by id
    std::vector<Id> order_, free_; ///< blocks in the sequence's order; those that are in no use
    std::vector<Id> blockOf_;      ///< by number
    std::size_t size_ = 0;
};

} // namespace controls
