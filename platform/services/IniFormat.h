// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QSettings>

namespace services {

/// How the settings file is written: "[section]" and "key=value" lines in UTF-8. In names and values a
/// backslash leads "\n", "\r", "\\" or "\uXXXX" (a 16-bit unit), so that any text can be written; blanks at
/// the ends of a value are written so too, because a reader may have put blanks around the "=". Where a key
/// stands twice the first counts. Lines that are no pair are passed over.
/// The library's own format would read a "," or ";" in a value as something else.
QSettings::Format IniFormat();

} // namespace services
