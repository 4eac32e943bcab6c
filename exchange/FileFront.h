// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QByteArray>

namespace exchange {

/// The beginning of a file without its last line, which is cut off somewhere: the rest can be decoded. One
/// without a line end loses no more than the last character.
QByteArray WholeLines(const QByteArray& front);

/// Whether the beginning of a text, as it was read, has so many characters that no text has that its file is
/// something else.
bool LooksBinary(const text::LongText& text);

} // namespace exchange
