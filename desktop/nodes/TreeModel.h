// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QAbstractItemModel>
#include <functional>

namespace desktop {

/// A tree control as an item model of one column. Each index carries the address of its node, so that a view
/// over millions of rows tells its indexes apart quickly. The tree must outlive the model.
class TreeModel : public QAbstractItemModel {
public:
    /// The icon for a picture key of the tree's image list; an invalid variant is no icon.
    using IconOf = std::function<QVariant(const QString& picture)>;

    explicit TreeModel(controls::TreeView& tree, IconOf iconOf = {}, QObject* parent = nullptr);
    controls::TreeView& Tree() const { return tree_; }

    /// The node of an index: nothing for an invalid one and while the tree is being replaced.
    controls::TreeNode NodeAt(const QModelIndex& index) const;
    /// The index of a node; invalid for nothing and while the tree is being replaced.
    QModelIndex IndexOf(const controls::TreeNode& node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Display: the node's text on one line. Edit: the whole text. Decoration: its picture, the other one
    /// while it is the selected node.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Takes the text of the node whose label is being edited.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void Follow();
    void ShowSelection(const controls::TreeNode& selected);

    controls::TreeView& tree_;
    IconOf iconOf_;
    controls::TreeNode selected_; ///< the node that shows its selected picture
    bool replacing_ = false; ///< between the two announcements of a reset addresses of nodes mean nothing
};

} // namespace desktop
