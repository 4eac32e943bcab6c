// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeBranches.h"
#include <QStyle>
#include <QWidget>

namespace desktop {

using controls::TreeNode;

void PaintBranches(QPainter& painter, QStyleOptionViewItem row, const TreeNode& node, QRect mark) {
    const QStyle& style = *row.widget->style();
    if (row.showDecorationSelected) {
        row.rect.setRight(mark.right());
        style.drawPrimitive(QStyle::PE_PanelItemViewRow, &row, &painter, row.widget);
    }
    // The node's own cell, then one for each level further out.
    row.state &=
        QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Selected | QStyle::State_MouseOver;
    row.rect = mark;
    for (TreeNode one = node; one && row.rect.right() >= 0; one = one.Parent()) {
        row.state.setFlag(QStyle::State_Sibling, static_cast<bool>(one.Next()));
        row.state.setFlag(QStyle::State_Item, one == node);
        row.state.setFlag(QStyle::State_Children, one == node && one.Child());
        row.state.setFlag(QStyle::State_Open, one == node && one.Expanded());
        style.drawPrimitive(QStyle::PE_IndicatorBranch, &row, &painter, row.widget);
        row.rect.translate(-mark.width(), 0);
    }
}

} // namespace desktop
