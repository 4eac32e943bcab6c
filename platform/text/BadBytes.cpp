// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/BadBytes.h"
#include <QChar>
#include <algorithm>
#include <array>

namespace text {

namespace {

// The last plane is for private use, and hardly anything uses it. A range is two times 64 characters, which
// share their first three bytes.
constexpr char32_t kFirstRange = 0x10FE80;
constexpr char32_t kLastRange = 0x100000;
constexpr char32_t kRange = 0x80;
constexpr char32_t kHalf = 0x40;

unsigned At(QByteArrayView bytes, qsizetype place) {
    return place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0U;
}

/// What stands at a place: a sequence, or as much of one as is there.
struct Sequence {
    qsizetype length;
    bool good;
};

Sequence SequenceAt(QByteArrayView bytes, qsizetype place) {
    const unsigned lead = At(bytes, place);
    if (lead < 0x80)
        return {1, true};
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4)
        return {1, false};
    // Longer forms than needed, surrogates and what is beyond the last plane are told by the second byte.
    const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (int i = 1; i <= more; ++i) {
        const unsigned next = At(bytes, place + i);
        if (next < (i == 1 ? least : 0x80U) || next > (i == 1 ? most : 0xBFU))
            return {i, false};
    }
    return {more + 1, true};
}

std::array<char, 4> Utf8(char32_t character) {
    return {static_cast<char>(0xF0 | character >> 18), static_cast<char>(0x80 | (character >> 12 & 0x3F)),
            static_cast<char>(0x80 | (character >> 6 & 0x3F)), static_cast<char>(0x80 | (character & 0x3F))};
}

QByteArray Beginning(char32_t character) {
    return {Utf8(character).data(), 3};
}

} // namespace

BadBytes CountBadBytes(QByteArrayView bytes) {
    BadBytes count;
    for (qsizetype at = 0; at < bytes.size();) {
        const auto [length, good] = SequenceAt(bytes, at);
        count.sequences += good && length > 1 ? 1 : 0;
        if (!good) {
            ++count.errors;
            count.bytes += length;
            count.first = count.first < 0 ? at : count.first;
        }
        at += length;
    }
    return count;
}

char32_t FreeRange(QByteArrayView bytes) {
    for (char32_t range = kFirstRange; range >= kLastRange; range -= kRange) {
        if (!bytes.contains(Beginning(range)) && !bytes.contains(Beginning(range + kHalf)))
            return range;
    }
    return 0;
}

QByteArray Mended(QByteArrayView bytes, char32_t range) {
    QByteArray mended;
    mended.reserve(bytes.size() + bytes.size() / 64);
    for (qsizetype at = 0; at < bytes.size();) {
        const auto [length, good] = SequenceAt(bytes, at);
        if (good)
            mended.append(bytes.sliced(at, length));
        for (qsizetype bad = at; !good && bad < at + length; ++bad)
            mended.append(QByteArrayView(Utf8(range + At(bytes, bad) - 0x80)));
        at += length;
    }
    return mended;
}

QByteArray Unmended(const QByteArray& bytes, char32_t range) {
    const QByteArray low = Beginning(range), high = Beginning(range + kHalf), both = low.first(2);
    QByteArray plain;
    plain.reserve(bytes.size());
    qsizetype from = 0;
    for (qsizetype at = bytes.indexOf(both); at >= 0; at = bytes.indexOf(both, at + 1)) {
        const QByteArrayView beginning = QByteArrayView(bytes).sliced(at, low.size());
        if (beginning != low && beginning != high)
            continue;
        plain.append(bytes.constData() + from, at - from);
        const unsigned half = beginning == low ? 0x80 : 0xC0;
        plain.append(static_cast<char>(half + (At(bytes, at + 3) & 0x3F)));
        from = at + 4;
    }
    return plain.append(bytes.constData() + from, bytes.size() - from);
}

qsizetype FirstOfRange(const QString& text, char32_t range) {
    for (qsizetype at = text.indexOf(QChar(QChar::highSurrogate(range))); at >= 0 && at + 1 < text.size();
         at = text.indexOf(QChar(QChar::highSurrogate(range)), at + 1)) {
        const char32_t character = QChar::surrogateToUcs4(text[at], text[at + 1]);
        if (character >= range && character < range + kRange)
            return at;
    }
    return -1;
}

} // namespace text
