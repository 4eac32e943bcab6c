// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPie.h"
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/SeriesLook.h"
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace desktop {

namespace {

constexpr double kTurn = 360;
constexpr double kLabelPart = 0.04; ///< smaller slices aren't labelled
constexpr double kLabelRadius = 0.7;

QPolygonF Face(const QRectF& circle, const PieSlice& slice) {
    QPainterPath path(circle.center());
    if (slice.part.high - slice.part.low >= 1) {
        path = QPainterPath();
        path.addEllipse(circle);
    } else {
        path.arcTo(circle, 90 - slice.part.low * kTurn, -(slice.part.high - slice.part.low) * kTurn);
        path.closeSubpath();
    }
    return path.toFillPolygon();
}

/// The share of a slice, on paper of its own: patterns would make it hard to read.
void PaintShare(QPainter& painter, const ChartPicture& picture, const QRectF& circle, const PieSlice& slice) {
    const double part = slice.part.high - slice.part.low;
    if (part < kLabelPart)
        return;
    const double angle = std::numbers::pi * (slice.part.low + slice.part.high);
    const double radius = circle.width() / 2 * kLabelRadius;
    const QString share = QString::number(part * 100, 'f', part < 0.1 ? 1 : 0) + u'%';
    const QFontMetricsF font(picture.font);
    QRectF place(0, 0, font.horizontalAdvance(share) + 6, font.height());
    place.moveCenter(circle.center() + QPointF(std::sin(angle), -std::cos(angle)) * radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(picture.palette.color(QPalette::Base));
    painter.drawRoundedRect(place, 3, 3);
    painter.setPen(picture.palette.color(QPalette::Text));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, share);
}

} // namespace

std::vector<PieSlice> PieSlicesOf(const ChartPicture& picture) {
    std::vector<PieSlice> parts;
    double largest = 0, sum = 0;
    std::vector<Slice> slices = SlicesOf(picture);
    for (const Slice& slice : slices)
        largest = std::max(largest, std::min(slice.value, std::numeric_limits<double>::max()));
    // In proportion to the largest, so that the sum is finite.
    for (const Slice& slice : slices)
        sum += std::min(slice.value / largest, 1.0);
    double from = 0;
    for (Slice& slice : slices) {
        const double part = std::min(slice.value / largest, 1.0) / sum;
        parts.push_back({std::move(slice), {from, from + part}});
        from += part;
    }
    return parts;
}

QRectF PieCircle(const ChartLayout& layout) {
    return layout.front.adjusted(2, 2, -2, -2);
}

void PaintPie(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    const QRectF circle = PieCircle(layout);
    const std::vector<PieSlice> slices = PieSlicesOf(picture);
    for (std::size_t i = 0; i < slices.size(); ++i)
        PaintFace(painter, LookOf(i, picture.palette), Face(circle, slices[i]));
    for (const PieSlice& slice : slices)
        PaintShare(painter, picture, circle, slice);
}

} // namespace desktop
