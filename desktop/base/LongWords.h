// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace desktop {

/// The text with places to break, which have no width, in words that are longer than a line: a widget that
/// wraps its text at blanks alone would become as wide as they are.
QString WithBreaksInLongWords(const QString& text);

} // namespace desktop
