// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/Utf8Feed.h"
#include <algorithm>
#include <cstring>

namespace xml {

namespace {

constexpr int kBlock = 16;
constexpr int kLongest = 4; // bytes of a character

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
    char* to = out;
    while (!stopped_ && out + room - to >= kLongest) {
        if (at_ == piece_.size()) {
            before_ += piece_.size();
            at_ = 0;
            piece_ = {};
            if (!reader_.next())
                break;
            piece_ = reader_.piece();
        }
        to = convertPiece(to, out + room);
    }
    return static_cast<int>(to - out);
}

char* Utf8Feed::convertPiece(char* to, const char* end) {
    const char16_t* units = piece_.utf16();
    while (!stopped_ && at_ < piece_.size() && end - to >= kLongest) {
        while (piece_.size() - at_ >= kBlock && end - to >= kBlock && CopyAsciiBlock(units + at_, to)) {
            at_ += kBlock;
            to += kBlock;
        }
        // A while of single steps before the next try with a block: other scripts rarely come alone.
        for (int i = 0; i < kBlock && !stopped_ && at_ < piece_.size() && end - to >= kLongest; ++i)
            to = convertOther(to);
    }
    return to;
}

char* Utf8Feed::convertOther(char* out) {
    const char16_t unit = piece_[at_].unicode();
    ++at_;
    if (unit > 0 && unit < 0x80) {
        *out = static_cast<char>(unit);
        return out + 1;
    }
    if (unit != 0 && unit < 0x800)
        return Put(out, 0xC0, unit, 1);
    if (unit != 0 && !QChar::isSurrogate(unit) && unit < 0xFFFE)
        return Put(out, 0xE0, unit, 2);
    if (QChar::isHighSurrogate(unit) && at_ < piece_.size() && piece_[at_].isLowSurrogate()) {
        const char32_t code = QChar::surrogateToUcs4(unit, piece_[at_].unicode());
        ++at_;
        return Put(out, 0xF0, code, 3);
    }
    badPlace_ = before_ + at_ - 1;
    stop();
    *out = '\x01';
    return out + 1;
}

qsizetype Utf8Feed::place(unsigned long byte) const {
    if (byte < kDeclaration.size())
        return start_;
    unsigned long left = byte - kDeclaration.size();
    qsizetype at = start_;
    for (text::LongText::Reader reader(text_, start_); left > 0 && reader.next();) {
        const QStringView piece = reader.piece();
        for (at = reader.start(); left > 0 && at < reader.start() + piece.size();) {
            const char16_t unit = piece[at - reader.start()].unicode();
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
    }
    return std::min(at, text_.size());
}

} // namespace xml
