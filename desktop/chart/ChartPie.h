// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"

namespace desktop {

struct PieSlice {
    Slice slice;
    Extent part; ///< of the turn, clockwise from the top: 0 to 1
};

std::vector<PieSlice> PieSlicesOf(const ChartPicture& picture);
QRectF PieCircle(const ChartLayout& layout);

} // namespace desktop
