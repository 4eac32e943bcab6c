// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/TextFile.h"
#include <QByteArray>
#include <optional>

namespace exchange {

/// The beginning of a file, which is cut off somewhere, as text: read as text::Decode reads a file, up to the
/// last whole line. One without a line end loses no more than the last character.
text::Decoded DecodeFront(const QByteArray& front);
/// The same in the encoding of a label and in no other; nothing where the bytes aren't in it.
std::optional<text::Decoded> DecodeFrontAs(const QByteArray& front, const QString& label);

/// Whether the beginning of a text, as it was read, has so many characters that no text has that its file is
/// something else.
bool LooksBinary(const text::LongText& text);

} // namespace exchange
