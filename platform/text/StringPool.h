// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <cstddef>
#include <cstdint>
#include <memory>
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

/// Texts by the million: each is stored once in large blocks and named by a 32-bit number. Texts are never
/// freed one by one; `clear` frees all. The same Ref may be used by several owners. Ref 0 is the empty text.
class StringPool {
public:
    using Ref = std::uint32_t;

    StringPool();
    ~StringPool();
    StringPool(StringPool&&) noexcept;
    StringPool& operator=(StringPool&&) noexcept;

    /// Stores a copy of the text. Throws std::bad_alloc when memory (or the 16 GB of numbers) runs out.
    Ref add(CompactView text);
    Ref add(QStringView text);
    Ref addUtf8(const char* bytes, std::size_t length);
    CompactView view(Ref ref) const;
    QString toString(Ref ref) const { return view(ref).toString(); }
    void clear();
    std::size_t bytes() const; ///< memory held

private:
    unsigned char* reserve(std::size_t payloadBytes, Ref& ref);

    // Storage is cut in sections of one size; a text larger than a section gets several neighbouring ones in
    // one allocation, so that a Ref is always section number and offset (in units of four bytes).
    std::vector<std::unique_ptr<unsigned char[]>> blocks_;
    std::vector<unsigned char*> sections_;
    std::size_t used_ = 0; ///< bytes used in the last section
    CompactBuilder scratch_;
};

} // namespace text
