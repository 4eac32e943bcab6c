// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/Thinning.h"
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace desktop {

namespace {

/// Rows from first to one behind the last.
struct Span {
    std::size_t first = 0, end = 0;
    std::size_t Size() const { return end - first; }
};

/// The rows within a stretch, and `beside` more at each side.
Span SpanOf(std::size_t count, const Extent& rows, double beside) {
    const double last = static_cast<double>(count);
    const double first = std::clamp(std::ceil(rows.low) - beside, 0.0, last);
    const double end = std::clamp(std::floor(rows.high) + beside + 1, first, last);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end)};
}

bool IsDense(const Span& span, const Visible& visible) {
    return span.Size() > 2 * static_cast<std::size_t>(std::max(visible.columns, 1));
}

/// The part of a span that falls into one of `count` columns.
Span Part(const Span& span, std::size_t column, std::size_t count) {
    return {span.first + span.Size() * column / count, span.first + span.Size() * (column + 1) / count};
}

/// First, smallest, largest and last value of a span, in their order, each once.
Stretch Extremes(const std::vector<double>& values, const Span& span) {
    std::size_t row = span.first;
    while (row < span.end && std::isnan(values[row]))
        ++row;
    if (row == span.end)
        return {};
    std::size_t low = row, high = row, last = row;
    const std::size_t first = row;
    for (; row < span.end; ++row) {
        if (std::isnan(values[row]))
            continue;
        low = values[row] < values[low] ? row : low;
        high = values[row] > values[high] ? row : high;
        last = row;
    }
    Stretch run;
    for (const std::size_t kept : {first, std::min(low, high), std::max(low, high), last})
        if (run.empty() || run.back().x() < static_cast<double>(kept))
            run.emplace_back(static_cast<double>(kept), values[kept]);
    return run;
}

/// Puts points behind a run; none of them end it.
void Extend(std::vector<Stretch>& runs, bool& open, const Stretch& points) {
    if (points.empty()) {
        open = false;
        return;
    }
    if (!open)
        runs.emplace_back();
    open = true;
    runs.back().insert(runs.back().end(), points.begin(), points.end());
}

} // namespace

std::vector<Stretch> RunsOf(const std::vector<double>& values, const Visible& visible) {
    const Span span = SpanOf(values.size(), visible.rows, 1);
    const std::size_t columns =
        IsDense(span, visible) ? static_cast<std::size_t>(std::max(visible.columns, 1)) : span.Size();
    std::vector<Stretch> runs;
    bool open = false;
    for (std::size_t column = 0; column < columns; ++column)
        Extend(runs, open, Extremes(values, Part(span, column, columns)));
    return runs;
}

std::vector<Stretch> StepsOf(const std::vector<double>& values, const Visible& visible) {
    std::vector<Stretch> runs = RunsOf(values, visible);
    if (IsDense(SpanOf(values.size(), visible.rows, 1), visible))
        return runs;
    for (Stretch& run : runs) {
        Stretch steps;
        for (const QPointF& point : run) {
            steps.emplace_back(point.x() - 0.5, point.y());
            steps.emplace_back(point.x() + 0.5, point.y());
        }
        run = std::move(steps);
    }
    return runs;
}

Stretch WithZeros(const Stretch& run) {
    Stretch crossed;
    for (const QPointF& point : run) {
        if (!crossed.empty() && crossed.back().y() * point.y() < 0) {
            const QPointF before = crossed.back();
            const double part = before.y() / (before.y() - point.y());
            crossed.emplace_back(before.x() + part * (point.x() - before.x()), 0);
        }
        crossed.push_back(point);
    }
    return crossed;
}

std::vector<Bar> BarsOf(const std::vector<double>& values, const Visible& visible) {
    const Span span = SpanOf(values.size(), {visible.rows.low - 0.5, visible.rows.high + 0.5}, 0);
    const std::size_t columns = std::min(span.Size(), static_cast<std::size_t>(std::max(visible.columns, 1)));
    std::vector<Bar> bars;
    for (std::size_t column = 0; column < columns; ++column) {
        const Span part = Part(span, column, columns);
        Bar bar{{static_cast<double>(part.first) - 0.5, static_cast<double>(part.end) - 0.5}, {}};
        bool any = false;
        for (std::size_t row = part.first; row < part.end; ++row) {
            if (std::isnan(values[row]))
                continue;
            any = true;
            bar.value = {std::min(bar.value.low, values[row]), std::max(bar.value.high, values[row])};
        }
        if (any)
            bars.push_back(bar);
    }
    return bars;
}

Extent ExtentOf(const std::vector<double>& values, const Extent& rows) {
    Extent found{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
    const Span span = SpanOf(values.size(), rows, 0);
    for (std::size_t row = span.first; row < span.end; ++row)
        if (!std::isnan(values[row]))
            found = {std::min(found.low, values[row]), std::max(found.high, values[row])};
    return found;
}

} // namespace desktop
