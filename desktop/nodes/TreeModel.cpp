// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeModel.h"
#include "desktop/base/Listen.h"
#include "desktop/base/OneLine.h"
#include <utility>

namespace desktop {

using controls::TreeNode;
using controls::TreeNodeData;

TreeModel::TreeModel(controls::TreeView& tree, IconOf iconOf, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree), iconOf_(std::move(iconOf)), selected_(tree.SelectedItem()) {
    Follow();
}

void TreeModel::Follow() {
    Listen(tree_.aboutToReset, this, [this] {
        beginResetModel();
        replacing_ = true;
    });
    Listen(tree_.reset, this, [this] {
        replacing_ = false;
        selected_ = tree_.SelectedItem();
        endResetModel();
    });
    Listen(tree_.aboutToInsert, this, [this](const TreeNode& family, int first, int last) {
        beginInsertRows(IndexOf(family), first, last);
    });
    Listen(tree_.inserted, this, [this](const TreeNode&, int, int) { endInsertRows(); });
    Listen(tree_.aboutToRemove, this, [this](const TreeNode& family, int first, int last) {
        beginRemoveRows(IndexOf(family), first, last);
    });
    Listen(tree_.removed, this, [this](const TreeNode&, int, int) { endRemoveRows(); });
    Listen(tree_.changed, this, [this](const TreeNode& node) {
        const QModelIndex index = IndexOf(node);
        Q_EMIT dataChanged(index, index);
    });
    Listen(tree_.selectionChanged, this, [this](const TreeNode& selected) { ShowSelection(selected); });
}

void TreeModel::ShowSelection(const TreeNode& selected) {
    for (const TreeNode& node : {std::exchange(selected_, selected), selected}) {
        if (const QModelIndex index = IndexOf(node); index.isValid())
            Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
    }
}

TreeNode TreeModel::NodeAt(const QModelIndex& index) const {
    if (!index.isValid() || replacing_)
        return {};
    return tree_.NodeOf(static_cast<const TreeNodeData*>(index.constInternalPointer()));
}

QModelIndex TreeModel::IndexOf(const TreeNode& node) const {
    if (node.IsNothing() || replacing_)
        return {};
    return createIndex(node.Row(), 0, const_cast<TreeNodeData*>(node.Data()));
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || parent.column() > 0 || replacing_)
        return {};
    const TreeNode family = NodeAt(parent);
    if (parent.isValid() && family.IsNothing())
        return {};
    const TreeNode node = tree_.ChildAt(family, row);
    return node ? createIndex(row, 0, const_cast<TreeNodeData*>(node.Data())) : QModelIndex();
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    const TreeNode node = NodeAt(index);
    return node ? IndexOf(node.Parent()) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    if (replacing_ || parent.column() > 0)
        return 0;
    if (!parent.isValid())
        return tree_.TopCount();
    const TreeNode node = NodeAt(parent);
    return node ? node.Children() : 0;
}

int TreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::DecorationRole && role != Qt::EditRole)
        return {};
    const TreeNode node = NodeAt(index);
    if (node.IsNothing())
        return {};
    if (role == Qt::EditRole)
        return node.Text();
    if (role == Qt::DisplayRole)
        return OneLine(node.TextView());
    return iconOf_ ? iconOf_(node.Selected() ? node.SelectedImage() : node.Image()) : QVariant();
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    const TreeNode edited = tree_.LabelEditNode();
    return edited && NodeAt(index) == edited ? flags | Qt::ItemIsEditable : flags;
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    tree_.EndLabelEdit(value.toString());
    return true;
}

} // namespace desktop
