// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/SeriesLook.h"
#include "desktop/base/Colours.h"
#include <QPainter>
#include <QPolygonF>
#include <array>

namespace desktop {

namespace {

// Okabe and Ito's colours, whose lightness differs as well. The eighth is the text's own.
constexpr std::array<QRgb, 7> kColours{0xFF0072B2, 0xFFE69F00, 0xFF009E73, 0xFFCC79A7,
                                       0xFF56B4E9, 0xFFD55E00, 0xFFF0E442};
constexpr std::array kPatterns{Qt::SolidPattern,     Qt::BDiagPattern, Qt::Dense5Pattern, Qt::HorPattern,
                               Qt::DiagCrossPattern, Qt::FDiagPattern, Qt::VerPattern};
constexpr std::array kDashes{Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine};
constexpr int kShapes = 6;
constexpr double kLineWidth = 1.6;

QPolygonF Shape(int shape, QPointF place, double r) {
    const double x = place.x(), y = place.y();
    switch (shape) {
    case 1:
        return QPolygonF(QRectF(x - r, y - r, 2 * r, 2 * r));
    case 2:
        return {{{x, y - r}, {x + r, y + r}, {x - r, y + r}}};
    case 3:
        return {{{x, y - 1.3 * r}, {x + 1.3 * r, y}, {x, y + 1.3 * r}, {x - 1.3 * r, y}}};
    case 4:
        return {{{x, y + r}, {x + r, y - r}, {x - r, y - r}}};
    default: // an hourglass
        return {{{x - r, y - r}, {x + r, y - r}, {x - r, y + r}, {x + r, y + r}}};
    }
}

} // namespace

SeriesLook LookOf(std::size_t series, const QPalette& palette) {
    SeriesLook look;
    const std::size_t number = series % (kColours.size() + 1);
    const QColor text = palette.color(QPalette::Text);
    look.colour = number < kColours.size() ? QColor::fromRgba(kColours[number]) : text;
    look.fill = QBrush(look.colour, kPatterns[series % kPatterns.size()]);
    look.outline = QPen(look.colour.darker(130), 1);
    // A line has nothing around it that it could stand out from.
    const bool light = palette.color(QPalette::Base).lightness() > 128;
    look.line = QPen(light && look.colour.lightness() > 140 ? look.colour.darker(125) : look.colour,
                     kLineWidth, kDashes[series / (kColours.size() + 1) % kDashes.size()]);
    look.shape = static_cast<int>(series % kShapes);
    return look;
}

void PaintPoint(QPainter& painter, const SeriesLook& look, QPointF place, double size) {
    painter.setPen(look.outline);
    painter.setBrush(look.colour);
    if (look.shape == 0)
        painter.drawEllipse(place, size, size);
    else
        painter.drawPolygon(Shape(look.shape, place, size));
}

void PaintFace(QPainter& painter, const SeriesLook& look, const QPolygonF& face, int lightness) {
    painter.setPen(look.outline);
    // The gaps of a pattern show the same colour, paler, and not what stands behind.
    if (look.fill.style() != Qt::SolidPattern) {
        painter.setBrush(look.colour.lighter(lightness + 50));
        painter.drawPolygon(face);
    }
    QBrush brush = look.fill;
    brush.setColor(look.colour.lighter(lightness));
    painter.setBrush(brush);
    painter.drawPolygon(face);
}

} // namespace desktop
