// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

// Moves what is current in the list, where that has the user's attention, else the selected node of the tree,
// which has the attention then. What is being typed is finished before.
void MoveUp(DocumentWindow& window);
void MoveDown(DocumentWindow& window);

} // namespace nodes
