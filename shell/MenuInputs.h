// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"

namespace shell {

/// All that menus and toolbars depend on.
struct MenuInputs {
    bool window = false; ///< there is one in front
    bool schema = false; ///< it designs schemas
    MenuSituation situation = MenuSituation::NoForm;
    edit::Target target;
    bool operator==(const MenuInputs&) const = default;
};

MenuInputs InputsOf(DocumentWindow* window); ///< of the window in front, as it stands; null: there is none

} // namespace shell
