// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Connects dragging out of tree and list and onto them. What is dropped ends an edit that is open first.
void ConnectDragging(DocumentWindow& window);

} // namespace nodes
