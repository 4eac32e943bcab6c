// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Moving the selected node of the tree. What is moved gets new keys, and is the selected node again.
namespace nodes {

/// Changes places with the neighbour above or below, as a copy and a delete, each an edit of its own: the
/// text gets two undo steps (quirk 3). Nothing passes the instruction at the head of a document.
void MoveUpDownOneNodeAtTree(DocumentWindow& window, bool up);
/// One level up: behind its parent. Nothing happens where only the root element may stand.
void SetNodeAsParent(DocumentWindow& window);
/// One level down: last child of the sibling before it, where that is an element.
void SetNodeAsChild(DocumentWindow& window);
/// Selects the parent, unless the tree root is selected.
void GoBackToTreeUpLevel(DocumentWindow& window);

} // namespace nodes
