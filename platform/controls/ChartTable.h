// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

// What a chart is drawn from: columns of numbers, read out of cells that hold text.
namespace controls {

/// A block of cells as the chart is given it: a column is a series, a row a category. Rows and columns count
/// from 0. The routines are called when the chart is drawn for the first time, so what they read must still
/// be there then; see Chart::SetChartData.
struct ChartCells {
    std::size_t rows = 0, columns = 0;
    std::function<QString(std::size_t row, std::size_t column)> cell;
    std::function<QString(std::size_t column)> header;
    std::function<QString(std::size_t row)> category; ///< may be null: rows are told by their numbers from 1
};

struct ChartSeries {
    QString name;
    std::vector<double> values; ///< one for each row, NaN where the cell holds no finite number
};

struct ChartTable {
    std::vector<ChartSeries> series; ///< the columns that hold at least one number
    std::size_t rows = 0;
    std::function<QString(std::size_t row)> category; ///< never null
    QString word; ///< what is left out, and why, for the user; empty when nothing is
};

/// More series than these can't be told apart; the rest is left out, which the word tells.
inline constexpr std::size_t kMostChartSeries = 100;
/// More values than these aren't read, which would take seconds: columns behind them are left out, too.
inline constexpr std::size_t kMostChartValues = 2'000'000;

/// Reads the cells. A cell counts as a number when the whole of it is one (see text::ReadNumber); an empty
/// cell is a gap.
ChartTable ReadChartTable(const ChartCells& cells);

} // namespace controls
