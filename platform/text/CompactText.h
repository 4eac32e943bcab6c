// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace text {

/// A text held with one byte a character where all its characters are at most U+00FF, else with two.
/// A view: it is good as long as the storage behind it (a StringPool or CompactBuilder) lives unchanged.
struct CompactView {
    const unsigned char* data = nullptr;
    std::uint32_t length = 0; ///< in 16-bit units of the text
    bool wide = false;        ///< two bytes a character (native order, `data` is 2-aligned)

    bool isEmpty() const { return length == 0; }
    char16_t at(std::uint32_t i) const {
        return wide ? reinterpret_cast<const char16_t*>(data)[i] : static_cast<char16_t>(data[i]);
    }
    /// Writes the text to `out` (room for `length` units) and returns the place behind it.
    char16_t* copyTo(char16_t* out) const;
    QString toString() const;
    bool operator==(const CompactView& other) const;
    bool operator==(QStringView other) const;
};

/// Builds one compact text piece by piece; it turns wide on the first character above U+00FF.
/// Meant to be kept and cleared, so that its storage is reused.
class CompactBuilder {
public:
    void clear();
    void append(char ascii);
    void append(const char* ascii, std::size_t length); ///< ASCII or Latin-1
    void append(CompactView piece);
    void append(QStringView piece);
    /// UTF-8 as a parser hands it out (valid UTF-8; anything else becomes U+FFFD).
    void appendUtf8(const char* bytes, std::size_t length);
    /// The piece with & < > " ' written as entities (&amp; &lt; &gt; &quot; &apos;).
    void appendEscaped(CompactView piece);
    CompactView view() const;

private:
    void widen();
    std::vector<unsigned char> narrow_;
    std::vector<char16_t> wide_;
    bool isWide_ = false;
};

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
    return std::all_of(bytes, bytes + length, [](char byte) { return (byte & 0x80) == 0; });
}

} // namespace text
