// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/frame/MainWindow.h"
#include "desktop/nodes/TreeWidget.h"
#include "desktop/text/TextView.h"
#include "tests/support/TestApp.h"
#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <QWindow>
#include <gtest/gtest.h>
#include <memory>

namespace test {

/// The application with its real widgets on an offscreen platform. Acts go in as events of the window
/// system.
class ShownApp : public TestApp {
public:
    ShownApp() : main(std::make_unique<desktop::MainWindow>(frame())) {
        main->show();
        main->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(main.get()));
    }

    /// A widget of the active document, by its control's name.
    template <typename Widget> Widget& Find(const QString& name) {
        QWidget* form = QApplication::focusWidget();
        while (form && form->objectName() != QLatin1String("frmXMLEdit") &&
               form->objectName() != QLatin1String("frmSXMLEdit"))
            form = form->parentWidget();
        auto* found = (form ? form : main.get())->findChild<Widget*>(name);
        if (!found)
            throw std::runtime_error("no widget " + name.toStdString());
        return *found;
    }
    desktop::TreeWidget& Tree() { return Find<desktop::TreeWidget>(QStringLiteral("tvXML")); }
    QTreeView& List() { return Find<QTreeView>(QStringLiteral("ListView1")); }
    desktop::TextView& Text() { return Find<desktop::TextView>(QStringLiteral("rtxtXML")); }

    void Click(QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(main->windowHandle(), button, {}, widget.mapTo(main.get(), place));
        QCoreApplication::processEvents();
    }
    void ClickTab(const QString& key) {
        auto& bar = Find<QTabBar>(QStringLiteral("tbsXML"));
        const auto& tabs = window().tbsXML.Tabs();
        for (std::size_t i = 0; i < tabs.size(); ++i)
            if (tabs[i].Key == key)
                return Click(bar, bar.tabRect(static_cast<int>(i)).center());
    }
    void ClickTreeRow(const QModelIndex& index) {
        Click(*Tree().viewport(), Tree().visualRect(index).center());
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(main->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }
    void Type(const QString& text) {
        for (const QChar unit : text)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(unit),
                                {});
    }
    QString SelectedNode() {
        return window().tvXML.SelectedItem() ? window().tvXML.SelectedItem().Text() : QString();
    }

    std::unique_ptr<desktop::MainWindow> main;
};

} // namespace test
