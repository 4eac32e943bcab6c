// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/DocumentDragging.h"
#include "desktop/drag/EdgeScroll.h"
#include "desktop/drag/NodeDrag.h"
#include "desktop/drag/NodeDrop.h"
#include "desktop/nodes/TreeModel.h"
#include "ui_frmXMLEdit.h"

namespace desktop {

using controls::TreeNode;

DocumentDragging::DocumentDragging(DocumentWindow& window, const Ui::frmXMLEdit& ui) {
    controls::TreeView& tree = window.tvXML;
    const auto& nodes = *static_cast<const TreeModel*>(ui.tvXML->model());
    NodeDrag::Connect(*ui.tvXML, tree.Drag, this);
    NodeDrop::Connect(
        *ui.tvXML, tree.Drag, [&nodes](const QModelIndex& index) { return nodes.NodeAt(index); },
        [&nodes](TreeNode node) { return node ? nodes.IndexOf(node) : QModelIndex(); }, this,
        [view = ui.tvXML](const QModelIndex& index) { view->setExpanded(index, true); });

    controls::ListView& list = window.ListView1;
    const QAbstractItemModel& rows = *ui.ListView1->model();
    const auto rowAt = [](const QModelIndex& index) { return index.row() + 1; };
    const auto indexOf = [&rows](int row) { return row > 0 ? rows.index(row - 1, 0) : QModelIndex(); };
    NodeDrag::Connect(*ui.ListView1, list.Drag, this);
    NodeDrag::Connect(*ui.ListView1Icons, list.Drag, this);
    NodeDrop::Connect(*ui.ListView1, list.Drag, rowAt, indexOf, this);
    NodeDrop::Connect(*ui.ListView1Icons, list.Drag, rowAt, indexOf, this);
    // Another style of the list makes its items stay in their places, which ends dragging as well.
    Listen(list.viewChanged, this, [view = ui.ListView1Icons] { view->setDragEnabled(true); });

    for (QAbstractScrollArea* view : std::initializer_list<QAbstractScrollArea*>{
             ui.tvXML, ui.ListView1, ui.ListView1Icons, ui.rtxtXML, ui.rtxtXML2})
        new EdgeScroll(*view);
}

} // namespace desktop
