// SPDX-License-Identifier: GPL-3.0-or-later
// Cells and labels of the list, edited with real keys and clicks.
#include "desktop/dialogs/EditNodesDialog.h"
#include "tests/desktop/ShownApp.h"
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolButton>

namespace {

using desktop::EditNodesDialog;
using test::ShownApp;

constexpr char kShop[] = "<shop><pen colour='red'>ink</pen><box/>two\nlines</shop>";

// How often a widget gets an event of a type.
class EventCount : public QObject {
public:
    EventCount(QWidget& widget, QEvent::Type type) : type_(type) { widget.installEventFilter(this); }
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == type_;
        return false;
    }

private:
    QEvent::Type type_;
};

struct ListEditing : ::testing::Test {
    ShownApp t;

    void Open(const QByteArray& text = kShop) {
        t.OpenText(QStringLiteral("shop.xml"), text);
        t.Press(Qt::Key_Down); // the root element
    }
    QModelIndex Cell(int row, int column) { return t.List().model()->index(row, column); }
    QLineEdit& Editor() { return t.Find<QLineEdit>(QStringLiteral("txtListView")); }
    void ClickRow(int row, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(t.List().viewport(), Qt::LeftButton, held,
                          t.List().visualRect(Cell(row, 0)).center());
    }
    void OpenEditor(int row) {
        ClickRow(row);
        t.Press(Qt::Key_Tab);
        ASSERT_TRUE(Editor().isVisible());
        ASSERT_TRUE(Editor().hasFocus());
    }
    std::string Text() { return t.window().rtxtXML.Text().toStdString(); }
};

TEST_F(ListEditing, TabOpensTheEditorOverItsCellAndReturnWrites) {
    Open();
    OpenEditor(0);
    const QRect cell = t.List().visualRect(Cell(0, 1));
    EXPECT_EQ(Editor().geometry().topLeft(), cell.topLeft());
    EXPECT_EQ(Editor().height(), cell.height());
    EXPECT_LT(Editor().width(), cell.width()) << "the button stands beside it";
    EXPECT_EQ(Editor().selectedText(), QStringLiteral("colour=\"red\""));
    QTest::keyClicks(&Editor(), QStringLiteral("colour=\"blue\""));
    t.Press(Qt::Key_Return);
    EXPECT_FALSE(Editor().isVisible());
    EXPECT_TRUE(t.List().hasFocus());
    EXPECT_EQ(Cell(0, 1).data().toString(), QStringLiteral("colour=\"blue\""));
    EXPECT_NE(Text().find("<pen colour=\"blue\">"), std::string::npos) << Text();
}

TEST_F(ListEditing, TheButtonBesideTheEditorOpensTheOneByOneEditor) {
    Open();
    OpenEditor(0);
    QTest::keyClicks(&Editor(), QStringLiteral("colour=\"blue\""));
    auto& button = t.Find<QToolButton>(QStringLiteral("cmdPop"));
    ASSERT_TRUE(button.isVisible());
    t.Click(button, button.rect().center());
    auto* dialog = t.main->findChild<EditNodesDialog*>();
    ASSERT_TRUE(dialog && dialog->isVisible());
    EXPECT_EQ(dialog->findChild<QPlainTextEdit*>(QStringLiteral("txtNodeAttrs"))->toPlainText(),
              QStringLiteral("colour=\"blue\""));
}

TEST_F(ListEditing, TheEditorGoesWithItsColumn) {
    Open();
    OpenEditor(0);
    t.List().header()->resizeSection(0, t.List().header()->sectionSize(0) + 40);
    EXPECT_EQ(Editor().geometry().left(), t.List().visualRect(Cell(0, 1)).left());
    t.List().header()->resizeSection(1, 200);
    EXPECT_LE(Editor().geometry().right(), t.List().visualRect(Cell(0, 1)).right());
}

TEST_F(ListEditing, TheEditorScrollsWithItsRow) {
    Open("<list>" + QByteArray("<item n='1'/>").repeated(200) + "</list>");
    OpenEditor(9);
    t.List().verticalScrollBar()->setValue(3);
    EXPECT_EQ(Editor().geometry().top(), t.List().visualRect(Cell(9, 1)).top());
    EXPECT_EQ(t.Find<QToolButton>(QStringLiteral("cmdPop")).geometry().top(), Editor().geometry().top());
    t.List().verticalScrollBar()->setValue(100);
    EXPECT_FALSE(t.List().viewport()->rect().intersects(Editor().geometry()));
    QTest::keyClick(&Editor(), Qt::Key_End);
    QTest::keyClicks(&Editor(), QStringLiteral(" m=\"2\""));
    t.List().verticalScrollBar()->setValue(0);
    EXPECT_EQ(Editor().geometry().top(), t.List().visualRect(Cell(9, 1)).top());
    EXPECT_EQ(Editor().text(), QStringLiteral("n=\"1\" m=\"2\""));
}

// The context menu opens before the button is let go, when no click has told of the row yet.
TEST_F(ListEditing, TheContextMenuIsThatOfTheRowUnderThePointer) {
    Open("<shop name='Tea'><pen/></shop>");
    ClickRow(1); // the attribute stands for the root element, which has no siblings
    ASSERT_FALSE(t.frame().Menu(QStringLiteral("mnuNewNodeP")).Enabled());
    const QPoint place = t.List().visualRect(Cell(0, 0)).center();
    QTest::mousePress(t.List().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, t.List().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(t.List().viewport(), &event);
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewNodeP")).Enabled());
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    QTest::mouseRelease(t.List().viewport(), Qt::RightButton, {}, place);
}

// The box has one line, the text may have more: what isn't touched stays.
TEST_F(ListEditing, ATextOfSeveralLinesKeepsThem) {
    Open();
    OpenEditor(2);
    t.Press(Qt::Key_End);
    QTest::keyClicks(&Editor(), QStringLiteral("!"));
    t.Press(Qt::Key_Return);
    EXPECT_NE(Text().find("two\r\nlines!"), std::string::npos) << Text();
}

// Ctrl and W close a document from the menu. In the list they show icons, and it doesn't matter which key is
// let go first.
TEST_F(ListEditing, CtrlAndALetterChooseTheStyle) {
    Open();
    ClickRow(0);
    t.Press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_EQ(t.frame().FormCount(), 1);
    EXPECT_EQ(t.window().ListView1.View(), controls::lvwIcon);
    QWidget* icons = QApplication::focusWidget();
    EXPECT_EQ(icons->objectName(), QStringLiteral("ListView1Icons"));
    QTest::keyPress(icons, Qt::Key_E, Qt::ControlModifier);
    QTest::keyRelease(icons, Qt::Key_E, Qt::NoModifier);
    EXPECT_EQ(t.window().ListView1.View(), controls::lvwList);
}

TEST_F(ListEditing, ItemsBesideEachOtherHaveRoomForTheirNames) {
    Open("<shop><a/>words<description/></shop>");
    ClickRow(0);
    for (const Qt::Key style : {Qt::Key_W, Qt::Key_E, Qt::Key_R}) {
        t.Press(style, Qt::ControlModifier);
        auto& icons = t.Find<QListView>(QStringLiteral("ListView1Icons"));
        for (int row = 0; row < 3; ++row) {
            const QModelIndex item = icons.model()->index(row, 0);
            EXPECT_GE(icons.visualRect(item).width(),
                      icons.fontMetrics().horizontalAdvance(item.data().toString()))
                << item.data().toString().toStdString();
        }
    }
}

// Names that fill several columns: the scroll bar that they need mustn't set off another layout for ever.
TEST_F(ListEditing, ManyNamesComeToRestWithTheCurrentOneInSight) {
    Open("<list>" + QByteArray("<item/>").repeated(300) + "</list>");
    QTest::mouseClick(t.List().viewport(), Qt::LeftButton, {}, t.List().visualRect(Cell(0, 1)).center());
    t.Press(Qt::Key_End);
    for (const Qt::Key style : {Qt::Key_W, Qt::Key_E, Qt::Key_R}) {
        t.Press(style, Qt::ControlModifier);
        auto& icons = t.Find<QListView>(QStringLiteral("ListView1Icons"));
        const auto sees = [&](int row) {
            const QRect place = icons.visualRect(icons.model()->index(row, 0));
            return icons.viewport()->rect().contains(place.center());
        };
        EXPECT_TRUE(sees(299)) << style;
        const EventCount resizes(*icons.viewport(), QEvent::Resize);
        for (int i = 0; i < 20; ++i)
            QTest::qWait(1);
        EXPECT_EQ(resizes.count, 0) << style;
        t.Press(Qt::Key_Home);
        EXPECT_TRUE(sees(0)) << style;
        t.Press(Qt::Key_End);
        EXPECT_TRUE(sees(299)) << style;
    }
}

// The editor and what it writes go by the columns' own order.
TEST_F(ListEditing, ColumnsStayWhereTheyAre) {
    Open();
    QHeaderView& header = *t.List().header();
    const QPoint second(header.sectionViewportPosition(1) + 40, header.height() / 2);
    const QPoint third(header.sectionViewportPosition(2) + header.sectionSize(2) - 20, header.height() / 2);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, second);
    for (const QPoint& place : {second + QPoint(30, 0), third, third + QPoint(5, 0)}) {
        QMouseEvent move(QEvent::MouseMove, place, header.viewport()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(header.viewport(), &move);
    }
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(header.visualIndex(1), 1);
}

// What Ctrl+C copies is for the program to say: nothing, where nothing is selected.
TEST_F(ListEditing, TheWidgetsThemselvesCopyNothing) {
    Open();
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    for (const int style : {controls::lvwReport, controls::lvwList}) {
        t.window().ListView1.SetView(style);
        t.window().ListView1.SetFocus();
        ASSERT_TRUE(qobject_cast<QAbstractItemView*>(QApplication::focusWidget())->currentIndex().isValid());
        t.Press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("kept")) << style;
    }
    t.Tree().setFocus();
    t.Press(Qt::Key_Up); // the document, which can't be copied
    t.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("kept"));
}

// The parser speaks up while a name is typed, about the names that it will be asked about.
TEST_F(ListEditing, AWrongNameIsComplainedAboutWhileItIsTyped) {
    Open("<shop name='Tea'><pen/></shop>");
    const auto complaint = [&] { return t.frame().StatusBar1().Panel(1); };
    for (const int row : {0, 1}) {
        ClickRow(row);
        t.Press(Qt::Key_F2);
        t.Type(QStringLiteral("a b"));
        EXPECT_FALSE(complaint().isEmpty()) << row;
        t.Press(Qt::Key_Backspace);
        t.Press(Qt::Key_Backspace);
        EXPECT_EQ(complaint(), QString()) << row;
        t.Type(QStringLiteral("<"));
        EXPECT_FALSE(complaint().isEmpty()) << row;
        t.Press(Qt::Key_Escape);
        EXPECT_EQ(complaint(), QString()) << "given up";
    }
    t.Press(Qt::Key_F2);
    t.Type(QStringLiteral("a b"));
    t.prompts.Answer(services::Answer::Ok);
    t.Press(Qt::Key_Return);
    EXPECT_FALSE(complaint().isEmpty()) << "the name was handed in, and refused";
    t.Press(Qt::Key_Escape);
}

// What was refused is put right where it was typed, also when the user went elsewhere with the mouse.
TEST_F(ListEditing, WhatIsRefusedStaysAsItWasTyped) {
    Open();
    OpenEditor(0);
    QTest::keyClicks(&Editor(), QStringLiteral("colour=blue"));
    for (const bool byMouse : {false, true}) {
        t.prompts.Answer(services::Answer::Ok);
        if (byMouse)
            t.ClickTreeRow(t.Tree().model()->index(0, 0));
        else
            t.Press(Qt::Key_Return);
        ASSERT_TRUE(Editor().isVisible());
        EXPECT_TRUE(Editor().hasFocus());
        EXPECT_EQ(Editor().text(), QStringLiteral("colour=blue"));
        EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
    }
    const auto& reason = t.Find<QLabel>(QStringLiteral("reason"));
    EXPECT_TRUE(reason.isVisible());
    EXPECT_FALSE(reason.text().isEmpty());
    QWidget& form = *reason.parentWidget();
    EXPECT_FALSE(reason.geometry().intersects(QRect(Editor().mapTo(&form, QPoint()), Editor().size())));
    t.Press(Qt::Key_Escape);
    EXPECT_FALSE(reason.isVisible());
    EXPECT_EQ(Cell(0, 1).data().toString(), QStringLiteral("colour=\"red\""));
    t.ChooseMenu(QStringLiteral("mnuNewAttr"));
    t.Type(QStringLiteral("a b"));
    t.prompts.Answer(services::Answer::Ok);
    t.Press(Qt::Key_Return);
    auto* label = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text(), QStringLiteral("a b"));
    t.Press(Qt::Key_Escape);
    EXPECT_EQ(t.List().model()->rowCount(), 3) << "and the attribute goes with it";
}

TEST_F(ListEditing, TabGoesFromTheNameToTheValueAndOn) {
    Open();
    ClickRow(1);
    t.Press(Qt::Key_F2);
    t.Type(QStringLiteral("crate"));
    t.Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(1, 0).data().toString(), QStringLiteral("crate"));
    ASSERT_TRUE(Editor().hasFocus());
    t.Type(QStringLiteral("n=\"1\""));
    t.Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(1, 1).data().toString(), QStringLiteral("n=\"1\""));
    ASSERT_TRUE(Editor().hasFocus());
    EXPECT_EQ(Editor().geometry().left(), t.List().visualRect(Cell(1, 2)).left());
    t.Type(QStringLiteral("full"));
    t.Press(Qt::Key_Tab);
    EXPECT_TRUE(Editor().text().startsWith(QStringLiteral("two")));
    EXPECT_EQ(t.List().currentIndex().row(), 2);
    t.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Editor().text(), QStringLiteral("full"));
    EXPECT_TRUE(Editor().hasFocus());
}

// The double click walks down to the row that is current, and to no other.
TEST_F(ListEditing, ADoubleClickThatTakesARowOutOfTheSelectionStaysOnTheLevel) {
    Open();
    ClickRow(0);
    t.window().ListView1.SetSelectedItem(2);
    Q_EMIT t.List().doubleClicked(Cell(0, 0));
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
}

// A new name fills the list anew, and the keys stay there.
TEST_F(ListEditing, AfterALabelTheListHasTheKeys) {
    Open();
    ClickRow(1);
    t.Press(Qt::Key_F2);
    auto* label = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(label);
    label->selectAll();
    QTest::keyClicks(label, QStringLiteral("chest"));
    QTest::keyClick(label, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(t.List().hasFocus());
    EXPECT_EQ(Cell(1, 0).data().toString(), QStringLiteral("chest"));
    t.Press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
    t.Press(Qt::Key_Escape);
    EXPECT_EQ(Cell(1, 0).data().toString(), QStringLiteral("chest"));
    t.Press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("bin"));
    ClickRow(0); // elsewhere
    EXPECT_EQ(Cell(1, 0).data().toString(), QStringLiteral("bin"));
}

// What the widget marks is what the next command works on.
TEST_F(ListEditing, AfterADeleteTheSelectionIsTheSameInBoth) {
    for (const char* text : {"<shop a='1' b='2' c='3'/>", "<shop><a/><b/><c/></shop>"}) {
        Open(text);
        ClickRow(1);
        t.Press(Qt::Key_Delete);
        ASSERT_EQ(t.List().model()->rowCount(), 2);
        const auto& list = t.window().ListView1;
        for (int row = 0; row < 2; ++row)
            EXPECT_EQ(t.List().selectionModel()->isRowSelected(row), list.Selected(row + 1)) << text << row;
        EXPECT_EQ(list.SelectedItem(), 2) << "the row behind what went";
        EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuEditCut")).Enabled()) << text;
        t.prompts.Answer(services::Answer::No);
        t.frame().CloseForm(&t.window());
    }
}

TEST_F(ListEditing, ALabelThatIsBeingTypedReachesTheFileOfAWindowThatCloses) {
    Open();
    ClickRow(1);
    t.Press(Qt::Key_F2);
    auto* label = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(label);
    label->selectAll();
    QTest::keyClicks(label, QStringLiteral("crate"));
    t.prompts.Answer(services::Answer::Yes);
    t.frame().CloseForm(&t.window());
    EXPECT_TRUE(t.folder.Read(QStringLiteral("shop.xml")).contains("<crate>"));
}

} // namespace
