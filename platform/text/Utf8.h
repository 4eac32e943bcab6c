// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>

namespace text {

/// One character of UTF-8.
struct Utf8Char {
    char32_t code = 0;
    unsigned length = 0; ///< bytes read; 0: no valid sequence starts here
};

/// Reads the character at `p` (before `end`). Overlong forms, halves of surrogate pairs, values above
/// U+10FFFF and cut sequences are not valid.
inline Utf8Char ReadUtf8(const unsigned char* p, const unsigned char* end) {
    const auto follows = [&](std::ptrdiff_t i) { return end - p > i && (p[i] & 0xC0U) == 0x80U; };
    const char32_t lead = *p;
    if (lead < 0x80)
        return {lead, 1};
    if (lead >= 0xC2 && lead < 0xE0 && follows(1))
        return {((lead & 0x1FU) << 6) | (p[1] & 0x3FU), 2};
    if (lead >= 0xE0 && lead < 0xF0 && follows(1) && follows(2)) {
        const char32_t code = ((lead & 0x0FU) << 12) | ((p[1] & 0x3FU) << 6) | (p[2] & 0x3FU);
        if (code >= 0x800 && (code < 0xD800 || code > 0xDFFF))
            return {code, 3};
    }
    if (lead >= 0xF0 && lead < 0xF5 && follows(1) && follows(2) && follows(3)) {
        const char32_t code =
            ((lead & 0x07U) << 18) | ((p[1] & 0x3FU) << 12) | ((p[2] & 0x3FU) << 6) | (p[3] & 0x3FU);
        if (code >= 0x10000 && code <= 0x10FFFF)
            return {code, 4};
    }
    return {};
}

/// Writes a character as one or two 16-bit units; the place behind them.
inline char16_t* WriteUtf16(char32_t code, char16_t* out) {
    if (code < 0x10000) {
        *out++ = static_cast<char16_t>(code);
    } else {
        *out++ = static_cast<char16_t>(0xD7C0U + (code >> 10));
        *out++ = static_cast<char16_t>(0xDC00U + (code & 0x3FFU));
    }
    return out;
}

} // namespace text
