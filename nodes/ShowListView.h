// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace nodes {

/// Fills the list with the current node's children and, below them, its attributes (or, for a leaf, its own
/// content). A row that was selected stays selected if its key is still there. Without a current node the
/// list is emptied.
void ShowListView(DocumentWindow& window);

} // namespace nodes
