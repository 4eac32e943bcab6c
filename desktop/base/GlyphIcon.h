// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QIcon>
#include <QPalette>
#include <QString>

namespace desktop {

/// How much of a picture is left on what can't be chosen. A style's own way greys pictures, which changes
/// nothing on the grey ones of dark themes.
inline constexpr double kDisabledOpacity = 0.35;

/// What stands around a sign.
enum class GlyphFrame { Square, Round, Sheet, None };

/// What is drawn for one picture. Some signs are drawn by lines: "<>", "</>" and those of a title's buttons,
/// "minimise", "restore" and "close".
struct Glyph {
    QString sign;
    GlyphFrame frame = GlyphFrame::Square;
    QPalette::ColorRole role = QPalette::Text; ///< colour of frame and sign
    bool open = false;                         ///< the frame is filled
    bool plus = false;                         ///< with a plus: what makes a new one
};

/// Its icon: sharp at any size, in the colours of the palette in force.
QIcon MakeIcon(const Glyph& glyph);

} // namespace desktop
