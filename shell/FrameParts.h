// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/AddressBox.h"
#include "shell/Dialogs.h"
#include "shell/FrameMenus.h"
#include "shell/RecentFiles.h"
#include "shell/Windows.h"

namespace shell {

/// What the frame is made of, and what its own commands work on.
struct FrameParts {
    explicit FrameParts(Application& application)
        : app(application), dialogs(application), windows(application, dialogs),
          recentFiles(application.services.settings, menus, address),
          addressBox(application, address, menus, windows, recentFiles) {}

    Application& app;
    FrameMenus menus;
    controls::StatusBar statusBar{2};
    controls::ComboBox address;
    Dialogs dialogs;
    Windows windows;
    RecentFiles recentFiles;
    AddressBox addressBox;
    controls::Event<int> arranged; ///< an ArrangeCode
    controls::Event<> ended;       ///< the process is to end at once
};

} // namespace shell
