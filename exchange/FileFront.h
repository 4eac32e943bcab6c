// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>

namespace exchange {

/// The beginning of a file without its last line, which is cut off somewhere: the rest can be decoded. One
/// without a line end loses no more than the last character.
QByteArray WholeLines(const QByteArray& front);

} // namespace exchange
