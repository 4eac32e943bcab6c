// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrameMenus.h"
#include "platform/text/Fault.h"
#include "shell/MenuData.h"
#include "shell/ToolbarData.h"

namespace shell {

FrameMenus::FrameMenus() : Menus(BuildMenus()), Toolbars(BuildToolbars()) {
    for (const auto& menu : Menus)
        IndexMenu(*menu);
}

void FrameMenus::IndexMenu(controls::MenuItem& item) {
    if (!item.separator) {
        entries_.push_back(&item);
        entriesByName_[item.Name].push_back(&item);
    }
    for (const auto& child : item.Items)
        IndexMenu(*child);
}

controls::MenuItem& FrameMenus::Menu(const QString& name, int index) const {
    for (controls::MenuItem* item : entriesByName_.value(name)) {
        if (item->Index == index)
            return *item;
    }
    throw text::Fault(text::kFaultNotFound, QStringLiteral("Element not found"));
}

controls::Toolbar& FrameMenus::ToolbarByName(const QString& name) const {
    for (const auto& toolbar : Toolbars) {
        if (toolbar->Name == name)
            return *toolbar;
    }
    throw text::Fault(text::kFaultNotFound, QStringLiteral("Element not found"));
}

controls::ToolButton& FrameMenus::Button(const char* toolbar, const char* key) const {
    return ToolbarByName(QLatin1String(toolbar)).Button(QLatin1String(key));
}

} // namespace shell
