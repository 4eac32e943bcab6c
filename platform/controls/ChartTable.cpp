// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ChartTable.h"
#include "platform/text/Numbers.h"
#include <QStringList>
#include <QStringView>
#include <algorithm>
#include <limits>

namespace controls {

namespace {

constexpr qsizetype kNamesTold = 3;
constexpr qsizetype kNameLength = 40; ///< of a name in the word

struct Column {
    ChartSeries series;
    std::size_t numbers = 0; ///< cells that hold one
    std::size_t others = 0;  ///< cells that hold something else
};

Column ReadColumn(const ChartCells& cells, std::size_t column) {
    Column read{.series = {.name = cells.header(column), .values = {}}};
    read.series.values.reserve(cells.rows);
    for (std::size_t row = 0; row < cells.rows; ++row) {
        const QString cell = cells.cell(row, column);
        const std::optional<double> value = text::ReadNumber(cell);
        read.series.values.push_back(value.value_or(std::numeric_limits<double>::quiet_NaN()));
        read.numbers += value ? 1 : 0;
        read.others += !value && !QStringView(cell).trimmed().isEmpty() ? 1 : 0;
    }
    return read;
}

/// The first names of a list, in quotes, and how many there are beside them.
QString Told(const QStringList& names) {
    QStringList told;
    for (const QString& name : names.first(std::min(kNamesTold, names.size())))
        told << u'"' + (name.size() > kNameLength ? name.left(kNameLength) + QStringLiteral("...") : name) +
                    u'"';
    const QString list = told.join(QStringLiteral(", "));
    const qsizetype more = names.size() - told.size();
    return more > 0 ? QStringLiteral("%1 and %2 more").arg(list).arg(more) : list;
}

/// How many columns can be drawn.
std::size_t ColumnsDrawn(const ChartCells& cells) {
    const std::size_t fitting = cells.rows > 0 ? kMostChartValues / cells.rows : cells.columns;
    return std::min({cells.columns, kMostChartSeries, std::max<std::size_t>(fitting, 1)});
}

} // namespace

ChartTable ReadChartTable(const ChartCells& cells) {
    ChartTable table{.series = {}, .rows = cells.rows, .category = cells.category, .word = {}};
    if (!table.category)
        table.category = [](std::size_t row) { return QString::number(row + 1); };
    const std::size_t drawn = ColumnsDrawn(cells);
    QStringList words, withoutNumbers, withOthers;
    for (std::size_t column = 0; column < drawn; ++column) {
        Column read = ReadColumn(cells, column);
        if (read.others > 0 && read.numbers > 0)
            withOthers << read.series.name;
        if (read.numbers > 0)
            table.series.push_back(std::move(read.series));
        else
            withoutNumbers << read.series.name;
    }
    if (!withoutNumbers.isEmpty())
        words << QStringLiteral("No numbers in %1.").arg(Told(withoutNumbers));
    if (!withOthers.isEmpty())
        words << QStringLiteral("Gaps where %1 holds no number.").arg(Told(withOthers));
    if (drawn < cells.columns)
        words << QStringLiteral("Drawn from the first %1 of %2 columns.").arg(drawn).arg(cells.columns);
    table.word = words.join(u' ');
    return table;
}

} // namespace controls
