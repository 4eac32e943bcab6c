// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/SampleModel.h"
#include "desktop/base/Listen.h"

namespace desktop {

namespace {

// A cell of megabytes would be laid out whole.
constexpr qsizetype kShown = 200;

QString Shown(const QString& text) {
    QString shown = text.left(kShown);
    return shown.replace(u'\n', QChar(0x23CE)); // one line a row
}

} // namespace

SampleModel::SampleModel(exchange::SampleGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {
    Listen(grid.changed, this, [this] { Refill(); });
    Refill();
}

void SampleModel::Refill() {
    beginResetModel();
    fixed_ = grid_.FixedRows();
    rows_ = grid_.Rows() - fixed_;
    columns_ = grid_.Rows() > 0 ? grid_.Cols() : 0;
    endResetModel();
}

int SampleModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int SampleModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant SampleModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    return Shown(grid_.TextMatrix(index.row() + fixed_, index.column()));
}

QVariant SampleModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal && fixed_ > 0)
        return Shown(grid_.TextMatrix(0, section));
    return section + 1;
}

} // namespace desktop
