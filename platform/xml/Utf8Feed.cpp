// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/Utf8Feed.h"
#include <cstring>

namespace xml {

namespace {

constexpr int kBlock = 16;

/// Copies one block if all of it is ASCII without U+0000.
bool CopyAsciiBlock(const char16_t* from, char* to) {
    char16_t units[kBlock];
    std::memcpy(units, from, sizeof units);
    unsigned seen = 0;
    for (int i = 0; i < kBlock; ++i)
        seen |= units[i] | static_cast<char16_t>(units[i] - 1); // U+0000 less one has high bits
    if (seen >= 0x80)
        return false;
    char bytes[kBlock];
    for (int i = 0; i < kBlock; ++i)
        bytes[i] = static_cast<char>(units[i]);
    std::memcpy(to, bytes, sizeof bytes);
    return true;
}

char* Put(char* out, char32_t lead, char32_t code, int following) {
    *out++ = static_cast<char>(lead | (code >> (6 * following)));
    while (following-- > 0)
        *out++ = static_cast<char>(0x80U | ((code >> (6 * following)) & 0x3FU));
    return out;
}

} // namespace

int Utf8Feed::read(char* out, int room) {
    if (!declared_ && room >= static_cast<int>(kDeclaration.size())) {
        declared_ = true;
        std::memcpy(out, kDeclaration.data(), kDeclaration.size());
        return static_cast<int>(kDeclaration.size());
    }
    return convert(out, room);
}

int Utf8Feed::convert(char* out, int room) {
    constexpr int kLongest = 4;
    char* to = out;
    const char* end = out + room;
    const char16_t* units = text_.utf16();
    while (next_ < text_.size() && end - to >= kLongest) {
        while (text_.size() - next_ >= kBlock && end - to >= kBlock && CopyAsciiBlock(units + next_, to)) {
            next_ += kBlock;
            to += kBlock;
        }
        // A while of single steps before the next try with a block: other scripts rarely come alone.
        for (int i = 0; i < kBlock && next_ < text_.size() && end - to >= kLongest; ++i)
            to = convertOther(to);
    }
    return static_cast<int>(to - out);
}

char* Utf8Feed::convertOther(char* out) {
    const char16_t unit = text_[next_].unicode();
    ++next_;
    if (unit > 0 && unit < 0x80) {
        *out = static_cast<char>(unit);
        return out + 1;
    }
    if (unit != 0 && unit < 0x800)
        return Put(out, 0xC0, unit, 1);
    if (unit != 0 && !QChar::isSurrogate(unit) && unit < 0xFFFE)
        return Put(out, 0xE0, unit, 2);
    if (QChar::isHighSurrogate(unit) && next_ < text_.size() && text_[next_].isLowSurrogate()) {
        const char32_t code = QChar::surrogateToUcs4(unit, text_[next_].unicode());
        ++next_;
        return Put(out, 0xF0, code, 3);
    }
    badPlace_ = next_ - 1;
    stop();
    *out = '\x01';
    return out + 1;
}

qsizetype Utf8Feed::place(unsigned long byte) const {
    if (byte < kDeclaration.size())
        return start_;
    unsigned long left = byte - kDeclaration.size();
    qsizetype at = start_;
    while (left > 0 && at < text_.size()) {
        const char16_t unit = text_[at].unicode();
        unsigned long width = unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
        qsizetype units = 1;
        if (at == badPlace_) {
            width = 1;
        } else if (QChar::isHighSurrogate(unit)) {
            width = 4;
            units = 2;
        }
        left -= std::min(left, width);
        at += units;
    }
    return std::min(at, text_.size());
}

} // namespace xml
