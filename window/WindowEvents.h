// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The life of a document window.
namespace window {

/// Joins the controls of a window that was just made to its views and commands.
void Form_Load(DocumentWindow& window);
/// The window has come to the front: menus, the opened and selected root where no node is current, the name
/// in hand.
void Form_Activate(DocumentWindow& window);
/// The window is to be closed: open edits are finished, and unsaved changes are asked about. False: it stays.
bool Form_Unload(DocumentWindow& window);

void SetVSplitPosition(DocumentWindow& window, double position); ///< twips, held at 0 or more

} // namespace window
