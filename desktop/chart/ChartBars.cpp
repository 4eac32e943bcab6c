// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/SeriesLook.h"
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr double kLeastWidth = 1;    ///< of a bar, in pixels
constexpr double kOutlinedWidth = 4; ///< narrower bars are faces alone
constexpr int kTopLightness = 130, kSideLightness = 75;

/// One bar as it is drawn.
struct Block {
    QRectF front;
    Extent lane;
};

Block BlockOf(const ChartLayout& layout, const Bar& bar, const Extent& place, const Extent& lane) {
    // A bar of one row has its own place in it, one of many takes all of their width.
    const bool single = bar.rows.high - bar.rows.low < 1.5;
    const double row = (bar.rows.low + bar.rows.high) / 2;
    const Extent x = single ? Extent{row + place.low, row + place.high} : bar.rows;
    QRectF front(layout.At(x.low, bar.value.high, lane.low), layout.At(x.high, bar.value.low, lane.low));
    front.setWidth(std::max(front.width(), kLeastWidth));
    return {front, lane};
}

/// A value with nothing in it yet has its place all the same: a bar of 0 is a line.
void PaintBlock(QPainter& painter, const ChartLayout& layout, SeriesLook look, const Block& block) {
    const QRectF& front = block.front;
    if (front.width() < kOutlinedWidth) {
        look.outline = QPen(Qt::NoPen);
        look.fill.setStyle(Qt::SolidPattern);
    }
    const QPointF back = layout.depth * (block.lane.high - block.lane.low);
    if (!back.isNull()) {
        PaintFace(
            painter, look,
            QPolygonF({front.topLeft(), front.topLeft() + back, front.topRight() + back, front.topRight()}),
            kTopLightness);
        PaintFace(painter, look,
                  QPolygonF({front.topRight(), front.topRight() + back, front.bottomRight() + back,
                             front.bottomRight()}),
                  kSideLightness);
    }
    PaintFace(painter, look, QPolygonF(front));
}

} // namespace

// Solid bars cover those on their left behind them: row after row, and in a row series after series.
void PaintBars(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    struct Placed {
        double left;
        std::size_t series;
        Block block;
    };
    std::vector<Placed> all;
    for (std::size_t series = 0; series < BarCount(picture); ++series) {
        const Extent place = BarPlace(picture, series), lane = LaneOf(picture, series);
        for (const Bar& bar : BarsOf(picture.table->series[series].values, layout.visible))
            all.push_back({bar.rows.low, series, BlockOf(layout, bar, place, lane)});
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Placed& a, const Placed& b) { return a.left < b.left; });
    std::vector<SeriesLook> looks;
    for (std::size_t series = 0; series < BarCount(picture); ++series)
        looks.push_back(LookOf(series, picture.palette));
    for (const Placed& placed : all)
        PaintBlock(painter, layout, looks[placed.series], placed.block);
}

} // namespace desktop
