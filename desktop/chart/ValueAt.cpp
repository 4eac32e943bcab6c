// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ValueAt.h"
#include "desktop/base/OneLine.h"
#include "desktop/chart/ChartPie.h"
#include <QLineF>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace desktop {

namespace {

constexpr double kReach = 12;               ///< how far from a point the pointer may be, in pixels
constexpr std::size_t kRowsLooked = 20'000; ///< on each side of the pointer, where they stand densely
constexpr int kDigits = 12;

QString Number(double value) {
    return QString::number(value, 'g', kDigits);
}

QString Told(const QString& category, const QString& name, double value) {
    return QStringLiteral("%1\n%2: %3")
        .arg(OneLine(QStringView(category)), OneLine(QStringView(name)), Number(value));
}

QString SliceAt(const ChartPicture& picture, const ChartLayout& layout, QPointF place) {
    const QRectF circle = PieCircle(layout);
    const QPointF from = place - circle.center();
    if (std::hypot(from.x(), from.y()) > circle.width() / 2)
        return {};
    double turn = std::atan2(from.x(), -from.y()) / (2 * std::numbers::pi);
    turn += turn < 0 ? 1 : 0;
    for (const PieSlice& slice : PieSlicesOf(picture))
        if (turn >= slice.part.low && turn < slice.part.high)
            return QStringLiteral("%1: %2 (%3%)")
                .arg(OneLine(QStringView(slice.slice.name)), Number(slice.slice.value),
                     QString::number((slice.part.high - slice.part.low) * 100, 'f', 1));
    return {};
}

struct Found {
    std::size_t series = 0, row = 0;
    double distance = 0;
};

/// Compares places of values with that of the pointer.
class Nearest {
public:
    Nearest(const ChartPicture& picture, const ChartLayout& layout, QPointF place)
        : picture_(picture), layout_(layout), place_(place) {}

    void Look(std::size_t series, std::size_t row, double x, double z) {
        const double value = picture_.table->series[series].values[row];
        if (std::isnan(value) || std::isnan(x))
            return;
        const double distance = QLineF(layout_.At(x, value, z), place_).length();
        if (distance <= kReach && (!best_ || distance < best_->distance))
            best_ = Found{series, row, distance};
    }
    std::optional<Found> Best() const { return best_; }

private:
    const ChartPicture& picture_;
    const ChartLayout& layout_;
    QPointF place_;
    std::optional<Found> best_;
};

/// The rows that stand near a place of the x axis.
std::pair<std::size_t, std::size_t> RowsNear(const ChartPicture& picture, const ChartLayout& layout,
                                             double x) {
    const double perPixel = (layout.x.high - layout.x.low) / layout.front.width();
    const double reach = std::min(std::max(1.0, kReach * perPixel), static_cast<double>(kRowsLooked));
    const double count = static_cast<double>(picture.table->rows);
    return {static_cast<std::size_t>(std::clamp(std::floor(x - reach), 0.0, count)),
            static_cast<std::size_t>(std::clamp(std::ceil(x + reach) + 1, 0.0, count))};
}

/// The bar over a place of the front plane: the pointer may stand anywhere above or below its value.
QString BarAt(const ChartPicture& picture, double x) {
    const double row = std::round(x);
    if (row < 0 || row >= static_cast<double>(picture.table->rows))
        return {};
    const auto number = static_cast<std::size_t>(row);
    for (std::size_t series = 0; series < BarCount(picture); ++series) {
        const Extent place = BarPlace(picture, series);
        const double value = picture.table->series[series].values[number];
        if (x >= row + place.low && x < row + place.high && !std::isnan(value))
            return Told(picture.table->category(number), picture.table->series[series].name, value);
    }
    return {};
}

} // namespace

QString ValueAt(const ChartPicture& picture, const ChartLayout& layout, QPointF place) {
    if (picture.table->series.empty())
        return {};
    if (FormOf(picture.type) == ChartForm::Pie)
        return SliceAt(picture, layout, place);
    Nearest nearest(picture, layout, place);
    const bool byValue = FirstDrawn(picture) > 0;
    for (std::size_t series = std::max(FirstDrawn(picture), BarCount(picture));
         series < picture.table->series.size(); ++series) {
        const double z = LaneOf(picture, series).low;
        const double x =
            layout.x.ValueAt((place.x() - z * layout.depth.x() - layout.front.left()) / layout.front.width());
        const auto [first, end] = byValue ? std::pair<std::size_t, std::size_t>(0, picture.table->rows)
                                          : RowsNear(picture, layout, x);
        for (std::size_t row = first; row < end; ++row)
            nearest.Look(series, row, XOf(picture, row), z);
    }
    if (const auto best = nearest.Best())
        return Told(picture.table->category(best->row), picture.table->series[best->series].name,
                    picture.table->series[best->series].values[best->row]);
    const QPointF inFront = place - LaneOf(picture, 0).low * layout.depth;
    const double x = layout.x.ValueAt((inFront.x() - layout.front.left()) / layout.front.width());
    return layout.front.contains(inFront) ? BarAt(picture, x) : QString();
}

} // namespace desktop
