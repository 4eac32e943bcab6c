// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/MenuAdapter.h"
#include "desktop/base/Listen.h"
#include "desktop/base/OneLine.h"
#include "desktop/base/ThemeIcons.h"
#include <QApplication>
#include <QFontMetrics>
#include <QKeySequence>

namespace desktop {

QString NameAsEntry(const QString& fileName) {
    constexpr int kWidest = 80; // characters
    const QFontMetrics metrics(QApplication::font("QMenu"));
    return metrics.elidedText(OneLineName(fileName), Qt::ElideMiddle, kWidest * metrics.averageCharWidth())
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QMenu* MenuAdapter::Fill(const std::vector<std::unique_ptr<controls::MenuItem>>& items, QMenuBar& bar) {
    QMenu* menu = nullptr;
    for (const auto& item : items) {
        const bool inBar = item != items.back();
        menu = new QMenu(&bar);
        menu->setObjectName(item->Name);
        FillMenu(*item, *menu);
        Follow(*item, *menu->menuAction());
        if (inBar)
            bar.addMenu(menu);
    }
    return menu;
}

void MenuAdapter::FillMenu(const controls::MenuItem& item, QMenu& menu) {
    menu.setToolTipsVisible(false);
    for (const auto& entry : item.Items) {
        if (entry->separator) {
            menu.addSeparator();
        } else if (!entry->Items.empty()) {
            auto* sub = new QMenu(&menu);
            sub->setObjectName(entry->Name);
            FillMenu(*entry, *sub);
            Follow(*entry, *sub->menuAction());
            menu.addMenu(sub);
        } else {
            menu.addAction(MakeAction(*entry, &menu));
        }
    }
}

QAction* MenuAdapter::MakeAction(controls::MenuItem& item, QObject* owner) {
    auto* action = new QAction(owner);
    action->setObjectName(item.Name);
    action->setMenuRole(QAction::NoRole);
    action->setIcon(ThemeIcon(item.Icon));
    action->setShortcuts(QKeySequence::listFromString(item.Shortcut, QKeySequence::PortableText));
    connect(action, &QAction::triggered, this, [&item] { item.Click(); });
    Follow(item, *action);
    return action;
}

void MenuAdapter::Follow(controls::MenuItem& item, QAction& action) {
    const auto show = [&item, &action] {
        action.setText(item.Index > 0 ? NameAsEntry(item.Caption()) : item.Caption());
        action.setEnabled(item.Usable());
        action.setVisible(item.Visible());
    };
    show();
    Listen(item.changed, &action, show);
}

} // namespace desktop
