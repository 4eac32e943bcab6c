// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/ListView.h"
#include <QAbstractTableModel>
#include <functional>

namespace desktop {

/// A list control as a table model of three columns. The list must outlive the model.
class ListModel : public QAbstractTableModel {
public:
    /// The icon for a row's kind (ListItem::SmallIcon); an invalid variant is no icon.
    using IconOf = std::function<QVariant(int kind)>;

    explicit ListModel(controls::ListView& list, IconOf iconOf = {}, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Display: the cell's text on one line. Decoration: the row's icon, in the first column.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Takes the text of the row whose label is being edited.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// What a view's search for typed letters asks for is found without a row being made.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits = 1,
                          Qt::MatchFlags flags = {Qt::MatchStartsWith | Qt::MatchWrap}) const override;
    /// The list's column headers; empty where it has none.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void Follow();

    controls::ListView& list_;
    IconOf iconOf_;
    bool replacing_ = false; ///< between the two announcements of a reset
};

} // namespace desktop
