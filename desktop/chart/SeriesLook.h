// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QBrush>
#include <QColor>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <cstddef>

class QPainter;

namespace desktop {

/// How a series is told from the others: by colours that people without full colour vision can tell apart,
/// too, and by what doesn't depend on colour at all: the shape of its points and dashes, the pattern of its
/// faces.
struct SeriesLook {
    QColor colour;
    QBrush fill;  ///< of a face
    QPen outline; ///< of a face
    QPen line;
    int shape = 0; ///< of its points
};

/// The look of a series by its number from 0.
SeriesLook LookOf(std::size_t series, const QPalette& palette);

/// Draws the mark of one value.
void PaintPoint(QPainter& painter, const SeriesLook& look, QPointF place, double size);
/// Draws a face in the look's colour and pattern; `lightness` 100 is the colour itself, more is lighter.
void PaintFace(QPainter& painter, const SeriesLook& look, const QPolygonF& face, int lightness = 100);

} // namespace desktop
