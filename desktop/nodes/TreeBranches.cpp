// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeBranches.h"
#include <QStyle>
#include <QWidget>

namespace desktop {

using controls::TreeNode;

namespace {

int DepthOf(const TreeNode& node) {
    int depth = 0;
    for (TreeNode above = node.Parent(); above; above = above.Parent())
        ++depth;
    return depth;
}

} // namespace

void PaintBranches(QPainter& painter, QStyleOptionViewItem row, const TreeNode& node, int step) {
    const QStyle& style = *row.widget->style();
    QRect cell(row.rect.left() + DepthOf(node) * step, row.rect.top(), step, row.rect.height());
    if (row.showDecorationSelected) {
        row.rect.setRight(cell.right());
        style.drawPrimitive(QStyle::PE_PanelItemViewRow, &row, &painter, row.widget);
    }
    // The node's own cell, then one for each level further out.
    row.state &=
        QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Selected | QStyle::State_MouseOver;
    for (TreeNode one = node; one && cell.right() >= 0; one = one.Parent(), cell.translate(-step, 0)) {
        row.rect = cell;
        row.state.setFlag(QStyle::State_Sibling, static_cast<bool>(one.Next()));
        row.state.setFlag(QStyle::State_Item, one == node);
        row.state.setFlag(QStyle::State_Children, one == node && one.Child());
        row.state.setFlag(QStyle::State_Open, one == node && one.Expanded());
        style.drawPrimitive(QStyle::PE_IndicatorBranch, &row, &painter, row.widget);
    }
}

} // namespace desktop
