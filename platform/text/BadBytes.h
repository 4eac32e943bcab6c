// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// UTF-8 with bytes that aren't: each of them is a character of its own in the text, from a range of private
// characters that the file itself doesn't use, and is that byte again when the text is written.
namespace text {

struct BadBytes {
    qsizetype sequences = 0; ///< well-formed ones of several bytes
    qsizetype errors = 0;    ///< places where there is none
    qsizetype bytes = 0;     ///< in these
    qsizetype first = -1;    ///< place of the first such byte
};
BadBytes CountBadBytes(QByteArrayView bytes);

/// The character for the byte 0x80, of a range that isn't in the bytes; 0 where they use all of them.
char32_t FreeRange(QByteArrayView bytes);
/// Well-formed UTF-8 (quirk 40), with the characters of the range in the place of bad bytes.
QByteArray Mended(QByteArrayView bytes, char32_t range);
/// The reverse.
QByteArray Unmended(const QByteArray& bytes, char32_t range);
/// The place of the first character of the range; -1 without one.
qsizetype FirstOfRange(const QString& text, char32_t range);

} // namespace text
