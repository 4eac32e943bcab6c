// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <memory>
#include <vector>

namespace shell {

/// The five toolbars in the order of the bands of the cool bar, their buttons enabled and without commands.
std::vector<std::unique_ptr<controls::Toolbar>> BuildToolbars();

} // namespace shell
