// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <optional>

namespace text {

/// A character code that can be read and written.
struct Code {
    enum class Kind { Utf7, Utf8, Utf16Le, Utf16Be, Latin1, Ascii, Other };
    Kind kind = Kind::Utf8;
    QByteArray name; ///< what FindCode finds again; for Other also what the system's converter calls it
    bool markAlways = false;    ///< without a mark the byte order would stay open
    bool byteCompatible = true; ///< ASCII characters are single bytes of the same value
};

/// The code behind a label, in any case; nothing for an unknown label.
std::optional<Code> FindCode(const QString& label);
/// The code of the user's locale, when it isn't one that is tried anyway.
std::optional<Code> LocaleCode();
/// The byte-order mark in this code, which must be one of Unicode's.
QByteArray MarkOf(const Code& code);
/// Whether both are the same code, whatever the byte order.
bool SameFamily(const Code& a, const Code& b);

} // namespace text
