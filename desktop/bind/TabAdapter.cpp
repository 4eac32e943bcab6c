// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/TabAdapter.h"
#include "desktop/base/Listen.h"
#include <QScopedValueRollback>

namespace desktop {

TabAdapter::TabAdapter(controls::TabStrip& model, QTabBar& bar, QStackedWidget& stack,
                       QHash<QString, QWidget*> pages, QObject* parent)
    : QObject(parent), model_(model), bar_(bar), stack_(stack), pages_(std::move(pages)) {
    ShowTabs();
    ShowPage();
    Listen(model.changed, this, [this] {
        if (bar_.count() != static_cast<int>(model_.Tabs().size()))
            ShowTabs();
        ShowSelected();
    });
    Listen(model.Click, this, [this] { ShowPage(); });
    connect(&bar, &QTabBar::currentChanged, this, [this](int index) {
        if (!updating_ && index >= 0)
            model_.Select(model_.Tabs()[static_cast<std::size_t>(index)].Key);
    });
}

void TabAdapter::ShowTabs() {
    const QScopedValueRollback guard(updating_, true);
    while (bar_.count() > 0)
        bar_.removeTab(0);
    for (const auto& tab : model_.Tabs())
        bar_.addTab(tab.Caption);
    bar_.updateGeometry(); // a bar that isn't shown yet keeps its new size from the layout
    ShowSelected();
}

void TabAdapter::ShowSelected() {
    const QScopedValueRollback guard(updating_, true);
    bar_.setCurrentIndex(model_.SelectedIndex());
}

void TabAdapter::ShowPage() {
    if (QWidget* page = pages_.value(model_.SelectedKey()))
        stack_.setCurrentWidget(page);
}

} // namespace desktop
