// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace nodes {

/// The commands on nodes, in the tree and in the list; what some of them do in a text is told by the room
/// that keeps it.
std::span<const edit::Command> NodeCommands();

} // namespace nodes
