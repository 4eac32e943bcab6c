// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/ChartAxes.h"
#include <QPainter>
#include <QPainterPath>

namespace desktop {

namespace {

/// The front plane and what stands behind it.
QPainterPath Inside(const ChartLayout& layout) {
    const QRectF& front = layout.front;
    const QPointF& depth = layout.depth;
    QPainterPath path;
    path.addPolygon(
        QPolygonF({front.bottomLeft(), front.topLeft(), front.topLeft() + depth, front.topRight() + depth,
                   front.bottomRight() + depth, front.bottomRight(), front.bottomLeft()}));
    return path;
}

void PaintWord(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    painter.setPen(picture.palette.color(QPalette::PlaceholderText));
    painter.drawText(layout.whole, Qt::AlignCenter | Qt::TextWordWrap,
                     picture.table->rows > 0 ? QStringLiteral("There are no numbers in these cells.")
                                             : QStringLiteral("Select cells to draw their numbers."));
}

} // namespace

void PaintChart(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    painter.save();
    painter.setFont(picture.font);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(layout.whole, picture.palette.color(QPalette::Base));
    if (picture.table->series.empty()) {
        PaintWord(painter, picture, layout);
        painter.restore();
        return;
    }
    if (FormOf(picture.type) == ChartForm::Pie) {
        PaintPie(painter, picture, layout);
    } else {
        PaintAxes(painter, picture, layout);
        painter.save();
        painter.setClipPath(Inside(layout));
        PaintBars(painter, picture, layout);
        if (FormOf(picture.type) == ChartForm::Points)
            PaintPoints(painter, picture, layout);
        else
            PaintLines(painter, picture, layout);
        painter.restore();
    }
    PaintLegend(painter, picture, layout);
    painter.restore();
}

} // namespace desktop
