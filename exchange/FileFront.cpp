// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FileFront.h"
#include <algorithm>

namespace exchange {

namespace {

// Encodings of two and four bytes a character: by their marks, or by the zeros of plain letters.
bool HasWideMark(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") ||
           bytes.startsWith(QByteArrayView("\0\0\xFE\xFF", 4));
}
bool LooksWide(const QByteArray& bytes) {
    return bytes.left(8).contains('\0');
}

bool HasFourBytes(const QByteArray& bytes) {
    return bytes.startsWith(QByteArrayView("\xFF\xFE\0\0", 4)) ||
           bytes.startsWith(QByteArrayView("\0\0", 2)) || bytes.mid(1, 3) == QByteArrayView("\0\0\0", 3);
}

// Two units may be one character, and the first of them tells so.
QByteArray WithoutCutPair(QByteArray bytes) {
    if (bytes.isEmpty() || HasFourBytes(bytes))
        return bytes;
    const bool bigEnd = bytes.startsWith("\xFE\xFF") || bytes.startsWith('\0');
    const auto high = static_cast<unsigned char>(bytes[bytes.size() - (bigEnd ? 2 : 1)]);
    constexpr unsigned char kMask = 0xFC, kHighSurrogate = 0xD8;
    if ((high & kMask) == kHighSurrogate)
        bytes.chop(2);
    return bytes;
}

/// How many bytes of a character follow on this one in UTF-8.
int BytesBehind(unsigned char lead) {
    return lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
}

// The last character goes if it isn't whole.
QByteArray WithoutCutCharacter(QByteArray bytes) {
    constexpr int kLongest = 4;
    for (int behind = 0; behind < std::min<qsizetype>(kLongest, bytes.size()); ++behind) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - 1 - behind]);
        if ((byte & 0xC0) == 0x80)
            continue; // one that follows
        if (BytesBehind(byte) > behind)
            bytes.chop(behind + 1);
        break;
    }
    return bytes;
}

QByteArray CutAsWide(const QByteArray& front) {
    constexpr qsizetype kWideUnit = 4;
    return WithoutCutPair(front.left(front.size() / kWideUnit * kWideUnit));
}

QByteArray CutAsBytes(const QByteArray& front) {
    const qsizetype end = std::max(front.lastIndexOf('\n'), front.lastIndexOf('\r'));
    return end > 0 ? front.left(end + 1) : WithoutCutCharacter(front);
}

} // namespace

text::Decoded DecodeFront(const QByteArray& front) {
    if (HasWideMark(front))
        return text::Decode(CutAsWide(front));
    if (LooksWide(front)) {
        text::Decoded read = text::Decode(CutAsWide(front));
        if (read.warning.isEmpty())
            return read;
    }
    return text::Decode(CutAsBytes(front));
}

// Where characters end depends on the encoding: one byte less is tried after the other.
std::optional<text::Decoded> DecodeFrontAs(const QByteArray& front, const QString& label) {
    constexpr int kLongest = 8; // bytes of a character in any encoding
    if (!text::KnowsEncoding(label))
        return std::nullopt;
    std::optional<text::Decoded> read = text::DecodeAs(CutAsBytes(front), label);
    for (int cut = 0; cut < kLongest && !read; ++cut)
        read = text::DecodeAs(front.chopped(cut), label);
    return read;
}

bool LooksBinary(const text::LongText& text) {
    constexpr qsizetype kOneIn = 20;
    text::LongText::Reader reader(text);
    if (!reader.next())
        return false;
    const QStringView piece = reader.piece();
    const auto isOdd = [](QChar unit) {
        return unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r' && unit != u'\f';
    };
    return std::count_if(piece.begin(), piece.end(), isOdd) * kOneIn > piece.size();
}

} // namespace exchange
