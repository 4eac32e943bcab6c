// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace textview {

std::span<const edit::Command> TextCommands(); ///< the commands on the text
/// What the commands on nodes do where the text has the user's attention.
std::span<const edit::CommandForm> TextForms();

} // namespace textview
