// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <memory>
#include <vector>

/// The whole menu tree as controls, enabled and without commands; `mnuPopup`, the context menu, stands last.
/// The four entries `mnuFileMRU` (1 to 4) are hidden until they have a name.
std::vector<std::unique_ptr<controls::MenuItem>> BuildMenus();

/// An entry of `mnuXSD` and the name of the schema element that it inserts, which is its caption too.
struct SchemaEntry {
    const char* name;
    const char* element;
};
/// The entries that insert schema elements, in the order of the menu, without the entry "(none)".
const std::vector<SchemaEntry>& SchemaEntries();
