// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/Scale.h"
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

// Beyond it the width of a stretch isn't a finite number.
constexpr double kLargest = 4e307;
// A stretch that is narrower in proportion can't be divided into marks that differ.
constexpr double kNarrowest = 1e-12;
// Nor can one that is narrower than this.
constexpr double kLeast = 1e-290;

double Bounded(double value) {
    return std::clamp(value, -kLargest, kLargest);
}

/// The smallest of 1, 2 and 5 times a power of ten that isn't below a number above 0.
double RoundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1 - 1e-9))
            return factor * power;
    return 10 * power;
}

Extent WithRoom(Extent extent) {
    const double low = Bounded(extent.low), high = Bounded(extent.high);
    const double size = std::max(std::abs(low), std::abs(high));
    if (high - low > std::max(size * kNarrowest, kLeast))
        return {low, high};
    const double room = size > 0 ? std::max(size * (high > low ? kNarrowest * 10 : 0.1), kLeast * 10) : 1;
    return {low - room, high + room};
}

/// As many digits as tell one mark from the next.
QString Label(double value, double step) {
    if (std::abs(value) < step / 2)
        return QStringLiteral("0");
    const double digits = std::floor(std::log10(std::abs(value))) - std::floor(std::log10(step)) + 1;
    return QString::number(value, 'g', static_cast<int>(std::clamp(digits, 6.0, 17.0)));
}

} // namespace

double Scale::Part(double value) const {
    return (Bounded(value) - low) / (high - low);
}

Scale ValueScale(Extent extent, int mostTicks, bool roundOut) {
    const auto [low, high] = WithRoom(extent);
    const double step = RoundStep((high - low) / std::max(mostTicks, 1));
    Scale scale{low, high, {}};
    if (roundOut) {
        scale.low = std::floor(low / step) * step;
        scale.high = std::ceil(high / step) * step;
    }
    const double first = std::ceil(scale.low / step - 1e-9);
    const double count = std::floor(scale.high / step + 1e-9) - first;
    for (int i = 0; i <= static_cast<int>(std::min(count, 2.0 * mostTicks + 4)); ++i) {
        const double place = (first + i) * step;
        scale.ticks.push_back({place, Label(place, step)});
    }
    return scale;
}

Scale CategoryScale(Extent visible, std::size_t rows, int mostTicks,
                    const std::function<QString(std::size_t)>& category) {
    Scale scale{visible.low, visible.high, {}};
    const double step = std::max(1.0, RoundStep((visible.high - visible.low) / std::max(mostTicks, 1)));
    const double last = std::min(visible.high, static_cast<double>(rows) - 1);
    for (double place = std::ceil(std::max(visible.low, 0.0) / step) * step; place <= last; place += step)
        scale.ticks.push_back({place, category(static_cast<std::size_t>(place))});
    return scale;
}

} // namespace desktop
