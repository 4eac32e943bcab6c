// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/SampleGrid.h"
#include <QAbstractTableModel>

namespace desktop {

/// The cells of a sample grid as an item model. Its fixed row heads the columns.
class SampleModel : public QAbstractTableModel {
public:
    SampleModel(exchange::SampleGrid& grid, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void Refill();
    exchange::SampleGrid& grid_;
    int rows_ = 0, columns_ = 0, fixed_ = 0; ///< as the views know them
};

} // namespace desktop
