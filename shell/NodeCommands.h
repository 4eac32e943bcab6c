// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <array>
#include <span>

/// A command on the nodes of the active window. What it does depends on the view that has the user's
/// attention (miPopupContext): tree, list, table, text or compact view.
struct NodeCommand {
    std::array<const char*, 3> entries; ///< menu entries, the context menu's among them; null: no more
    const char* toolbar;                ///< null: no button
    const char* button;
    void (*run)(DocumentWindow& window);
    /// The same on the text of a cell that is being edited; false where it has nothing to do there. Null, or
    /// false: the edit ends first.
    bool (*inCell)(DocumentWindow& window) = nullptr;
};

std::span<const NodeCommand> NodeCommands();
