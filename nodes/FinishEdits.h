// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Ends what is being typed in a label or a cell, as if the user had left it. False where it was refused: it
/// is there still, the user has been told why, and what was to come behind it would go past it.
bool FinishEdits(DocumentWindow& window);
/// The same, and an edited text comes into the tree. False also when that doesn't parse, which the user sees
/// then: a command on nodes would be at work on a tree that the user hasn't before them.
bool FinishAllEdits(DocumentWindow& window);

} // namespace nodes
