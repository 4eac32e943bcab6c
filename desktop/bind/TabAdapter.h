// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QHash>
#include <QObject>
#include <QStackedWidget>
#include <QTabBar>

namespace desktop {

/// A tab bar and the pages behind it on a TabStrip. A page is turned after the routines that a tab's
/// selection starts have filled it, so that nothing is laid out twice.
class TabAdapter : public QObject {
public:
    /// `pages`: the page of each tab key; a key without one shows the page that is shown.
    TabAdapter(controls::TabStrip& model, QTabBar& bar, QStackedWidget& stack, QHash<QString, QWidget*> pages,
               QObject* parent);

private:
    void ShowTabs();
    void ShowSelected();
    void ShowPage();

    controls::TabStrip& model_;
    QTabBar& bar_;
    QStackedWidget& stack_;
    QHash<QString, QWidget*> pages_;
    bool updating_ = false;
};

} // namespace desktop
