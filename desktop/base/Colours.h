// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QColor>
#include <cstdint>

namespace desktop {

/// Colours of the program's own kind (0x00BBGGRR) and those of the widgets.
QColor ToQColor(std::uint32_t colour);
std::uint32_t ToColour(const QColor& colour);

/// The colour, lightened as far as needed to be read on a dark background. On a light one it stays.
QColor ReadableOn(const QColor& background, const QColor& colour);

} // namespace desktop
