// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <memory>
#include <vector>

namespace desktop {

/// A file's name as a menu shows it: it has no mnemonic and no shortcut of its own behind a tab, and a long
/// one keeps its ends, so that the menu stays a menu.
QString NameAsEntry(const QString& fileName);

/// Menus on MenuItem controls: an action for each entry, named as the entry is, whose text and state follow
/// it. An entry's shortcut is in force only while the entry can be used.
class MenuAdapter : public QObject {
public:
    explicit MenuAdapter(QObject* parent) : QObject(parent) {}
    /// Adds the entries to a menu bar; returns the last menu, which is a context menu and stands outside the
    /// bar.
    QMenu* Fill(const std::vector<std::unique_ptr<controls::MenuItem>>& items, QMenuBar& bar);

private:
    void FillMenu(const controls::MenuItem& item, QMenu& menu);
    QAction* MakeAction(controls::MenuItem& item, QObject* owner);
    void Follow(controls::MenuItem& item, QAction& action);
};

} // namespace desktop
