// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QColor>
#include <cstdint>

namespace desktop {

/// A text's colour (0x00BBGGRR) as it is painted. Black is the colour of text that has none of its own: it
/// gives an invalid colour, and the palette's is taken. Colours are chosen for white paper: on a dark
/// `background` one that could hardly be read becomes as light as needed, with the same hue.
QColor ShownColour(std::uint32_t colour, const QColor& background);

} // namespace desktop
