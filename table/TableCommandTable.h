// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace table {

/// The commands of the table view.
std::span<const edit::Command> TableCommands();
/// What the commands of other rooms do in a table.
std::span<const edit::CommandForm> TableForms();

} // namespace table
