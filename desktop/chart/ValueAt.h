// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"

namespace desktop {

/// What stands at a place of a chart, for the user: category, series and value. Empty where there is nothing.
QString ValueAt(const ChartPicture& picture, const ChartLayout& layout, QPointF place);

} // namespace desktop
