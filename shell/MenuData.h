// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <memory>
#include <vector>

namespace shell {

/// The whole menu tree as controls, enabled and without commands; `mnuPopup`, the context menu, stands last.
/// The four entries `mnuFileMRU` (1 to 4) are hidden until they have a name.
std::vector<std::unique_ptr<controls::MenuItem>> BuildMenus();

} // namespace shell
