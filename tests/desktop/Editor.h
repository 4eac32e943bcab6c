// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextSteps.h"
#include "desktop/text/TextView.h"
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace test {

/// A text view of its own on an offscreen platform; acts go in as events.
struct Editor : ::testing::Test {
    controls::RichTextBox model;
    desktop::TextView view;

    Editor() {
        view.SetModel(&model);
        view.resize(500, 300);
        view.show();
        view.activateWindow();
        view.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    ~Editor() override { view.SetModel(nullptr); }

    void Load(const QString& text, qsizetype caret = 0) {
        model.SetText(text);
        model.SetSelStart(caret);
        QCoreApplication::processEvents();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&view, key, held); }
    void Type(const QString& text) {
        for (const QChar unit : text)
            QTest::sendKeyEvent(QTest::Click, &view, Qt::Key_unknown, QString(unit), {});
    }
    /// The middle of the character behind a position.
    QPoint On(qsizetype position) {
        const QRect next = view.RectAt(desktop::NextPlace(model.Long(), position));
        return (view.RectAt(position).center() + next.center()) / 2;
    }
    void Click(qsizetype position, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, held, view.RectAt(position).center());
    }
    bool Shows(qsizetype position) { return view.viewport()->rect().contains(view.RectAt(position)); }
    QImage Painted() { return view.viewport()->grab().toImage(); }
};

} // namespace test
