// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/frmMDIMain.h"
#include <QHash>
#include <initializer_list>

/// The enabled states of the menu entries, worked out in full before the first entry changes: a situation
/// starts by enabling nearly everything, and the menus would flicker through that otherwise.
class MenuPlan {
public:
    explicit MenuPlan(frmMDIMain& frame) : frame_(frame) {}

    void EnableAllMenuItem();  ///< but for the entries that insert schema elements
    void DisableAllMenuItem(); ///< likewise
    void EnableAllPopupItem(); ///< the context menu's entries, which a situation may have hidden: shown again
    void Set(const QString& name, bool enabled) { states_[name] = enabled; }
    void Enable(std::initializer_list<const char*> names);
    void Disable(std::initializer_list<const char*> names);

    // The entries that insert schema elements; "(none)" stays shown and disabled.
    void EnableAllSchemaMenuItem();
    void DisableAllSchemaMenuItem();
    void HideAllSchemaMenuItem();
    void ShowSchemaMenuItem(const QString& name); ///< shown and enabled

    void Apply(); ///< sets the entries that the plan names

private:
    frmMDIMain& frame_;
    QHash<QString, bool> states_;
    QHash<QString, bool> shown_;
};

/// Whether an entry inserts a schema element: its name starts with "mnuNewS", in this very case.
bool IsSchemaMenu(const QString& name);
