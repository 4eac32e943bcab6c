// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FlexGrid.h"
#include "platform/text/Numbers.h"
#include "platform/text/TextTools.h"
#include <algorithm>
#include <functional>
#include <numeric>
#include <span>

namespace controls {

namespace {

/// A cell as it is sorted.
struct Key {
    int row; ///< the source's
    enum Kind : std::uint8_t { Number, Text, Empty } kind;
    double number;
    QString text;
};

Key KeyOf(int row, const QString& cell) {
    if (text::IsBlank(cell))
        return {row, Key::Empty, 0, {}};
    if (const std::optional<double> number = text::ReadNumber(cell))
        return {row, Key::Number, *number, {}};
    return {row, Key::Text, 0, cell};
}

int CompareValues(const Key& a, const Key& b) {
    if (a.kind == Key::Text)
        return a.text.compare(b.text, Qt::CaseInsensitive);
    return a.number < b.number ? -1 : a.number > b.number ? 1 : 0;
}

bool Less(const Key& a, const Key& b, bool descending) {
    if (a.kind == Key::Empty || b.kind == Key::Empty)
        return b.kind == Key::Empty && a.kind != Key::Empty;
    const int order = a.kind != b.kind ? a.kind - b.kind : CompareValues(a, b);
    return descending ? order > 0 : order < 0;
}

/// Sorts rows column by column: behind the first one only rows that are equal so far are looked at.
class RowSort {
public:
    using CellText = std::function<QString(int row, int column)>;
    RowSort(std::span<int> rows, bool descending, CellText text)
        : descending_(descending), text_(std::move(text)) {
        if (rows.size() > 1)
            runs_.push_back(rows);
    }

    void by(int column) {
        for (const std::span<int> run : std::exchange(runs_, {}))
            sortRun(run, column);
    }
    bool done() const { return runs_.empty(); }

private:
    void sortRun(std::span<int> run, int column) {
        std::vector<Key> keys;
        keys.reserve(run.size());
        for (const int row : run)
            keys.push_back(KeyOf(row, text_(row, column)));
        const auto less = [this](const Key& a, const Key& b) { return Less(a, b, descending_); };
        std::stable_sort(keys.begin(), keys.end(), less);
        std::size_t start = 0;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            run[i] = keys[i].row;
            if (i + 1 < keys.size() && !less(keys[i], keys[i + 1]))
                continue;
            if (i > start)
                runs_.push_back(run.subspan(start, i + 1 - start));
            start = i + 1;
        }
    }

    bool descending_;
    CellText text_;
    std::vector<std::span<int>> runs_; ///< of rows that are equal so far
};

} // namespace

void FlexGrid::Sort(int order) {
    const int last = Rows() - tailRows_;
    if (order != flexSortNone && last - fixedRows_ < 2)
        return;
    if (order == flexSortNone) {
        order_.clear();
    } else {
        if (order_.empty()) {
            order_.resize(static_cast<std::size_t>(Rows()));
            std::iota(order_.begin(), order_.end(), 0);
        }
        RowSort sort(std::span<int>(order_).subspan(static_cast<std::size_t>(fixedRows_),
                                                    static_cast<std::size_t>(last - fixedRows_)),
                     order == flexSortGenericDescending,
                     [this](int row, int column) { return SourceText(row, column); });
        const GridRange selected = Selection();
        for (int column = std::max(selected.left, frozenCols_); column <= selected.right && !sort.done();
             ++column)
            sort.by(column);
    }
    events_->Announce(events_->cellsChanged, *this, GridRange{0, 0, Rows() - 1, Cols() - 1});
}

int FlexGrid::SourceRow(int row) const {
    return order_.empty() ? row : order_[static_cast<std::size_t>(row)];
}

int FlexGrid::RowOfSource(int sourceRow) const {
    if (order_.empty())
        return sourceRow;
    return static_cast<int>(std::find(order_.begin(), order_.end(), sourceRow) - order_.begin());
}

} // namespace controls
