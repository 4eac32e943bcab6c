// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <optional>

namespace text {

/// An encoding that can be read and written.
struct Encoding {
    enum class Kind { Utf7, Utf8, Utf16Le, Utf16Be, Latin1, Ascii, Other };
    Kind kind = Kind::Utf8;
    QByteArray name; ///< what FindEncoding finds again; for Other also what the system's converter calls it
    bool needsByteOrderMark = false; ///< without one the byte order would stay open
    bool byteCompatible = true;      ///< ASCII characters are single bytes of the same value
};

/// The encoding behind a label, in any case; nothing for an unknown label.
std::optional<Encoding> FindEncoding(const QString& label);
/// The encoding of the user's locale, when it isn't one that is tried anyway.
std::optional<Encoding> LocaleEncoding();
/// The byte-order mark in this encoding, which must be one of Unicode's.
QByteArray ByteOrderMarkIn(const Encoding& encoding);
/// Whether both are the same encoding, whatever the byte order.
bool SameButForByteOrder(const Encoding& a, const Encoding& b);

} // namespace text
