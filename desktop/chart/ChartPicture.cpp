// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPicture.h"
#include <algorithm>
#include <cmath>
#include <numeric>

namespace desktop {

namespace {

constexpr std::size_t kMostSlices = 24;
constexpr double kGroupWidth = 0.8; ///< of a row's bars
constexpr double kRowsOfFullWidth = 4;
constexpr double kLaneWidth = 0.7; ///< of what a series has in the depth

const controls::ChartSeries& First(const ChartPicture& picture) {
    return picture.table->series.front();
}

/// A slice of the pie by the number of its row, or of its series.
struct Part {
    double value;
    std::size_t number;
};

bool IsLarger(const Part& a, const Part& b) {
    return a.value > b.value;
}

/// What the slices are made of: those without a size, too.
std::vector<Part> PartsOf(const ChartPicture& picture) {
    const controls::ChartTable& table = *picture.table;
    const bool acrossSeries = table.rows == 1;
    std::vector<Part> parts(acrossSeries ? table.series.size() : table.rows);
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = {acrossSeries ? table.series[i].values.front() : First(picture).values[i], i};
    return parts;
}

} // namespace

ChartForm FormOf(int type) {
    switch (type) {
    case controls::ch3dBar:
    case controls::ch2dBar:
        return ChartForm::Bars;
    case controls::ch3dLine:
    case controls::ch2dLine:
        return ChartForm::Lines;
    case controls::ch3dArea:
    case controls::ch2dArea:
        return ChartForm::Areas;
    case controls::ch3dStep:
    case controls::ch2dStep:
        return ChartForm::Steps;
    case controls::ch3dCombination:
    case controls::ch2dCombination:
        return ChartForm::Combination;
    case controls::ch2dPie:
        return ChartForm::Pie;
    default:
        return ChartForm::Points;
    }
}

bool IsSolid(int type) {
    return type <= controls::ch2dCombination && type % 2 == 0;
}

std::size_t FirstDrawn(const ChartPicture& picture) {
    return FormOf(picture.type) == ChartForm::Points && picture.table->series.size() > 1 ? 1 : 0;
}

std::size_t BarCount(const ChartPicture& picture) {
    const std::size_t count = picture.table->series.size();
    switch (FormOf(picture.type)) {
    case ChartForm::Bars:
        return count;
    case ChartForm::Combination:
        return (count + 1) / 2;
    default:
        return 0;
    }
}

double XOf(const ChartPicture& picture, std::size_t row) {
    return FirstDrawn(picture) > 0 ? First(picture).values[row] : static_cast<double>(row);
}

std::vector<Slice> SlicesOf(const ChartPicture& picture) {
    std::vector<Part> parts = PartsOf(picture);
    std::erase_if(parts, [](const Part& part) { return !(part.value > 0); });
    double rest = 0;
    std::size_t joined = 0;
    if (parts.size() > kMostSlices) {
        const auto kept = parts.begin() + static_cast<std::ptrdiff_t>(kMostSlices) - 1;
        std::nth_element(parts.begin(), kept, parts.end(), IsLarger);
        joined = static_cast<std::size_t>(parts.end() - kept);
        rest = std::accumulate(kept, parts.end(), 0.0,
                               [](double sum, const Part& part) { return sum + part.value; });
        parts.erase(kept, parts.end());
        std::sort(parts.begin(), parts.end(), IsLarger);
    }
    const controls::ChartTable& table = *picture.table;
    std::vector<Slice> slices;
    for (const Part& part : parts)
        slices.push_back(
            {table.rows == 1 ? table.series[part.number].name : table.category(part.number), part.value});
    if (joined > 0)
        slices.push_back({QStringLiteral("%1 others").arg(joined), rest});
    return slices;
}

Extent LaneOf(const ChartPicture& picture, std::size_t series) {
    if (!IsSolid(picture.type))
        return {0, 0};
    const std::size_t bars = BarCount(picture), count = picture.table->series.size();
    if (series < bars) // bars stand beside each other, lines before them
        return bars < count ? Extent{0.45, 0.95} : Extent{0.05, 0.95};
    const double lane = (bars > 0 ? 0.4 : 1.0) / static_cast<double>(count - bars);
    const double front = lane * static_cast<double>(series - bars);
    return {front, front + lane * kLaneWidth};
}

Extent BarPlace(const ChartPicture& picture, std::size_t series) {
    // A few rows would give bars as broad as walls.
    const double group =
        kGroupWidth * std::min(1.0, static_cast<double>(picture.table->rows) / kRowsOfFullWidth);
    const double width = group / static_cast<double>(std::max<std::size_t>(BarCount(picture), 1));
    const double left = -group / 2 + width * static_cast<double>(series);
    return {left, left + width};
}

QString WordOf(const ChartPicture& picture) {
    const controls::ChartTable& table = *picture.table;
    if (table.series.empty())
        return {};
    if (FormOf(picture.type) == ChartForm::Points && table.series.size() > 1)
        return QStringLiteral("\"%1\" is the x axis.").arg(First(picture).name);
    if (FormOf(picture.type) != ChartForm::Pie)
        return {};
    QStringList words;
    if (table.rows > 1 && table.series.size() > 1)
        words << QStringLiteral("The pie shows \"%1\".").arg(First(picture).name);
    const std::vector<Part> parts = PartsOf(picture);
    if (std::any_of(parts.begin(), parts.end(), [](const Part& part) { return part.value < 0; }))
        words << QStringLiteral("Values below 0 have no slice.");
    return words.join(u' ');
}

} // namespace desktop
