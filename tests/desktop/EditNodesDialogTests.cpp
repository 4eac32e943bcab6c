// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets of the one-by-one editor, by keys and clicks.
#include "desktop/dialogs/EditNodesDialog.h"
#include "tests/desktop/ShownApp.h"
#include "textview/TextState.h"
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace {

using test::ShownApp;

struct EditNodesDialog : ::testing::Test {
    ShownApp t;
    desktop::EditNodesDialog* dialog = nullptr;

    void Open(const QByteArray& text) {
        DocumentWindow& w = t.OpenText(QStringLiteral("shop.xml"), text);
        t.ClickNode(w.tvXML.Nodes(1).Child().Child());
        t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
        dialog = t.main->findChild<desktop::EditNodesDialog*>();
        ASSERT_TRUE(dialog && dialog->isVisible());
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    }
    // A window counts as active already while one that belongs to it is.
    static bool Activate(QWidget& window) {
        window.activateWindow();
        return QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; });
    }
    template <typename Widget> Widget& Of(const char* name) {
        auto* found = dialog->findChild<Widget*>(QLatin1String(name));
        if (!found)
            throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }
    QPlainTextEdit& Value() { return Of<QPlainTextEdit>("txtNodeAttrs"); }
    QPlainTextEdit& NodeText() { return Of<QPlainTextEdit>("txtNodeText"); }
    QLineEdit& Name() { return Of<QLineEdit>("txtNodeName"); }
    std::string Text() { return t.window().rtxtXML.Text().toStdString(); }
};

TEST_F(EditNodesDialog, CtrlAndArrowsWalkFromEachBoxAndTheBoxesFitTheNode) {
    Open("<shop><pen colour='red'>ink</pen><!--note--></shop>");
    EXPECT_EQ(Of<QLabel>("lAttrs").text(), QStringLiteral("Attributes:"));
    EXPECT_TRUE(NodeText().isVisible());
    const auto& up = Of<QToolButton>("cmdUp"); // also on a machine without an icon theme
    EXPECT_TRUE(!up.icon().isNull() || up.arrowType() == Qt::UpArrow);
    EXPECT_EQ(up.toolTip(), QStringLiteral("Previous Node"));
    const int half = Value().height();
    Value().setFocus();
    QTest::keyClick(&Value(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Of<QLabel>("lAttrs").text(), QStringLiteral("Value:"));
    EXPECT_EQ(Value().toPlainText(), QStringLiteral("note"));
    EXPECT_FALSE(NodeText().isVisible());
    EXPECT_FALSE(Name().isEnabled());
    EXPECT_FALSE(Of<QToolButton>("cmdDown").isEnabled());
    QCoreApplication::processEvents();
    EXPECT_GT(Value().height(), half * 3 / 2) << "the one box has the room of both";
    QTest::keyClick(&Of<QLineEdit>("txtXPath"), Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(&Name(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(Value().toPlainText(), QStringLiteral("ink"));
    EXPECT_EQ(t.window().tvXML.SelectedItem().Tag(), QStringLiteral("ink"));
}

// A box has line ends of its own, and plain texts lose hard blanks: what wasn't touched must not change.
TEST_F(EditNodesDialog, ATextOfSeveralLinesIsChangedOnlyWhereItWasTyped) {
    Open("<shop><pen>one\xC2\xA0\ntwo</pen></shop>");
    const std::string before = Text();
    QTest::mouseClick(&Of<QPushButton>("cmdOk"), Qt::LeftButton);
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(textview::StateOf(t.window()).UndoPos, 0);
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    QTest::keyClicks(&NodeText(), QStringLiteral("x"));
    QTest::mouseClick(&Of<QPushButton>("cmdOk"), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(Text().find(">xone\xC2\xA0\r\ntwo<"), std::string::npos) << Text();
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    QTest::keyClicks(&NodeText(), QStringLiteral("dry "));
    QTest::keyClick(&NodeText(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Text().find("dry"), std::string::npos);
}

// The box that it was typed into has the keys, and the reason stands beside it.
TEST_F(EditNodesDialog, WhatOkRefusesIsPutRightWhereItWasTyped) {
    Open("<shop><pen colour='red'>ink</pen></shop>");
    ASSERT_TRUE(Activate(*dialog));
    QTest::keyClicks(&NodeText(), QStringLiteral("<"));
    t.prompts.Answer(services::Answer::No);
    QTest::mouseClick(&Of<QPushButton>("cmdOk"), Qt::LeftButton);
    ASSERT_TRUE(dialog->isVisible());
    EXPECT_TRUE(NodeText().hasFocus());
    EXPECT_EQ(NodeText().toPlainText(), QStringLiteral("<ink"));
    const auto& reason = Of<QLabel>("reason");
    EXPECT_TRUE(reason.isVisible());
    EXPECT_FALSE(reason.text().isEmpty());
    QTest::keyClick(&NodeText(), Qt::Key_Delete);
    NodeText().selectAll();
    QTest::keyClicks(&NodeText(), QStringLiteral("dry"));
    EXPECT_FALSE(reason.isVisible());
    QTest::mouseClick(&Of<QPushButton>("cmdOk"), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(Text().find(">dry<"), std::string::npos);
}

// Broken between words, a line of this length would not come up before the user has gone.
TEST_F(EditNodesDialog, AVeryLongLineIsBrokenAnywhere) {
    const QByteArray value(300'000, 'x');
    Open("<shop><pen>" + value + "</pen><cap>short words</cap></shop>");
    EXPECT_EQ(NodeText().wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(NodeText().toPlainText().size(), value.size());
    QTest::keyClick(&Name(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(NodeText().toPlainText(), QStringLiteral("short words"));
    EXPECT_EQ(NodeText().wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(EditNodesDialog, TheRadioButtonsChooseTreeOrList) {
    Open("<shop><pen colour='red'>ink</pen></shop>");
    QTest::mouseClick(&Of<QRadioButton>("optList"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(Of<QRadioButton>("optList").isChecked());
    EXPECT_FALSE(Of<QRadioButton>("optTree").isChecked());
    EXPECT_EQ(Name().text(), QStringLiteral("Node Text"));
    QTest::keyClick(&Value(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Of<QLabel>("lNodeName").text(), QStringLiteral("Attribute Name:"));
    EXPECT_EQ(t.List().currentIndex().row(), 1);
}

// The dialog takes its document along, and leaves the views alone while the user works in them.
TEST_F(EditNodesDialog, ActivationMovesBetweenTheDialogAndTheDocuments) {
    Open("<shop><pen colour='red'>ink</pen></shop>");
    DocumentWindow& shop = t.window();
    dialog->reject();
    t.ClickTab(QStringLiteral("textview"));
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    EXPECT_EQ(shop.miPopupContext, kContextTree);
    QTest::keyClicks(&NodeText(), QStringLiteral("dry "));
    ASSERT_TRUE(Activate(*t.main));
    EXPECT_EQ(shop.miPopupContext, kContextText);
    t.OpenText(QStringLiteral("other.xml"), "<other/>");
    ASSERT_TRUE(Activate(*dialog));
    EXPECT_EQ(t.frame().ActiveForm(), &shop);
    EXPECT_TRUE(t.main->windowTitle().contains(QStringLiteral("shop.xml")))
        << t.main->windowTitle().toStdString();
    EXPECT_EQ(NodeText().toPlainText(), QStringLiteral("dry ink"));
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeWindow(), dialog);
}

} // namespace
