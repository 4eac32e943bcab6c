// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include "shell/FrameMenus.h"
#include <QStringList>

namespace shell {

/// The last documents: in the settings store, in the file menu and in the address box.
class RecentFiles {
public:
    RecentFiles(services::SettingsStore& store, FrameMenus& menus, controls::ComboBox& address)
        : store_(store), menus_(menus), address_(address) {}

    /// Fills the menu entries from the store; entries that aren't reached keep what they had.
    void GetRecentFiles();
    /// The store's values in its order; one empty text for an empty section.
    QStringList GetRecentFilesArray() const;
    /// 1 to 4: the menu entry that shows the name; else -1.
    int FindRecentFile(const QString& name) const;
    void WriteRecentFiles(const QString& name); ///< puts a name at the front
    void UpdateFileMenu(const QString& name);   ///< the same, and the menu follows
    void FillCombo();                           ///< the address box from the store
    void AddToList(const QString& name);        ///< adds a name to the address box, if it isn't there

private:
    services::SettingsStore& store_;
    FrameMenus& menus_;
    controls::ComboBox& address_;
};

} // namespace shell
