// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/Scale.h"
#include <QPointF>
#include <vector>

// A series may have millions of values, a screen has a thousand columns of pixels. What is drawn are the
// extremes of each column, so that no peak is lost.
namespace desktop {

/// Values that follow each other without a gap: x counts rows, y is the value.
using Stretch = std::vector<QPointF>;

/// The stretch of values that a chart shows.
struct Visible {
    Extent rows;     ///< row i stands at i
    int columns = 1; ///< how many places beside each other can be told apart
};

/// The runs of a series, with the value before and the one behind what is visible, if there are any.
std::vector<Stretch> RunsOf(const std::vector<double>& values, const Visible& visible);
/// The same, each value as wide as its row, where rows can be told apart.
std::vector<Stretch> StepsOf(const std::vector<double>& values, const Visible& visible);
/// With a point more wherever a run goes through 0.
Stretch WithZeros(const Stretch& run);

/// A bar from 0: of one row, or of all rows in one column.
struct Bar {
    Extent rows;  ///< row i from i - 0.5 to i + 0.5
    Extent value; ///< low is at most 0, high at least 0
};
std::vector<Bar> BarsOf(const std::vector<double>& values, const Visible& visible);

/// The extremes of the visible values; nothing was found where low is above high.
Extent ExtentOf(const std::vector<double>& values, const Extent& rows);

} // namespace desktop
