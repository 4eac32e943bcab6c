// SPDX-License-Identifier: GPL-3.0-or-later
// The options dialog with its real widgets, opened from the menu and worked by keys and clicks.
#include "tests/desktop/ShownApp.h"
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

namespace {

using test::ShownApp;

/// Finds the widgets of the dialog in front by their controls' names.
class Dialog {
public:
    Dialog() : dialog_(QApplication::activeModalWidget()) {}
    template <typename Widget> Widget& Find(const char* name) {
        auto* found = dialog_ ? dialog_->findChild<Widget*>(QLatin1String(name)) : nullptr;
        if (!found)
            throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }
    QLineEdit& Line(const char* name) { return Find<QLineEdit>(name); }
    void Click(const char* button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
    void Type(const char* line, const char* text) {
        Line(line).setFocus();
        Line(line).selectAll();
        QTest::keyClicks(&Line(line), QLatin1String(text));
    }
    void Press(Qt::Key key) { QTest::keyClick(dialog_, key); }
    QColor Ink(const char* sample) { return Line(sample).palette().color(QPalette::Active, QPalette::Text); }
    bool IsOpen() { return dialog_ && dialog_->isVisible(); }

private:
    QPointer<QWidget> dialog_;
};

/// Chooses the menu entry; `act` works the dialog and closes it (else it is closed as by Esc).
void InDialog(ShownApp& t, const std::function<void(Dialog&)>& act) {
    bool opened = false;
    QTimer::singleShot(0, [&] {
        opened = true;
        Dialog dialog;
        act(dialog);
        if (dialog.IsOpen())
            dialog.Press(Qt::Key_Escape);
    });
    t.main->findChild<QAction*>(QStringLiteral("mnuToolOptions"))->trigger();
    EXPECT_TRUE(opened);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the dialog stayed open";
}

TEST(OptionsDialog, WhatIsTypedIsAppliedAndEnterOrEscapeEndIt) {
    ShownApp t;
    InDialog(t, [&](Dialog& dialog) {
        dialog.Type("txtUndoSteps", "7");
        dialog.Type("txtTTLen", "90");
        dialog.Click("cmdApply");
        EXPECT_EQ(t.app().options.Steps, 7);
        EXPECT_TRUE(dialog.IsOpen());
        dialog.Type("txtUndoSteps", "8");
        dialog.Press(Qt::Key_Escape);
        EXPECT_FALSE(dialog.IsOpen());
    });
    EXPECT_EQ(t.app().options.Steps, 7);
    EXPECT_EQ(t.app().options.TreeToolTipShowLength, 90);
    InDialog(t, [](Dialog& dialog) {
        EXPECT_EQ(dialog.Line("txtUndoSteps").text(), QStringLiteral("7"));
        dialog.Type("txtUndoSteps", "9");
        dialog.Press(Qt::Key_Return);
        EXPECT_FALSE(dialog.IsOpen());
    });
    EXPECT_EQ(t.app().options.Steps, 9);
}

TEST(OptionsDialog, ListsOfferTheirItemsAndTheSizeMayBeTyped) {
    ShownApp t;
    t.app().options.Encoding = QStringLiteral("KOI8-R"); // not on offer
    InDialog(t, [](Dialog& dialog) {
        auto& encodings = dialog.Find<QComboBox>("cmbEnc");
        EXPECT_EQ(encodings.placeholderText(), QStringLiteral("KOI8-R"));
        encodings.setFocus();
        QTest::keyClick(&encodings, Qt::Key_End);
        auto& pages = dialog.Find<QStackedWidget>("pages");
        auto& tabs = dialog.Find<QTabBar>("tbsOptions");
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
        EXPECT_EQ(pages.currentWidget()->objectName(), QStringLiteral("textview"));
        auto& sizes = dialog.Find<QComboBox>("cmbSize");
        EXPECT_EQ(sizes.currentText(), QStringLiteral("10"));
        sizes.lineEdit()->selectAll();
        QTest::keyClicks(sizes.lineEdit(), QStringLiteral("13"));
        dialog.Type("txtFontName", "Liberation Mono");
        const QFont sample = dialog.Find<QLabel>("fontSample").font();
        EXPECT_EQ(sample.family(), QStringLiteral("Liberation Mono"));
        EXPECT_EQ(sample.pointSizeF(), 13);
        QTest::keyClicks(sizes.lineEdit(), QStringLiteral("00000000")); // shown in a size that can be drawn
        EXPECT_LE(dialog.Find<QLabel>("fontSample").font().pointSizeF(), 100);
        sizes.lineEdit()->setText(QString());
        QTest::keyClicks(sizes.lineEdit(), QStringLiteral("13"));
        dialog.Click("cmdOK");
    });
    EXPECT_EQ(t.app().options.Encoding, QStringLiteral("BIG5"));
    EXPECT_EQ(t.app().options.TextSize, 13);
    EXPECT_EQ(t.app().options.TextName, QStringLiteral("Liberation Mono"));
}

TEST(OptionsDialog, ASampleShowsItsColourAtOnce) {
    ShownApp t;
    t.prompts.ChooseColours({0x0000FFu, 0x808000u});
    InDialog(t, [](Dialog& dialog) {
        const std::pair<const char*, QColor> shown[] = {{"txtGL", {0, 0, 255}},
                                                        {"txtSlash", {50, 200, 50}},
                                                        {"txtEqual", {255, 50, 50}},
                                                        {"txtComment", {180, 180, 180}}};
        for (const auto& [name, colour] : shown)
            EXPECT_EQ(dialog.Ink(name), colour) << name;
        dialog.Find<QTabBar>("tbsOptions").setCurrentIndex(1);
        dialog.Click("cmdColor0");
        EXPECT_EQ(dialog.Ink("txtGL"), QColor(255, 0, 0));
        dialog.Click("cmdColor3");
        EXPECT_EQ(dialog.Ink("txtComment"), QColor(0, 128, 128));
        EXPECT_EQ(dialog.Ink("txtSlash"), QColor(50, 200, 50));
    });
}

} // namespace
