// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include "shell/FrameParts.h"
#include <span>

/// How Arrange places the document windows, numbered as the platform does.
enum ArrangeCode { vbCascade = 0, vbTileHorizontal = 1, vbTileVertical = 2, vbArrangeIcons = 3 };

namespace shell {

/// A command of the frame's own.
struct FrameCommand {
    edit::Offer offer;
    /// `index` is the entry's number in an array of entries with one name, else 0. Null: the command isn't
    /// there yet, and its entries can't be chosen.
    void (*run)(FrameParts& frame, int index) = nullptr;
};

/// Files, windows, views, options and help; and what belongs to rooms that aren't built yet.
std::span<const FrameCommand> FrameCommands();

} // namespace shell
