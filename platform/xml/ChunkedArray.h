// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

namespace xml {

/// An array that grows chunk by chunk: entries never move, and growing never needs twice the memory.
/// `T` must be trivial; new entries are not initialised.
template <typename T, unsigned Bits> class ChunkedArray {
public:
    static constexpr std::uint32_t kChunk = 1U << Bits;

    T& operator[](std::uint32_t index) { return chunks_[index >> Bits][index & (kChunk - 1)]; }
    const T& operator[](std::uint32_t index) const { return chunks_[index >> Bits][index & (kChunk - 1)]; }

    /// Index of `count` new entries that stand side by side in memory; count is at most kChunk.
    /// Throws std::bad_alloc when memory or the 32-bit numbers run out.
    std::uint32_t addRun(std::uint32_t count) {
        if (chunks_.empty() || used_ + count > kChunk)
            addChunk();
        const auto index = (static_cast<std::uint32_t>(chunks_.size() - 1) << Bits) + used_;
        used_ += count;
        return index;
    }

private:
    void addChunk() {
        if (chunks_.size() == (std::size_t{1} << (32 - Bits)))
            throw std::bad_alloc();
        chunks_.push_back(std::make_unique_for_overwrite<T[]>(kChunk));
        used_ = 0;
    }

    std::vector<std::unique_ptr<T[]>> chunks_;
    std::uint32_t used_ = 0; ///< entries used in the last chunk
};

} // namespace xml
