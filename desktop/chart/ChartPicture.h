// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/Scale.h"
#include "desktop/chart/Thinning.h"
#include "platform/controls/Chart.h"
#include <QFont>
#include <QPalette>
#include <QRectF>

namespace desktop {

/// What a chart's drawing depends on.
struct ChartPicture {
    const controls::ChartTable* table; ///< not null
    int type = controls::ch2dBar;
    bool legend = true;
    Extent view{0, 1}; ///< the part of the whole width that is shown
    QPalette palette;
    QFont font;
};

enum class ChartForm { Bars, Lines, Areas, Steps, Combination, Pie, Points };
ChartForm FormOf(int type);
bool IsSolid(int type); ///< drawn with depth

/// One value under the pointer or in the legend.
struct Slice {
    QString name;
    double value;
};

/// Where the parts of a chart stand.
struct ChartLayout {
    QRectF whole;
    QRectF front;  ///< the plane of the axes; a pie's square
    QPointF depth; ///< from the front plane to the back one; null in a flat chart
    QRectF legend; ///< empty without one
    Scale x, y;
    Visible visible;
    double labelHeight = 0;

    /// The place of a value; `z` is 0 in front and 1 in the back.
    QPointF At(double xValue, double yValue, double z = 0) const {
        return {front.left() + x.Part(xValue) * front.width() + z * depth.x(),
                front.bottom() - y.Part(yValue) * front.height() + z * depth.y()};
    }
};

/// Lays a chart out in a rectangle, both in the painter's units.
ChartLayout LayChart(const ChartPicture& picture, const QRectF& whole);

/// The series that are drawn: those of points begin behind the one that tells their x, if there are two.
std::size_t FirstDrawn(const ChartPicture& picture);
/// How many of them are bars; the rest of a combination are lines.
std::size_t BarCount(const ChartPicture& picture);
/// The place of a row on the x axis.
double XOf(const ChartPicture& picture, std::size_t row);

/// What a pie shows: the rows of the first series, or all series where there is one row. The smallest of many
/// are one.
std::vector<Slice> SlicesOf(const ChartPicture& picture);

/// The depth that a series takes up: 0 in front, 1 in the back.
Extent LaneOf(const ChartPicture& picture, std::size_t series);
/// The stretch of the x axis that a series' bar takes up in a row, from the row's place.
Extent BarPlace(const ChartPicture& picture, std::size_t series);

/// What can't be seen in a chart of this kind, for the user; empty when there is nothing of it.
QString WordOf(const ChartPicture& picture);

} // namespace desktop
