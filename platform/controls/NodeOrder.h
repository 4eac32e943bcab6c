// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace controls {

/// The order of adding among living nodes. Slots are given out in that order, so only the removed ones have
/// to be known: one bit each in blocks of 4096, and the number of removed ones before each block.
class NodeOrder {
public:
    void append() { ++last_; }       ///< the next slot, from 1, is in use
    void remove(std::uint32_t slot); ///< a living slot
    void restore(std::uint32_t slot); ///< a removed one that lives again
    void clear();
    std::uint32_t count() const { return last_ - removed_; }
    std::uint32_t indexOf(std::uint32_t slot) const; ///< 1-based place of a living slot
    std::uint32_t slotAt(std::uint32_t index) const; ///< `index` from 1 to count()
    std::size_t bytes() const;

private:
    static constexpr std::uint32_t kBlock = 4096;
    struct Block {
        std::array<std::uint64_t, kBlock / 64> removed{};
        std::uint32_t count = 0;
    };
    std::uint32_t livingBefore(std::uint32_t block) const;
    void sumUp() const;

    std::uint32_t last_ = 0, removed_ = 0;
    std::vector<std::unique_ptr<Block>> blocks_;       ///< null, or not there, where nothing was removed
    mutable std::vector<std::uint32_t> removedBefore_; ///< one for each of blocks_
    mutable bool dirty_ = false;
};

} // namespace controls
