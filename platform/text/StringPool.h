// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/CompactText.h"
#include <QString>
#include <QStringView>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace text {

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
