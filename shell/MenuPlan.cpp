// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuPlan.h"

namespace {
const QString kNone = QStringLiteral("mnuNewSNone");
}

bool IsSchemaMenu(const QString& name) {
    return name.startsWith(QLatin1String("mnuNewS"));
}

void MenuPlan::EnableAllMenuItem() {
    for (const controls::MenuItem* item : frame_.MenuEntries())
        if (!IsSchemaMenu(item->Name))
            states_[item->Name] = true;
}

void MenuPlan::DisableAllMenuItem() {
    for (const controls::MenuItem* item : frame_.MenuEntries())
        if (!IsSchemaMenu(item->Name))
            states_[item->Name] = false;
}

void MenuPlan::EnableAllPopupItem() {
    for (const auto& item : frame_.Menu(QStringLiteral("mnuPopup")).Items) {
        if (item->separator)
            continue;
        states_[item->Name] = true;
        shown_[item->Name] = true;
    }
}

void MenuPlan::Enable(std::initializer_list<const char*> names) {
    for (const char* name : names)
        states_[QLatin1String(name)] = true;
}

void MenuPlan::Disable(std::initializer_list<const char*> names) {
    for (const char* name : names)
        states_[QLatin1String(name)] = false;
}

void MenuPlan::EnableAllSchemaMenuItem() {
    for (const controls::MenuItem* item : frame_.MenuEntries())
        if (IsSchemaMenu(item->Name))
            ShowSchemaMenuItem(item->Name);
    states_[kNone] = false;
}

void MenuPlan::DisableAllSchemaMenuItem() {
    for (const controls::MenuItem* item : frame_.MenuEntries())
        if (IsSchemaMenu(item->Name))
            states_[item->Name] = false;
}

void MenuPlan::HideAllSchemaMenuItem() {
    DisableAllSchemaMenuItem();
    for (const controls::MenuItem* item : frame_.MenuEntries())
        if (IsSchemaMenu(item->Name))
            shown_[item->Name] = item->Name == kNone;
}

void MenuPlan::ShowSchemaMenuItem(const QString& name) {
    states_[name] = true;
    shown_[name] = true;
}

void MenuPlan::Apply() {
    for (controls::MenuItem* item : frame_.MenuEntries()) {
        if (const auto state = states_.constFind(item->Name); state != states_.constEnd())
            item->SetEnabled(*state);
        if (const auto shown = shown_.constFind(item->Name); shown != shown_.constEnd())
            item->SetVisible(*shown);
    }
}
