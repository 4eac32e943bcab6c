// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Chart.h"
#include <utility>

namespace controls {

namespace {

bool IsChartType(int type) {
    return (type >= ch3dBar && type <= ch2dCombination) || type == ch2dPie || type == ch2dXY;
}

} // namespace

void Chart::SetVisible(bool visible) {
    if (std::exchange(visible_, visible) != visible)
        changed();
}

void Chart::SetChartType(int type) {
    if (IsChartType(type) && std::exchange(type_, type) != type)
        changed();
}

void Chart::SetShowLegend(bool shown) {
    if (std::exchange(legend_, shown) != shown)
        changed();
}

void Chart::SetChartData(ChartCells cells) {
    table_ = {};
    cells_ = std::move(cells);
    dataChanged();
}

void Chart::Clear() {
    if (!HasData())
        return;
    table_ = {};
    cells_.reset();
    dataChanged();
}

const ChartTable& Chart::Data() {
    if (const auto cells = std::exchange(cells_, std::nullopt))
        table_ = ReadChartTable(*cells);
    return table_;
}

} // namespace controls
