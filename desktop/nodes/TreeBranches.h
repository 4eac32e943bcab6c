// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QPainter>
#include <QStyleOptionViewItem>

namespace desktop {

/// Paints what stands in a row left of a node's picture: the lines of the branches and the mark for open or
/// closed, as the style has them. `row` is the whole row with the state of its node, `mark` the cell of the
/// node's mark; the other levels have cells of the same size.
void PaintBranches(QPainter& painter, QStyleOptionViewItem row, const controls::TreeNode& node, QRect mark);

} // namespace desktop
