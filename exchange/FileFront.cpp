// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FileFront.h"
#include <algorithm>

namespace exchange {

namespace {

// Encodings of two and four bytes a character: by their marks, or by the zeros of plain letters.
bool IsWide(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") || bytes.left(8).contains('\0');
}

// A character may have four bytes, of which only the first tells that others follow.
QByteArray WithoutCutCharacter(QByteArray bytes) {
    constexpr int kLongest = 4;
    for (int i = 0; i < kLongest && !bytes.isEmpty() && (bytes.back() & 0x80) != 0; ++i)
        bytes.chop(1);
    return bytes;
}

} // namespace

QByteArray WholeLines(const QByteArray& front) {
    constexpr qsizetype kWideUnit = 4;
    if (IsWide(front))
        return front.left(front.size() / kWideUnit * kWideUnit);
    const qsizetype end = std::max(front.lastIndexOf('\n'), front.lastIndexOf('\r'));
    return end > 0 ? front.left(end + 1) : WithoutCutCharacter(front);
}

} // namespace exchange
