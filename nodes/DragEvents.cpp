// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DragEvents.h"
#include "core/edit/View.h"
#include "nodes/DragDrop.h"
#include "nodes/FinishEdits.h"

namespace nodes {

namespace {

using controls::Dragged;
using controls::TreeNode;

QString KeyOf(TreeNode node) {
    return node ? node.Key() : QString();
}

TreeNode ReadyTarget(DocumentWindow& window, const QString& key) {
    return FinishEdits(window) ? window.tvXML.Nodes.Find(key) : TreeNode();
}

void ConnectTreeDrag(DocumentWindow& window) {
    controls::Dragging<TreeNode>& drag = window.tvXML.Drag;
    drag.Start.connect([&window](bool& cancel) { tvXML_StartDrag(window, cancel); });
    drag.Text.connect([&window](QString& text) { text = DraggedText(window, edit::kViewTree); });
    drag.Enter.connect([&window](bool& refuse) { tvXML_DragEnter(window, refuse); });
    drag.Over.connect([&window](Dragged what, TreeNode node, QString& key) {
        const TreeNode target = tvXML_DragOver(window, what, node);
        window.tvXML.Drag.SetHighlight(target);
        key = KeyOf(target);
    });
    drag.Leave.connect([&window] { window.tvXML.Drag.SetHighlight({}); });
    drag.Drop.connect([&window](const QString& key) { tvXML_DragDrop(window, ReadyTarget(window, key)); });
    drag.DropText.connect([&window](const QString& text, const QString& key) {
        tvXML_OLEDragDrop(window, text, ReadyTarget(window, key));
    });
}

void ConnectListDrag(DocumentWindow& window) {
    controls::Dragging<int>& drag = window.ListView1.Drag;
    drag.Start.connect([&window](bool& cancel) { ListView1_StartDrag(window, cancel); });
    drag.Text.connect([&window](QString& text) { text = DraggedText(window, edit::kViewList); });
    drag.Over.connect([&window](Dragged what, int row, QString& key) {
        key = KeyOf(ListView1_DragOver(window, what, row));
        window.ListView1.Drag.SetHighlight(key.isEmpty() ? 0 : window.ListView1.IndexOf(key));
    });
    drag.Leave.connect([&window] { window.ListView1.Drag.SetHighlight(0); });
    drag.Drop.connect(
        [&window](const QString& key) { ListView1_DragDrop(window, ReadyTarget(window, key)); });
}

} // namespace

void ConnectDragging(DocumentWindow& window) {
    ConnectTreeDrag(window);
    ConnectListDrag(window);
}

} // namespace nodes
