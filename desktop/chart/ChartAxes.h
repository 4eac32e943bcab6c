// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"

class QPainter;

namespace desktop {

/// The walls and the lines behind what is drawn, with the words beside them.
void PaintAxes(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);
/// The names of the series, or of a pie's slices, with what they are told by.
void PaintLegend(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);

} // namespace desktop
