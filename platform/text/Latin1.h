// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstring>

namespace text {

/// Writes `length` Latin-1 characters as 16-bit units to `out` (which must not overlap `in`); the place
/// behind them. Whole blocks go through local arrays of fixed size, so that the compiler may use vectors at
/// every level.
inline char16_t* WidenLatin1(const unsigned char* in, std::size_t length, char16_t* out) {
    constexpr std::size_t kBlock = 16;
    while (length >= kBlock) {
        unsigned char from[kBlock];
        char16_t to[kBlock];
        std::memcpy(from, in, sizeof from);
        for (std::size_t i = 0; i < kBlock; ++i)
            to[i] = from[i];
        std::memcpy(out, to, sizeof to);
        in += kBlock;
        out += kBlock;
        length -= kBlock;
    }
    while (length-- > 0)
        *out++ = *in++;
    return out;
}

/// Whether all bytes are ASCII.
inline bool IsAscii(const char* bytes, std::size_t length) {
    constexpr std::size_t kBlock = sizeof(unsigned long long);
    constexpr unsigned long long kHighBits = 0x8080808080808080ULL;
    for (; length >= kBlock; bytes += kBlock, length -= kBlock) {
        unsigned long long word;
        std::memcpy(&word, bytes, kBlock);
        if ((word & kHighBits) != 0)
            return false;
    }
    for (; length > 0; ++bytes, --length) {
        if (static_cast<unsigned char>(*bytes) >= 0x80)
            return false;
    }
    return true;
}

} // namespace text
