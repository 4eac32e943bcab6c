// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QHash>
#include <memory>
#include <vector>

namespace shell {

/// The frame's menus and toolbars, found by name.
class FrameMenus {
public:
    FrameMenus();

    /// The menu bar; mnuPopup stands last and is not shown in the bar.
    std::vector<std::unique_ptr<controls::MenuItem>> Menus;
    std::vector<std::unique_ptr<controls::Toolbar>> Toolbars; ///< in the order of the bands of CoolBar1

    controls::MenuItem& Menu(const QString& name, int index = 0) const;       ///< throws Fault 35601
    controls::Toolbar& ToolbarByName(const QString& name) const;              ///< throws Fault 35601
    controls::ToolButton& Button(const char* toolbar, const char* key) const; ///< throws Fault 35601
    /// All entries that have a name, in the order of the menus.
    const std::vector<controls::MenuItem*>& MenuEntries() const { return entries_; }

private:
    void IndexMenu(controls::MenuItem& item);
    std::vector<controls::MenuItem*> entries_;
    QHash<QString, std::vector<controls::MenuItem*>> entriesByName_;
};

} // namespace shell
