// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartAxes.h"
#include "desktop/base/Colours.h"
#include "desktop/base/OneLine.h"
#include "desktop/chart/SeriesLook.h"
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr double kGap = 5; ///< between an axis and its words
constexpr double kSwatchSize = 12;

/// Between the colours of paper and text.
QColor Inked(const QPalette& palette, double text) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), text);
}

void PaintWalls(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    const QRectF& front = layout.front;
    const QPointF& depth = layout.depth;
    painter.setPen(QPen(Inked(picture.palette, 0.25), 1));
    painter.setBrush(Inked(picture.palette, 0.02));
    painter.drawRect(front.translated(depth));
    if (depth.isNull())
        return;
    painter.setBrush(Inked(picture.palette, 0.06));
    painter.drawPolygon(QPolygonF(
        {front.topLeft(), front.topLeft() + depth, front.bottomLeft() + depth, front.bottomLeft()}));
    painter.setBrush(Inked(picture.palette, 0.10));
    painter.drawPolygon(QPolygonF(
        {front.bottomLeft(), front.bottomLeft() + depth, front.bottomRight() + depth, front.bottomRight()}));
}

void PaintHeights(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    const QRectF& front = layout.front;
    for (const Tick& tick : layout.y.ticks) {
        const QPointF place = layout.At(layout.x.low, tick.place);
        painter.setPen(QPen(Inked(picture.palette, tick.place == 0 ? 0.5 : 0.15), 1));
        const QPointF back = place + layout.depth;
        painter.drawPolyline(QPolygonF({place, back, back + QPointF(front.width(), 0)}));
        painter.setPen(picture.palette.color(QPalette::Text));
        painter.drawText(QRectF(layout.whole.left(), place.y() - layout.labelHeight,
                                place.x() - kGap - layout.whole.left(), 2 * layout.labelHeight),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, tick.label);
    }
}

void PaintCategories(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    if (layout.x.ticks.empty())
        return;
    const QFontMetricsF font(picture.font);
    const double room = layout.front.width() / static_cast<double>(layout.x.ticks.size());
    for (const Tick& tick : layout.x.ticks) {
        const QPointF place(layout.At(tick.place, 0).x(), layout.front.bottom());
        painter.setPen(QPen(Inked(picture.palette, 0.4), 1));
        painter.drawLine(place, place + QPointF(0, kGap - 1));
        painter.setPen(picture.palette.color(QPalette::Text));
        const QString label = font.elidedText(OneLine(QStringView(tick.label)), Qt::ElideRight, room);
        painter.drawText(QRectF(place.x() - room, place.y() + kGap, 2 * room, layout.labelHeight),
                         Qt::AlignCenter | Qt::TextSingleLine, label);
    }
}

void PaintEntry(QPainter& painter, const ChartPicture& picture, std::size_t number, QPointF middle) {
    const SeriesLook look = LookOf(number, picture.palette);
    const ChartForm form = FormOf(picture.type);
    const bool line =
        form == ChartForm::Lines || (form == ChartForm::Combination && number >= BarCount(picture));
    if (line && !IsSolid(picture.type)) {
        painter.setPen(look.line);
        painter.drawLine(middle - QPointF(kSwatchSize / 1.5, 0), middle + QPointF(kSwatchSize / 1.5, 0));
    }
    if ((line && !IsSolid(picture.type)) || form == ChartForm::Points)
        return PaintPoint(painter, look, middle, kSwatchSize / 4);
    QRectF swatch(0, 0, kSwatchSize, kSwatchSize);
    swatch.moveCenter(middle);
    PaintFace(painter, look, QPolygonF(swatch));
}

} // namespace

void PaintAxes(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    PaintWalls(painter, picture, layout);
    PaintHeights(painter, picture, layout);
    PaintCategories(painter, picture, layout);
}

void PaintLegend(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    if (layout.legend.isEmpty())
        return;
    QStringList names;
    const std::size_t first = FirstDrawn(picture);
    if (FormOf(picture.type) == ChartForm::Pie) {
        for (const Slice& slice : SlicesOf(picture))
            names << slice.name;
    } else {
        for (std::size_t i = first; i < picture.table->series.size(); ++i)
            names << picture.table->series[i].name;
    }
    const QFontMetricsF font(picture.font);
    const double line = layout.labelHeight * 1.25;
    const auto fitting = static_cast<qsizetype>(std::max(layout.legend.height() / line, 1.0));
    const qsizetype shown = names.size() <= fitting ? names.size() : fitting - 1;
    QRectF entry(layout.legend.topLeft(), QSizeF(layout.legend.width(), line));
    const double left = 2 * kSwatchSize - 2;
    for (qsizetype i = 0; i < std::min(shown + 1, names.size()); ++i, entry.translate(0, line)) {
        const QString name =
            i < shown ? OneLine(QStringView(names[i])) : QStringLiteral("and %1 more").arg(names.size() - i);
        if (i < shown)
            PaintEntry(painter, picture, first + static_cast<std::size_t>(i),
                       {entry.left() + kSwatchSize, entry.center().y()});
        painter.setPen(picture.palette.color(QPalette::Text));
        painter.drawText(entry.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         font.elidedText(name, Qt::ElideRight, entry.width() - left));
    }
}

} // namespace desktop
