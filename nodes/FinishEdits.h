// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Ends what is being typed in a label or a cell, as if the user had left it.
void FinishEdits(DocumentWindow& window);
/// The same, and an edited text comes into the tree. False when that doesn't parse, which the user sees then:
/// a command on nodes would be at work on a tree that the user hasn't before them.
bool FinishAllEdits(DocumentWindow& window);

} // namespace nodes
