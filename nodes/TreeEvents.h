// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Joins the events of the tree, dragging aside, to what they do.
void ConnectTree(DocumentWindow& window);

} // namespace nodes
