// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace exchange {

/// The commands that write the document in front elsewhere.
std::span<const edit::Command> ExchangeCommands();

} // namespace exchange
