// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

namespace desktop {

/// The smallest and the largest of some values.
struct Extent {
    double low = 0, high = 0;
};

struct Tick {
    double place;
    QString label;
};

/// A stretch of an axis with its marks.
struct Scale {
    double low = 0, high = 1;
    std::vector<Tick> ticks; ///< in order

    /// How far from low to high a value stands: 0 to 1 within the stretch. Any finite value will do.
    double Part(double value) const;
    double ValueAt(double part) const { return low + part * (high - low); }
};

/// Round numbers from `extent.low` to `extent.high`, finite ones, with at most about `mostTicks` marks.
/// `roundOut` extends the stretch to the marks beside it. Where all values are one there is room around it.
Scale ValueScale(Extent extent, int mostTicks, bool roundOut);

/// Categories: row i stands at i. Some of those visible between `low` and `high` are marked.
Scale CategoryScale(Extent visible, std::size_t rows, int mostTicks,
                    const std::function<QString(std::size_t)>& category);

} // namespace desktop
