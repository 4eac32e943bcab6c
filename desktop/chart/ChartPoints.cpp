// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/SeriesLook.h"
#include <QPainter>
#include <cmath>
#include <vector>

namespace desktop {

namespace {

constexpr double kPointSize = 3.5, kSmallSize = 1.5;
constexpr std::size_t kManyPoints = 2000; ///< from which on they are drawn small

/// Tells the places of a plane that have a point already.
class Places {
public:
    Places(const QRectF& plane, double size)
        : plane_(plane), size_(size), width_(static_cast<std::size_t>(plane.width() / size) + 1),
          taken_(width_ * (static_cast<std::size_t>(plane.height() / size) + 1)) {}

    /// True when the point is inside the plane and nothing is there yet.
    bool Take(QPointF place) {
        if (!plane_.contains(place))
            return false;
        const auto x = static_cast<std::size_t>((place.x() - plane_.left()) / size_);
        const auto y = static_cast<std::size_t>((place.y() - plane_.top()) / size_);
        const std::size_t number = y * width_ + x;
        if (number >= taken_.size() || taken_[number])
            return false;
        taken_[number] = true;
        return true;
    }

private:
    QRectF plane_;
    double size_;
    std::size_t width_;
    std::vector<bool> taken_;
};

} // namespace

void PaintPoints(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout) {
    const auto& series = picture.table->series;
    const double size = picture.table->rows > kManyPoints ? kSmallSize : kPointSize;
    for (std::size_t i = FirstDrawn(picture); i < series.size(); ++i) {
        const SeriesLook look = LookOf(i, picture.palette);
        Places places(layout.front.adjusted(-1, -1, 1, 1), size);
        for (std::size_t row = 0; row < series[i].values.size(); ++row) {
            const double x = XOf(picture, row), y = series[i].values[row];
            if (std::isnan(x) || std::isnan(y))
                continue;
            const QPointF place = layout.At(x, y);
            if (places.Take(place))
                PaintPoint(painter, look, place, size);
        }
    }
}

} // namespace desktop
