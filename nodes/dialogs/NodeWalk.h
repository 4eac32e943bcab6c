// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The one-by-one editor's walk: along the rows of the list (context 2) or the nodes of the tree (any other).
// Where no node or row is that way, the current one stays.
namespace nodes {

/// The ways that lead on.
struct Ways {
    bool up, down, left, right;
};
Ways WaysOn(DocumentWindow& window, int context);

void WalkToSibling(DocumentWindow& window, int context, bool next);
void WalkDown(DocumentWindow& window, int context);  ///< to the first child, or the first row of an element
void WalkUp(DocumentWindow& window, int context);    ///< to the parent; in the list, to the row that was left
void SelectAny(DocumentWindow& window, int context); ///< where nothing is current yet: the first

void ShowListTab(DocumentWindow& window);
/// A window that comes to the front shows its root as the current node; here the work goes on where it was.
void BringToFront(DocumentWindow& window);

} // namespace nodes
