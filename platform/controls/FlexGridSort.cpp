// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FlexGrid.h"
#include "platform/text/Numbers.h"
#include "platform/text/TextTools.h"
#include <QHash>
#include <algorithm>
#include <functional>
#include <numeric>
#include <span>

namespace controls {

namespace {

constexpr int kMostColumns = 100; // looked at: of a table as wide as long each column would take a second

/// A cell as it is sorted: by group, then by value.
struct Key {
    double value; ///< a number, or the place of a text among the column's texts
    int row;      ///< the source's
    int group;
};
enum Group { Numbers, Texts, Empty };

bool Less(const Key& a, const Key& b) {
    return a.group != b.group ? a.group < b.group : a.value < b.value;
}

/// The texts of a column, each once: columns tend to have few.
class TextRanks {
public:
    int number(const QString& text) {
        const auto known = numbers_.constFind(text);
        if (known != numbers_.constEnd())
            return *known;
        texts_.push_back(text);
        numbers_.insert(text, static_cast<int>(texts_.size()) - 1);
        return static_cast<int>(texts_.size()) - 1;
    }
    /// The place of each in order; texts that differ in case alone share one.
    std::vector<int> ranks() const {
        std::vector<int> sorted(texts_.size()), places(texts_.size());
        std::iota(sorted.begin(), sorted.end(), 0);
        std::sort(sorted.begin(), sorted.end(), [this](int a, int b) { return compare(a, b) < 0; });
        for (std::size_t i = 1; i < sorted.size(); ++i) {
            places[static_cast<std::size_t>(sorted[i])] = places[static_cast<std::size_t>(sorted[i - 1])] +
                                                          (compare(sorted[i - 1], sorted[i]) < 0 ? 1 : 0);
        }
        return places;
    }

private:
    int compare(int a, int b) const {
        return texts_[static_cast<std::size_t>(a)].compare(texts_[static_cast<std::size_t>(b)],
                                                           Qt::CaseInsensitive);
    }
    std::vector<QString> texts_;
    QHash<QString, int> numbers_;
};

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
        const std::vector<Key> keys = keysOf(column);
        for (const std::span<int> run : std::exchange(runs_, {}))
            sortRun(run, keys);
    }
    bool done() const { return runs_.empty(); }

private:
    /// One for each row that isn't in its place yet, in the source's order: that is how its memory lies.
    std::vector<Key> keysOf(int column) {
        std::vector<int> rows;
        for (const std::span<int> run : runs_)
            rows.insert(rows.end(), run.begin(), run.end());
        std::sort(rows.begin(), rows.end());
        TextRanks texts;
        std::vector<Key> keys;
        keys.reserve(rows.size());
        places_.resize(static_cast<std::size_t>(rows.back()) + 1);
        for (const int row : rows) {
            places_[static_cast<std::size_t>(row)] = static_cast<int>(keys.size());
            keys.push_back(keyOf(row, text_(row, column), texts));
        }
        const std::vector<int> ranks = texts.ranks();
        for (Key& key : keys) {
            if (key.group == Texts)
                key.value = ranks[static_cast<std::size_t>(key.value)];
            if (descending_ && key.group != Empty)
                key = {-key.value, key.row, Texts - key.group};
        }
        return keys;
    }
    static Key keyOf(int row, const QString& cell, TextRanks& texts) {
        if (text::IsBlank(cell))
            return {0, row, Empty};
        if (const std::optional<double> number = text::ReadNumber(cell))
            return {*number, row, Numbers};
        return {static_cast<double>(texts.number(cell)), row, Texts};
    }
    void sortRun(std::span<int> run, const std::vector<Key>& all) {
        std::vector<Key> keys;
        keys.reserve(run.size());
        for (const int row : run)
            keys.push_back(all[static_cast<std::size_t>(places_[static_cast<std::size_t>(row)])]);
        std::stable_sort(keys.begin(), keys.end(), Less);
        std::size_t start = 0;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            run[i] = keys[i].row;
            if (i + 1 < keys.size() && !Less(keys[i], keys[i + 1]))
                continue;
            if (i > start)
                runs_.push_back(run.subspan(start, i + 1 - start));
            start = i + 1;
        }
    }

    bool descending_;
    CellText text_;
    std::vector<std::span<int>> runs_; ///< of rows that are equal so far
    std::vector<int> places_;          ///< of a row's key, by the row
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
                     [this](int row, int column) { return TextToSort(row, column); });
        const GridRange selected = Selection();
        const int first = std::max(selected.left, frozenCols_);
        const int end = std::min(selected.right + 1, first + kMostColumns);
        for (int column = first; column < end && !sort.done(); ++column)
            sort.by(column);
    }
    events_->Announce(events_->cellsChanged, *this, GridRange{0, 0, Rows() - 1, Cols() - 1});
}

} // namespace controls
