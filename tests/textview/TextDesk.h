// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TestApp.h"
#include "textview/FillText.h"
#include <gtest/gtest.h>

namespace test {

/// A document in the text view, and what a user does there.
class TextDesk {
public:
    explicit TextDesk(const QByteArray& document = "<a>\n\t<b>one</b>\n</a>") {
        app.OpenText(QStringLiteral("text.xml"), document);
        window().tbsXML.Select(QStringLiteral("textview"));
        Enter(window().rtxtXML);
    }

    TestApp app;
    DocumentWindow& window() { return app.window(); }
    controls::RichTextBox& pane() { return window().TextInUse(); }
    QString Text() { return pane().Text(); }

    void Enter(controls::RichTextBox& target) { target.GotFocus(); }
    void Select(qsizetype start, qsizetype length = 0) {
        pane().UserSelected(start, length);
        pane().MouseUp();
        pane().Click();
    }
    /// Selects the first place of a text, or sets the caret behind it.
    void SelectText(const QString& text) { Select(Text().indexOf(text), text.size()); }
    void CaretBehind(const QString& text) { Select(Text().indexOf(text) + text.size()); }
    void SelectLines(const QString& from, const QString& to) {
        const qsizetype start = Text().indexOf(from);
        Select(start, Text().indexOf(to) + to.size() - start);
    }

    /// A key with what the pane itself does for it, unless the window used it up; its code afterwards.
    int Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        int code = key;
        pane().KeyDown(code, static_cast<int>(modifiers));
        if (code == key)
            EditByKey(key);
        pane().KeyUp(key, static_cast<int>(modifiers));
        return code;
    }
    void Type(const QString& text) {
        for (const QChar c : text) {
            int code = c.unicode();
            pane().KeyDown(code, 0);
            pane().KeyPress(QString(c));
            pane().Type(QString(c));
            pane().KeyUp(c.unicode(), 0);
        }
    }
    void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { Press(Qt::Key_Y, Qt::ControlModifier); }
    /// What menu and toolbar offer: "u" for undo, "r" for redo.
    QString Steps() {
        frmMDIMain& frame = app.frame();
        controls::Toolbar& toolbar = frame.ToolbarByName(QStringLiteral("tbCommonEdit"));
        QString steps;
        for (const auto& [entry, key] : {std::pair{"mnuEditUndo", "undo"}, std::pair{"mnuRedo", "redo"}}) {
            const bool enabled = frame.Menu(QLatin1String(entry)).Enabled();
            EXPECT_EQ(toolbar.Button(QLatin1String(key)).Enabled(), enabled);
            steps += enabled ? QString(QLatin1Char(key[0])) : QString();
        }
        return steps;
    }
    bool PanesAgree() { return window().rtxtXML.Long() == window().rtxtXML2.Long(); }
    /// "start+length" of the pane in use.
    QString Selection() { return QStringLiteral("%1+%2").arg(pane().SelStart()).arg(pane().SelLength()); }

private:
    void EditByKey(int key) {
        const qsizetype at = pane().SelStart(), length = pane().SelLength();
        if (key == Qt::Key_Left)
            pane().UserSelected(std::max<qsizetype>(at - 1, 0), 0);
        else if (key == Qt::Key_Right)
            pane().UserSelected(at + 1, 0);
        else if (length > 0 && (key == Qt::Key_Delete || key == Qt::Key_Backspace))
            pane().UserReplaced(at, length, {});
        else if (key == Qt::Key_Backspace && at > 0)
            Remove(at, LineEndAt(at - 2) ? -2 : -1);
        else if (key == Qt::Key_Delete && at < pane().Long().size())
            Remove(at, LineEndAt(at) ? 2 : 1);
    }
    bool LineEndAt(qsizetype at) { return at >= 0 && pane().Long().mid(at, 2) == QStringLiteral("\r\n"); }
    void Remove(qsizetype at, qsizetype units) {
        pane().UserReplaced(units < 0 ? at + units : at, std::abs(units), {});
    }
};

} // namespace test
