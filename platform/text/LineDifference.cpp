// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LineDifference.h"
#include "platform/text/TextDifference.h"
#include <algorithm>
#include <vector>

namespace text {

namespace {

constexpr qsizetype kAround = 3;         // lines of both beside a stretch
constexpr qsizetype kMostLines = 3000;   // that are told
constexpr qsizetype kMostEdits = 1000;   // for which the shortest way is looked for
constexpr qsizetype kMostUnits = 400000; // of a text that are looked at
constexpr qsizetype kLongest = 500;      // units of a line that are shown

/// One line, as it is told: ' ', '-' or '+'.
struct Told {
    char mark;
    qsizetype before, after; ///< the line of each text that it is, or stands in front of
};

// The lines of a stretch of a text, with the whole lines at its ends.
struct Lines {
    Lines(const LongText& text, qsizetype from, qsizetype to)
        : first(std::max<qsizetype>(text.lineOf(from) - kAround, 0)) {
        const qsizetype start = text.lineStart(first);
        const qsizetype end = text.lineStart(std::min(text.lineOf(to) + kAround + 1, text.lineCount()));
        cut = end - start > kMostUnits;
        list = text.mid(start, std::min(end - start, kMostUnits)).split(u'\n');
        for (QString& line : list) {
            if (line.endsWith(u'\r'))
                line.chop(1);
        }
        if (!cut && end < text.size())
            list.removeLast(); // what stands behind the last line's end
    }
    qsizetype first; ///< its number, from 0
    QStringList list;
    bool cut;
};

// The furthest places that so many edits lead to, one row for each number of edits: the greedy way to the
// shortest list of edits. Empty where that would be too long.
std::vector<std::vector<qsizetype>> Furthest(const QStringList& a, const QStringList& b) {
    std::vector<std::vector<qsizetype>> rows;
    for (qsizetype edits = 0; edits <= kMostEdits; ++edits) {
        std::vector<qsizetype> row(static_cast<std::size_t>(2 * edits + 1), 0);
        for (qsizetype k = -edits; k <= edits; k += 2) {
            const auto at = [&](qsizetype diagonal) {
                return rows.back()[static_cast<std::size_t>(diagonal + edits - 1)];
            };
            qsizetype x = 0;
            if (edits > 0)
                x = k == -edits || (k != edits && at(k - 1) < at(k + 1)) ? at(k + 1) : at(k - 1) + 1;
            while (x < a.size() && x - k < b.size() && a[x] == b[x - k])
                ++x;
            row[static_cast<std::size_t>(k + edits)] = x;
            if (x >= a.size() && x - k >= b.size()) {
                rows.push_back(std::move(row));
                return rows;
            }
        }
        rows.push_back(std::move(row));
    }
    return {};
}

std::vector<Told> ReplacedWhole(const QStringList& a, const QStringList& b) {
    std::vector<Told> told;
    for (qsizetype i = 0; i < a.size(); ++i)
        told.push_back({'-', i, 0});
    for (qsizetype i = 0; i < b.size(); ++i)
        told.push_back({'+', a.size(), i});
    return told;
}

// The way back through the rows, from the end of both.
std::vector<Told> Compare(const QStringList& a, const QStringList& b) {
    const auto rows = Furthest(a, b);
    if (rows.empty())
        return ReplacedWhole(a, b);
    std::vector<Told> told;
    qsizetype x = a.size(), y = b.size();
    for (qsizetype edits = std::ssize(rows) - 1; x > 0 || y > 0; --edits) {
        const qsizetype k = x - y;
        const auto at = [&](qsizetype diagonal) {
            return rows[static_cast<std::size_t>(edits - 1)][static_cast<std::size_t>(diagonal + edits - 1)];
        };
        const bool adds = edits > 0 && (k == -edits || (k != edits && at(k - 1) < at(k + 1)));
        const qsizetype fromX = edits == 0 ? 0 : adds ? at(k + 1) : at(k - 1) + 1;
        for (; x > fromX; --x, --y)
            told.push_back({' ', x - 1, y - 1});
        if (edits > 0 && adds)
            told.push_back({'+', x, --y});
        else if (edits > 0)
            told.push_back({'-', --x, y});
        else
            break;
    }
    std::reverse(told.begin(), told.end());
    return told;
}

// Which lines stand near one that differs.
std::vector<bool> Near(const std::vector<Told>& told) {
    std::vector<bool> near(told.size(), false);
    for (qsizetype i = 0; i < std::ssize(told); ++i) {
        if (told[static_cast<std::size_t>(i)].mark == ' ')
            continue;
        const qsizetype end = std::min<qsizetype>(i + kAround, std::ssize(told) - 1);
        for (qsizetype j = std::max<qsizetype>(i - kAround, 0); j <= end; ++j)
            near[static_cast<std::size_t>(j)] = true;
    }
    return near;
}

} // namespace

QStringList LineDifference(const LongText& before, const LongText& after) {
    const TextChange change = Difference(before, after);
    if (change == TextChange{change.start, 0, 0})
        return {};
    const Lines a(before, change.start, change.start + change.removed);
    const Lines b(after, change.start, change.start + change.added);
    const std::vector<Told> told = Compare(a.list, b.list);
    const std::vector<bool> near = Near(told);
    QStringList shown;
    for (std::size_t i = 0; i < told.size() && shown.size() < kMostLines; ++i) {
        if (!near[i])
            continue;
        const Told& line = told[i];
        if (i == 0 || !near[i - 1])
            shown
                << QStringLiteral("@@ %1 / %2").arg(a.first + line.before + 1).arg(b.first + line.after + 1);
        const QString& text = line.mark == '+' ? b.list[line.after] : a.list[line.before];
        shown << QLatin1Char(line.mark) + QStringLiteral(" ") + text.left(kLongest);
    }
    if (shown.size() >= kMostLines || a.cut || b.cut)
        shown << QStringLiteral("...");
    return shown;
}

} // namespace text
