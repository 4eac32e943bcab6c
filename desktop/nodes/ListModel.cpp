// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ListModel.h"
#include "desktop/base/Listen.h"
#include "desktop/base/OneLine.h"
#include <utility>

namespace desktop {

namespace {
constexpr int kColumns = 3;

bool ShownStartsWith(text::CompactView cell, const QString& typed) {
    const auto length = static_cast<std::uint32_t>(typed.size());
    if (cell.length < length)
        return false;
    cell.length = length;
    return OneLine(cell).compare(typed, Qt::CaseInsensitive) == 0;
}
} // namespace

ListModel::ListModel(controls::ListView& list, IconOf iconOf, QObject* parent)
    : QAbstractTableModel(parent), list_(list), iconOf_(std::move(iconOf)) {
    Follow();
}

void ListModel::Follow() {
    Listen(list_.aboutToReset, this, [this] {
        beginResetModel();
        replacing_ = true;
    });
    Listen(list_.reset, this, [this] {
        replacing_ = false;
        endResetModel();
    });
    Listen(list_.aboutToInsert, this, [this](int row) { beginInsertRows({}, row, row); });
    Listen(list_.inserted, this, [this](int) { endInsertRows(); });
    Listen(list_.aboutToRemove, this, [this](int row) { beginRemoveRows({}, row, row); });
    Listen(list_.removed, this, [this](int) { endRemoveRows(); });
    Listen(list_.changed, this,
           [this](int row) { Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, kColumns - 1)); });
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || replacing_ ? 0 : list_.Count();
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const controls::ListItem& item = list_.Item(index.row() + 1);
    const int column = index.column();
    if (role == Qt::EditRole)
        return column == 0 ? item.Text : item.Sub[static_cast<std::size_t>(column - 1)];
    if (role == Qt::DisplayRole)
        return OneLine(QStringView(column == 0 ? item.Text : item.Sub[static_cast<std::size_t>(column - 1)]));
    return role == Qt::DecorationRole && column == 0 && iconOf_ ? iconOf_(item.SmallIcon) : QVariant();
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    const bool edited = index.column() == 0 && index.row() + 1 == list_.LabelEditRow();
    return edited ? flags | Qt::ItemIsEditable : flags;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    list_.EndLabelEdit(value.toString());
    return true;
}

QModelIndexList ListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                 Qt::MatchFlags flags) const {
    const bool byLetters = (flags & (Qt::MatchTypeMask | Qt::MatchCaseSensitive)) == Qt::MatchStartsWith;
    if (role != Qt::DisplayRole || !byLetters || !start.isValid())
        return QAbstractTableModel::match(start, role, value, hits, flags);
    const QString typed = value.toString();
    const int count = rowCount();
    const int end = (flags & Qt::MatchWrap) ? start.row() + count : count;
    QModelIndexList found;
    for (int i = start.row(); i < end && found.size() != hits; ++i) {
        const int row = i < count ? i : i - count;
        if (ShownStartsWith(list_.Cell(row + 1, start.column() + 1), typed))
            found << index(row, start.column());
    }
    return found;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return list_.ColumnHeaders.value(section);
}

} // namespace desktop
