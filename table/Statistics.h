// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "table/ElementTable.h"
#include <array>
#include <span>
#include <vector>

// Figures of the numbers in a column.
namespace table {

/// As the box lists them, behind an empty entry.
enum class Figure { Sum = 1, Average, Max, Min, Var, Range, StDev, AveDev };
inline constexpr std::array kFigureNames{"Sum", "Average", "Max", "Min", "VAR", "Range", "STDEV", "AVEDEV"};

/// The number at the beginning of each cell of a column, from row 1 on; 0 for a cell without one.
std::vector<double> ColumnValues(const ElementTable& table, int column);
/// The number at the beginning of a cell's text, which is escaped.
double CellNumber(QStringView text);

/// A figure of values; at least one. VAR and STDEV are those of the whole population. Sums carry what single
/// additions lose, so that large values with small differences are told apart.
double FigureOf(Figure figure, std::span<const double> values);

} // namespace table
