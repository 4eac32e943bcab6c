// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/SeriesLook.h"
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr double kPointSize = 3.5;
constexpr double kPointRoom = 12; ///< pixels between rows from which on points are marked
constexpr int kTopLightness = 130, kSideLightness = 75;
constexpr float kAreaOpacity = 0.6F, kStepOpacity = 0.25F;
constexpr std::size_t kOutlined = 400; ///< segments of a solid run; more have no outline each

bool MarksPoints(const ChartLayout& layout) {
    return layout.front.width() / std::max(layout.x.high - layout.x.low, 1.0) >= kPointRoom;
}

QPolygonF Placed(const ChartLayout& layout, const Stretch& run, double z) {
    QPolygonF line;
    for (const QPointF& point : run)
        line << layout.At(point.x(), point.y(), z);
    return line;
}

/// A run with its feet on 0.
QPolygonF Standing(const ChartLayout& layout, const Stretch& run, double z) {
    QPolygonF face = Placed(layout, run, z);
    face.prepend(layout.At(run.front().x(), 0, z));
    face.append(layout.At(run.back().x(), 0, z));
    return face;
}

// --- flat
// ---------------------------------------------------------------------------------------------------

void PaintFlatLine(QPainter& painter, const ChartLayout& layout, const SeriesLook& look, const Stretch& run) {
    const QPolygonF line = Placed(layout, run, 0);
    painter.setPen(look.line);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);
    if (MarksPoints(layout) || run.size() == 1)
        for (const QPointF& point : line)
            PaintPoint(painter, look, point, kPointSize);
}

void PaintFlatFace(QPainter& painter, const ChartLayout& layout, const SeriesLook& look, const Stretch& run,
                   float opacity) {
    QColor colour = look.colour;
    colour.setAlphaF(opacity);
    QBrush fill = look.fill;
    fill.setColor(colour);
    const QPolygonF face = Standing(layout, run, 0);
    painter.setPen(Qt::NoPen);
    colour.setAlphaF(opacity / 3);
    painter.setBrush(colour);
    painter.drawPolygon(face);
    painter.setBrush(fill);
    painter.drawPolygon(face);
    painter.setPen(look.line);
    painter.drawPolyline(Placed(layout, run, 0));
    if (run.size() == 1)
        PaintPoint(painter, look, layout.At(run.front().x(), run.front().y()), kPointSize);
}

// --- solid
// --------------------------------------------------------------------------------------------------

/// The band between a run in front and the same further back.
void PaintBand(QPainter& painter, const ChartLayout& layout, SeriesLook look, const Stretch& run,
               const Extent& lane) {
    if (run.size() > kOutlined)
        look.outline = QPen(look.colour.lighter(kTopLightness), 0);
    const QPolygonF front = Placed(layout, run, lane.low), back = Placed(layout, run, lane.high);
    for (qsizetype i = 1; i < front.size(); ++i) {
        const bool rises = front[i].y() <= front[i - 1].y();
        PaintFace(painter, look, QPolygonF({front[i - 1], back[i - 1], back[i], front[i]}),
                  rises ? 100 : kTopLightness);
    }
    if (run.size() == 1)
        PaintFace(painter, look,
                  QPolygonF({front[0], back[0], back[0] + QPointF(2, 0), front[0] + QPointF(2, 0)}));
}

/// A run that stands on 0, with its upper side and its right end.
void PaintSlab(QPainter& painter, const ChartLayout& layout, const SeriesLook& look, const Stretch& run,
               const Extent& lane) {
    const Stretch crossed = WithZeros(run);
    Stretch upper = crossed;
    for (QPointF& point : upper)
        point.setY(std::max(point.y(), 0.0));
    SeriesLook top = look;
    top.fill.setStyle(Qt::SolidPattern);
    PaintBand(painter, layout, top, upper, lane);
    const double end = crossed.back().x(), height = crossed.back().y();
    PaintFace(painter, look,
              QPolygonF({layout.At(end, height, lane.low), layout.At(end, height, lane.high),
                         layout.At(end, 0, lane.high), layout.At(end, 0, lane.low)}),
              kSideLightness);
    PaintFace(painter, look, Standing(layout, crossed, lane.low));
}

void PaintRun(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout, std::size_t series,
              const Stretch& run) {
    const SeriesLook look = LookOf(series, picture.palette);
    const Extent lane = LaneOf(picture, series);
    const ChartForm form = FormOf(picture.type);
    const bool faces = form == ChartForm::Areas || form == ChartForm::Steps;
    if (IsSolid(picture.type) && faces)
        PaintSlab(painter, layout, look, run, lane);
    else if (IsSolid(picture.type))
        PaintBand(painter, layout, look, run, lane);
    else if (faces)
        PaintFlatFace(painter, layout, look, run, form == ChartForm::Areas ? kAreaOpacity : kStepOpacity);
    else
        PaintFlatLine(painter, layout, look, run);
}

} // namespace

// The first series stands in front: the last one is drawn first where there is depth, else the order of the
// columns is that of the layers.
void PaintLines(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    const std::size_t first = BarCount(picture), count = picture.table->series.size();
    const bool steps = FormOf(picture.type) == ChartForm::Steps;
    for (std::size_t i = first; i < count; ++i) {
        const std::size_t series = IsSolid(picture.type) ? count - 1 - (i - first) : i;
        const std::vector<double>& values = picture.table->series[series].values;
        for (const Stretch& run : steps ? StepsOf(values, layout.visible) : RunsOf(values, layout.visible))
            PaintRun(painter, picture, layout, series, run);
    }
}

} // namespace desktop
