// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/StringPool.h"
#include <QString>
#include <QStringView>

namespace desktop {

/// What a cell of one line shows of a text: line ends and other control characters as blanks, and at most its
/// first 300 units, so that laying out a cell doesn't depend on how long a value is.
QString OneLine(text::CompactView text);
QString OneLine(QStringView text);
/// The same for a file name, whose end says the most: a long one loses its middle, with "..." in its place.
QString OneLineName(const QString& name);

} // namespace desktop
