// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace shell {

/// Runs a command in the view of a window that has the user's attention, after what has to come before.
/// Nothing happens where it has no form for that view, or where what is typed can't go in, which the user is
/// told.
void RunCommand(DocumentWindow& window, const edit::Command& command, std::span<const edit::Form> forms);

} // namespace shell
