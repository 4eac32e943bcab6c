// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Dragging nodes and rows, and what becomes of a drop. A drag always copies: what was dragged stays where it
// is. The program keeps where the last drag began, so a drop may come from another window's tree or list.
// Nodes go into the node at the place of the drop; a leaf's element takes them for the leaf.
namespace nodes {

/// Where the last drag of nodes or rows began.
struct DragSlot {
    explicit DragSlot(Application& app);

    DocumentWindow* dragSource = nullptr; ///< null once that has closed
    int dragSourceView = 0;               ///< number of the view
};
DragSlot& LastDrag(Application& app);

// --- a drag begins -----------------------------------------------------------------------------------------

/// The selected node is dragged; not the tree root, nor a node that can't be written as text.
void tvXML_StartDrag(DocumentWindow& window, bool& cancel);
void ListView1_StartDrag(DocumentWindow& window, bool& cancel); ///< the selected rows
/// What is dragged out of the tree (kViewTree) or the list (kViewList), as text without the indentation of
/// its old place. Of rows of both kinds the nodes. Empty when there is nothing.
QString DraggedText(DocumentWindow& window, int view);

// --- over a control: what takes it there, and is marked ----------------------------------------------------

/// Something comes over the tree. An edited text is brought into the tree first, since that makes new nodes;
/// one that doesn't parse refuses the drag, which status panel 1 tells.
void tvXML_DragEnter(DocumentWindow& window, bool& refuse);
/// The node that takes it at a node: nothing for a place that takes nothing, such as what is dragged itself
/// and the tree root.
controls::TreeNode tvXML_DragOver(DocumentWindow& window, controls::Dragged what, controls::TreeNode node);
/// The same in the list, at a row: an element's row takes nodes into that element, any other row and 0
/// (beside the rows) into the node on show. Only nodes and rows are dropped on the list.
controls::TreeNode ListView1_DragOver(DocumentWindow& window, controls::Dragged what, int row);

// --- the drop ----------------------------------------------------------------------------------------------

/// Copies what is dragged into `target`, all of it or nothing: what doesn't fit is told. Nothing happens for
/// a target that is dragged itself, and nodes of a tree don't go onto the tree root.
void tvXML_DragDrop(DocumentWindow& window, controls::TreeNode target);
/// The same for a drop on the list, which stays on its node.
void ListView1_DragDrop(DocumentWindow& window, controls::TreeNode target);
/// A text from elsewhere, such as another program: nodes go into `target`, a list of attributes into it if it
/// is an element. What is neither is told.
void tvXML_OLEDragDrop(DocumentWindow& window, const QString& text, controls::TreeNode target);

} // namespace nodes
