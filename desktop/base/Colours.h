// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QColor>
#include <cstdint>

namespace desktop {

/// Colours of the program's own kind (0x00BBGGRR) and those of the widgets.
QColor ToQColor(std::uint32_t colour);
std::uint32_t ToColour(const QColor& colour);

/// Between two colours: `part` 0 is the first, 1 the second.
QColor Mixed(const QColor& first, const QColor& second, double part);

/// Colours of text are chosen for white paper: on a dark `background` one that could hardly be read becomes
/// as light as needed, with the same hue. On a light one it stays.
QColor ReadableOn(const QColor& background, const QColor& colour);

/// A text's colour (0x00BBGGRR) as it is painted. Black is the colour of text that has none of its own: it
/// gives an invalid colour, and the palette's is taken.
QColor TextColour(std::uint32_t colour, const QColor& background);

} // namespace desktop
