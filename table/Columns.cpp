// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Columns.h"
#include "core/model/AttributeWalk.h"
#include <algorithm>

namespace table {

using m_tvXML::AttributeWalk;
using text::CompactView;

int Columns::find(CompactView name, int likely) const {
    if (likely >= 0 && likely < count() &&
        name == QStringView(columns_[static_cast<std::size_t>(likely)].name))
        return likely;
    return places_.value(name.toString(), -1);
}

int Columns::broughtBy(int row) const {
    if (row < 2 || columns_.empty() || columns_.back().row < row)
        return -1;
    const auto found = std::lower_bound(columns_.begin(), columns_.end(), row,
                                        [](const Column& column, int wanted) { return column.row < wanted; });
    return found != columns_.end() && found->row == row ? static_cast<int>(found - columns_.begin()) : -1;
}

void Columns::add(CompactView name, int row) {
    columns_.push_back({name.toString(), row});
    if (!places_.contains(columns_.back().name))
        places_.insert(columns_.back().name, count() - 1);
}

CompactView Columns::firstNew(int row, CompactView tag) const {
    AttributeWalk pairs(tag);
    for (int likely = 0; pairs.next(); ++likely) {
        const int column = find(pairs.name(), likely);
        if (column < 0 || columns_[static_cast<std::size_t>(column)].row >= row)
            return pairs.name();
        likely = column;
    }
    return {};
}

void Columns::addRow(int row, CompactView tag) {
    if (row == 1) {
        for (AttributeWalk pairs(tag); pairs.next();)
            add(pairs.name(), row);
    } else if (const CompactView brought = firstNew(row, tag); !brought.isEmpty()) {
        add(brought, row);
    }
}

bool Columns::bringsTheSame(int row, CompactView tag) const {
    if (row > 1) {
        const CompactView brought = firstNew(row, tag);
        const int before = broughtBy(row);
        return before < 0 ? brought.isEmpty() : brought == QStringView(name(before));
    }
    int column = 0;
    for (AttributeWalk pairs(tag); pairs.next(); ++column) {
        if (column >= count() || columns_[static_cast<std::size_t>(column)].row != 1 ||
            !(pairs.name() == QStringView(name(column))))
            return false;
    }
    return column == count() || columns_[static_cast<std::size_t>(column)].row != 1;
}

} // namespace table
