// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/OneLine.h"
#include "desktop/chart/ChartPicture.h"
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double kMargin = 8;
constexpr double kLegendPart = 0.3;         ///< of the width, at most
constexpr double kSwatch = 26;              ///< the legend's room beside its names
constexpr double kDepthPart = 0.12;         ///< of the width or height, whichever is smaller
constexpr double kMarkRoom = 0.03;          ///< of what the points take up
constexpr double kLeastFront = 20;          ///< less isn't drawn in
constexpr std::size_t kMostPoints = 60'000; ///< in one picture; what's more costs time and shows nothing
constexpr std::size_t kNamesMeasured = 40;

int Rounded(double pixels) {
    return static_cast<int>(std::clamp(pixels, 1.0, 1e6));
}

QStringList LegendNames(const ChartPicture& picture) {
    QStringList names;
    if (FormOf(picture.type) == ChartForm::Pie) {
        for (const Slice& slice : SlicesOf(picture))
            names << slice.name;
        return names;
    }
    const auto& series = picture.table->series;
    for (std::size_t i = FirstDrawn(picture); i < std::min(series.size(), kNamesMeasured); ++i)
        names << series[i].name;
    return names;
}

double LegendWidth(const ChartPicture& picture, const QFontMetricsF& font, double whole) {
    if (!picture.legend || picture.table->series.empty())
        return 0;
    double width = 0;
    for (const QString& name : LegendNames(picture))
        width = std::max(width, font.horizontalAdvance(OneLine(QStringView(name))));
    return std::min(width + kSwatch, whole * kLegendPart);
}

/// Points are marks: they need room beside the outermost.
Extent WithRoomForMarks(const Extent& extent) {
    const double room = (extent.high / 2 - extent.low / 2) * 2 * kMarkRoom;
    return {extent.low - room, extent.high + room};
}

/// The whole x axis, of which the picture shows a part.
Extent WholeWidth(const ChartPicture& picture) {
    const controls::ChartTable& table = *picture.table;
    if (FormOf(picture.type) != ChartForm::Points)
        return {-0.5, static_cast<double>(table.rows) - 0.5};
    if (FirstDrawn(picture) == 0)
        return {-0.5, static_cast<double>(table.rows) - 0.5};
    const Extent all = ExtentOf(table.series.front().values, {0, static_cast<double>(table.rows)});
    const Scale scale = ValueScale(WithRoomForMarks(all), 10, true);
    return {scale.low, scale.high};
}

Extent Shown(const ChartPicture& picture) {
    const Extent whole = WholeWidth(picture);
    const double width = whole.high - whole.low;
    return {whole.low + picture.view.low * width, whole.low + picture.view.high * width};
}

/// The values that stand in the rows shown; with 0 where something stands on it.
Extent Heights(const ChartPicture& picture, const Extent& rows) {
    const auto& series = picture.table->series;
    Extent all{1, 0};
    for (std::size_t i = FirstDrawn(picture); i < series.size(); ++i) {
        const Extent one = ExtentOf(series[i].values, rows);
        if (one.low <= one.high)
            all = all.low > all.high ? one : Extent{std::min(all.low, one.low), std::max(all.high, one.high)};
    }
    if (all.low > all.high)
        return {0, 1};
    const ChartForm form = FormOf(picture.type);
    if (form == ChartForm::Points)
        return WithRoomForMarks(all);
    return form == ChartForm::Lines ? all : Extent{std::min(all.low, 0.0), std::max(all.high, 0.0)};
}

QPointF DepthOf(const ChartPicture& picture, const QRectF& area) {
    const double depth = std::min(area.width(), area.height()) * kDepthPart;
    return IsSolid(picture.type) ? QPointF(depth * 1.2, -depth) : QPointF();
}

double WidestLabel(const Scale& scale, const QFontMetricsF& font) {
    double width = 0;
    for (const Tick& tick : scale.ticks)
        width = std::max(width, font.horizontalAdvance(tick.label));
    return width;
}

/// The x axis, with as many marks as there is room for their words.
Scale XScale(const ChartPicture& picture, const Extent& shown, double width, const QFontMetricsF& font) {
    int ticks = Rounded(width / (font.averageCharWidth() * 8));
    Scale scale;
    for (int tries = 0; tries < 4; ++tries) {
        scale = FirstDrawn(picture) > 0
                    ? ValueScale(shown, ticks, false)
                    : CategoryScale(shown, picture.table->rows, ticks, picture.table->category);
        const double wanted = std::min(WidestLabel(scale, font), width / 3) + font.averageCharWidth() * 2;
        if (wanted * static_cast<double>(scale.ticks.size()) <= width || ticks <= 1)
            break;
        ticks = std::max(1, ticks / 2);
    }
    return scale;
}

/// Takes the legend off the right side of what is left for the chart.
QRectF LayLegend(ChartLayout& layout, const ChartPicture& picture, const QFontMetricsF& font) {
    QRectF area = layout.whole.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const double width = LegendWidth(picture, font, area.width());
    if (width > 0) {
        layout.legend = QRectF(area.right() - width, area.top(), width, area.height());
        area.setRight(layout.legend.left() - kMargin);
    }
    return area;
}

void LayAxes(ChartLayout& layout, const ChartPicture& picture, QRectF area, const QFontMetricsF& font) {
    const Extent shown = Shown(picture);
    const Extent rows = FirstDrawn(picture) > 0 ? Extent{0, static_cast<double>(picture.table->rows)} : shown;
    layout.depth = DepthOf(picture, area);
    area.adjust(0, font.height() / 2 - layout.depth.y(), -layout.depth.x(), -font.height() * 1.4);
    layout.y = ValueScale(Heights(picture, rows), Rounded(area.height() / (font.height() * 2.2)), true);
    area.setLeft(area.left() + WidestLabel(layout.y, font) + kMargin);
    layout.front = QRectF(area.topLeft(),
                          QSizeF(std::max(area.width(), kLeastFront), std::max(area.height(), kLeastFront)));
    layout.x = XScale(picture, shown, layout.front.width(), font);
    const std::size_t series = std::max<std::size_t>(picture.table->series.size(), 1);
    const double columns = std::min(layout.front.width(), static_cast<double>(kMostPoints / series));
    layout.visible = {rows, Rounded(columns)};
}

} // namespace

ChartLayout LayChart(const ChartPicture& picture, const QRectF& whole) {
    const QFontMetricsF font(picture.font);
    ChartLayout layout;
    layout.whole = whole;
    layout.labelHeight = font.height();
    const QRectF area = LayLegend(layout, picture, font);
    if (FormOf(picture.type) != ChartForm::Pie) {
        LayAxes(layout, picture, area, font);
        return layout;
    }
    const double size = std::max(std::min(area.width(), area.height()), kLeastFront);
    layout.front = QRectF(area.center() - QPointF(size, size) / 2, QSizeF(size, size));
    return layout;
}

} // namespace desktop
