// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/ChartTable.h"
#include "platform/controls/Event.h"
#include <optional>

namespace controls {

/// The kinds of charts, as chartType tells them.
enum ChartType {
    ch3dBar = 0,
    ch2dBar = 1,
    ch3dLine = 2,
    ch2dLine = 3,
    ch3dArea = 4,
    ch2dArea = 5,
    ch3dStep = 6,
    ch2dStep = 7,
    ch3dCombination = 8,
    ch2dCombination = 9,
    ch2dPie = 14,
    ch2dXY = 16
};

/// A chart of a block of cells.
class Chart {
public:
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);

    int chartType() const { return type_; }
    void SetChartType(int type); ///< a ChartType; another number: no effect
    bool ShowLegend() const { return legend_; }
    void SetShowLegend(bool shown);

    /// Takes a block of cells. It is read when the chart is looked at for the first time: whoever takes away
    /// what `cells` reads from asks for Data() before, or calls Clear().
    void SetChartData(ChartCells cells);
    void Clear(); ///< nothing to draw
    bool HasData() const { return cells_ || table_.rows > 0; }
    const ChartTable& Data();

    Event<> changed;     ///< visible, type or legend
    Event<> dataChanged; ///< there is another block to draw, or none

private:
    bool visible_ = true, legend_ = true;
    int type_ = ch2dBar;
    std::optional<ChartCells> cells_; ///< not read yet
    ChartTable table_;
};

} // namespace controls
