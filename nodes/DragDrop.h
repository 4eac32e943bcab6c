// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What becomes of a drop. A drag always copies: what was dragged stays where it is. `source` is the name of
// the window's own control that the drag began in, "tvXML" or "ListView1".

/// The XML of what a drag from a control carries; empty when there is nothing to drag.
QString DraggedText(DocumentWindow& window, const QString& source);

/// Copies the selected node, or the selected rows, into `target`; a leaf's parent takes it for the leaf.
/// Nothing happens for a target that is itself dragged, and nodes of the tree don't go onto the tree root.
void tvXML_DragDrop(DocumentWindow& window, const QString& source, controls::TreeNode target);
/// The same onto a row of the list: its element takes the nodes, any other row and 0 (beside the rows) stand
/// for the node on show.
void ListView1_DragDrop(DocumentWindow& window, const QString& source, int row);
/// A text from elsewhere, such as another program: nodes go into `target`, a list of attributes into its
/// element. What is neither is told in a box.
void tvXML_OLEDragDrop(DocumentWindow& window, const QString& text, controls::TreeNode target);
/// Writes a text into a text pane at a 0-based position, held within the text, and colours it.
void rtxtXML_DragDrop(DocumentWindow& window, const QString& text, qsizetype position);
void rtxtXML2_DragDrop(DocumentWindow& window, const QString& text, qsizetype position);
