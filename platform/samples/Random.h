// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>

namespace samples {

/// A sequence that is the same for the same seed on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 2 + 1) {}
    /// A number below `limit`, which is at least 1.
    std::size_t Below(std::size_t limit) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::size_t>((state_ >> 33) % limit);
    }

private:
    std::uint64_t state_;
};

} // namespace samples
