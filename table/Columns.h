// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/CompactText.h"
#include <QHash>
#include <QString>
#include <vector>

namespace table {

/// The attribute columns of a table, and the row that brought each. They are found by a hash: a table may
/// have a million rows, and as many columns.
///
/// The first row brings all its attributes. Each row behind it brings one at most: its first one that no row
/// before it has. In that row this attribute and all behind it stay empty, which is how tables look here.
/// Columns count from 0 here: the grid's first one is kFirst.
class Columns {
public:
    static constexpr int kFirst = 2; ///< of the grid: behind the key and the label

    int count() const { return static_cast<int>(columns_.size()); }
    const QString& name(int column) const { return columns_[static_cast<std::size_t>(column)].name; }
    /// -1 without one. `likely` is looked at first: rows tend to have the same attributes in the same order.
    int find(text::CompactView name, int likely = -1) const;
    /// The column that a row behind the first one has brought; -1 for none.
    int broughtBy(int row) const;
    bool grewLater() const { return !columns_.empty() && columns_.back().row > 1; } ///< behind the first row

    /// Rows are added in their order, from 1 on, by their Tags.
    void addRow(int row, text::CompactView tag);
    /// Whether a row whose Tag is another one now would still bring the same.
    bool bringsTheSame(int row, text::CompactView tag) const;

private:
    struct Column {
        QString name;
        int row; ///< that brought it
    };
    /// The first attribute of a row behind the first one that no row before it has; empty for none.
    text::CompactView firstNew(int row, text::CompactView tag) const;
    void add(text::CompactView name, int row);

    std::vector<Column> columns_;
    QHash<QString, int> places_; ///< the first of a name
};

} // namespace table
