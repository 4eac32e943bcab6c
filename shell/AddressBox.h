// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/FrameMenus.h"
#include "shell/RecentFiles.h"
#include "shell/Windows.h"

namespace shell {

/// What the box for paths and addresses does, and the button "go" beside it.
class AddressBox {
public:
    AddressBox(Application& app, controls::ComboBox& box, FrameMenus& menus, Windows& windows,
               RecentFiles& recentFiles);

    void cmbAddress_Change(); ///< "go" is enabled as long as there is something to go to
    void cmbAddress_Click();  ///< opens what stands in the box
    void cmbAddress_KeyUp(int key);

private:
    Application& app_;
    controls::ComboBox& address_;
    FrameMenus& menus_;
    Windows& windows_;
    RecentFiles& recentFiles_;
};

} // namespace shell
