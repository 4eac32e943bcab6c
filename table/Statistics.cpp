// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Statistics.h"
#include "platform/text/Numbers.h"
#include "platform/text/TextTools.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace table {

namespace {

/// A sum that keeps what an addition loses.
class Sum {
public:
    void add(double value) {
        const double next = sum_ + value;
        if (std::isfinite(next))
            lost_ += std::fabs(sum_) >= std::fabs(value) ? (sum_ - next) + value : (value - next) + sum_;
        sum_ = next;
    }
    double value() const { return sum_ + lost_; }

private:
    double sum_ = 0, lost_ = 0;
};

template <typename Of> double SumOf(std::span<const double> values, Of of) {
    Sum sum;
    for (const double value : values)
        sum.add(of(value));
    return sum.value();
}

double Average(std::span<const double> values) {
    return SumOf(values, [](double value) { return value; }) / static_cast<double>(values.size());
}

template <typename Of> double AverageOf(std::span<const double> values, Of of) {
    const double average = Average(values);
    return SumOf(values, [&](double value) { return of(value - average); }) /
           static_cast<double>(values.size());
}

double Variance(std::span<const double> values) {
    return AverageOf(values, [](double difference) { return difference * difference; });
}

// Digits, point, sign and exponent read the same whether a number was rewritten or not.
bool IsSimple(text::CompactView value) {
    for (std::uint32_t i = 0; i < value.length; ++i) {
        const char16_t c = value.at(i);
        if (!(c >= u'0' && c <= u'9') && c != u'.' && c != u'-')
            return false;
    }
    return true;
}

double SimpleNumber(text::CompactView value) {
    std::array<char16_t, 64> units;
    if (value.length > units.size())
        return text::Val(value.toString());
    return text::Val(QStringView(units.data(), value.copyTo(units.data())));
}

} // namespace

double CellNumber(QStringView cell) {
    const QStringView trimmed = cell.trimmed();
    if (trimmed.startsWith(QLatin1String("&amp;")))
        return text::NumericPrefix(u'&' + trimmed.sliced(5).toString());
    return text::NumericPrefix(cell);
}

std::vector<double> ColumnValues(const ElementTable& table, int column) {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(table.lastRow()));
    for (int row = 1; row <= table.lastRow(); ++row) {
        const text::CompactView shown = table.shownValue(row, column);
        values.push_back(IsSimple(shown) ? SimpleNumber(shown) : CellNumber(table.text(row, column)));
    }
    return values;
}

double FigureOf(Figure figure, std::span<const double> values) {
    const auto max = [&] { return *std::max_element(values.begin(), values.end()); };
    const auto min = [&] { return *std::min_element(values.begin(), values.end()); };
    switch (figure) {
    case Figure::Sum:
        return SumOf(values, [](double value) { return value; });
    case Figure::Average:
        return Average(values);
    case Figure::Max:
        return max();
    case Figure::Min:
        return min();
    case Figure::Var:
        return Variance(values);
    case Figure::Range:
        return max() - min();
    case Figure::StDev:
        return std::sqrt(Variance(values));
    case Figure::AveDev:
        return AverageOf(values, [](double difference) { return std::fabs(difference); });
    }
    return 0;
}

} // namespace table
