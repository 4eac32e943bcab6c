// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor does with keys, the mouse, input methods and the clipboard.
#include "tests/desktop/Editor.h"
#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>

namespace {

struct TextEditing : test::Editor {
    /// Positions that a key visits until it stops.
    std::vector<qsizetype> Walk(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        std::vector<qsizetype> places{view.Caret()};
        for (Press(key, held); view.Caret() != places.back(); Press(key, held))
            places.push_back(view.Caret());
        return places;
    }
    void Drop(const QMimeData& mime, QPoint place) {
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &drop);
    }
};

using Places = std::vector<qsizetype>;

TEST_F(TextEditing, TypedTextAndWholeLineEndsGoIntoTheModel) {
    Type(QStringLiteral("<a>"));
    Press(Qt::Key_Return);
    Type(QStringLiteral("x"));
    Press(Qt::Key_Enter, Qt::ShiftModifier);
    EXPECT_EQ(model.Text(), QStringLiteral("<a>\r\nx\r\n"));
    EXPECT_EQ(model.SelStart(), 8);
    model.Locked = true;
    Type(QStringLiteral("y"));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(model.Text(), QStringLiteral("<a>\r\nx\r\n"));
}

// As far as it stands in front of the caret.
TEST_F(TextEditing, ANewLineBeginsBelowTheOneBefore) {
    Load(QStringLiteral("\t  <a>"), 6);
    Press(Qt::Key_Return);
    Type(QStringLiteral("x"));
    EXPECT_EQ(model.Text(), QStringLiteral("\t  <a>\r\n\t  x"));
    view.Select(1, 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(model.Text(), QStringLiteral("\t\r\n\t  <a>\r\n\t  x"));
    view.Select(0, 0);
    Press(Qt::Key_Return);
    EXPECT_EQ(model.Text().left(4), QStringLiteral("\r\n\t\r"));
}

TEST_F(TextEditing, TheModelIsAskedBeforeTypedTextGoesIn) {
    QStringList asked;
    model.KeyPress.connect([&](const QString& text) { asked << text + model.Text(); });
    Type(QStringLiteral("ab"));
    Press(Qt::Key_Return);
    EXPECT_EQ(asked, QStringList({QStringLiteral("a"), QStringLiteral("ba"), QStringLiteral("\rab")}));
}

TEST_F(TextEditing, LineEndsPairsAndAccentsAreOneStepAndGoAsOne) {
    Load(QStringLiteral("a\r\n\U0001F600e\u0301\r\n\r\nb"));
    EXPECT_EQ(Walk(Qt::Key_Right), Places({0, 1, 3, 5, 7, 9, 11, 12}));
    EXPECT_EQ(Walk(Qt::Key_Left), Places({12, 11, 9, 7, 5, 3, 1, 0}));
    view.Select(2, 2);
    EXPECT_EQ(view.Caret(), 1) << "no caret stands inside a line end";
    model.SetSelStart(2);
    EXPECT_EQ(view.Caret(), 1) << "nor be put there";
    Press(Qt::Key_Delete);
    EXPECT_EQ(model.Text(), QStringLiteral("a\U0001F600e\u0301\r\n\r\nb"));
    Press(Qt::Key_Delete);
    Press(Qt::Key_Delete);
    EXPECT_EQ(model.Text(), QStringLiteral("a\r\n\r\nb"));
    Press(Qt::Key_End, Qt::ControlModifier);
    Press(Qt::Key_Left);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(model.Text(), QStringLiteral("a\r\nb"));
}

TEST_F(TextEditing, WordStepsStopAtWordsRunsOfMarksAndLineEnds) {
    Load(QStringLiteral("<row id=\"5\"/>\r\n  text"));
    EXPECT_EQ(Walk(Qt::Key_Right, Qt::ControlModifier), Places({0, 1, 5, 7, 9, 10, 13, 15, 17, 21}));
    EXPECT_EQ(Walk(Qt::Key_Left, Qt::ControlModifier), Places({21, 17, 15, 13, 10, 9, 7, 5, 1, 0}));
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(model.Text().left(6), QStringLiteral("row id"));
    view.Select(6, 6);
    Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(model.Text().left(6), QStringLiteral("row =\""));
}

TEST_F(TextEditing, ShiftExtendsTheSelectionAndTheModelKnows) {
    Load(QStringLiteral("<a>one</a>\r\n<b>two</b>\r\n"), 3);
    Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(model.SelText(), QStringLiteral("one"));
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(model.SelText(), QStringLiteral("one</a>"));
    Press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(model.SelText(), QStringLiteral("<a>")) << "the other end stays";
    Press(Qt::Key_Right);
    EXPECT_EQ(model.SelStart(), 3) << "an arrow leaves a selection at its edge";
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(model.SelText(), QStringLiteral("one</a>\r\n<b>"));
    Type(QStringLiteral("!"));
    EXPECT_EQ(model.Text(), QStringLiteral("<a>!two</b>\r\n"));
}

TEST_F(TextEditing, UpAndDownKeepTheirColumnOverShorterLines) {
    Load(QStringLiteral("<order>\r\n</a>\r\n\t<item/>"), 6);
    EXPECT_EQ(Walk(Qt::Key_Down), Places({6, 13, 18})) << "a tab is as wide as four characters";
    EXPECT_EQ(Walk(Qt::Key_Up), Places({18, 13, 6}));
}

TEST_F(TextEditing, PagesEndAtBothEndsOfTheText) {
    Load(QStringLiteral("<a/>\r\n").repeated(100), 2);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(model.Long().lineOf(view.Caret()), view.RowsShown() - 1);
    EXPECT_EQ(view.FirstRow(), view.RowsShown() - 1) << "the view goes along";
    for (int i = 0; i < 100; ++i)
        Press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(view.Caret(), 600);
    EXPECT_TRUE(Shows(600));
}

TEST_F(TextEditing, InsertSwitchesToReplacingWhatStandsThere) {
    Load(QStringLiteral("ab\r\ncd"));
    Press(Qt::Key_Insert);
    Type(QStringLiteral("xyz"));
    EXPECT_EQ(model.Text(), QStringLiteral("xyz\r\ncd")) << "a line's end stays";
    Press(Qt::Key_Insert);
    Type(QStringLiteral("!"));
    EXPECT_EQ(model.Text(), QStringLiteral("xyz!\r\ncd"));
}

// --- mouse -------------------------------------------------------------------------------------------------

TEST_F(TextEditing, ClicksTakeAWordALineAndExtend) {
    Load(QStringLiteral("<order id=\"5\">\r\n<item/>\r\n"));
    QWidget* port = view.viewport();
    QTest::mouseClick(port, Qt::LeftButton, {}, On(3));
    QTest::mouseDClick(port, Qt::LeftButton, {}, On(3));
    EXPECT_EQ(model.SelText(), QStringLiteral("order"));
    QTest::mouseClick(port, Qt::LeftButton, {}, On(3));
    EXPECT_EQ(model.SelText(), QStringLiteral("<order id=\"5\">\r\n")) << "the third click takes the line";
    Click(20);
    Click(17, Qt::ShiftModifier);
    EXPECT_EQ(model.SelStart(), 17);
    EXPECT_EQ(model.SelLength(), 3);
}

// The nearest place of the caret is behind a letter whose right half is under the pointer.
TEST_F(TextEditing, TheLetterUnderThePointerCountsWhicheverHalfOfItIsThere) {
    Load(QStringLiteral("<order id=\"5\">"));
    QWidget* port = view.viewport();
    for (const qsizetype behind : {2, 4, 6}) {
        QTest::mouseDClick(port, Qt::LeftButton, {}, view.RectAt(behind).center() - QPoint(2, 0));
        EXPECT_EQ(model.SelText(), QStringLiteral("order")) << behind;
        Click(0);
    }
    view.Select(1, 6);
    const auto shapeAt = [&](QPoint place) {
        QMouseEvent move(QEvent::MouseMove, place, port->mapToGlobal(place), Qt::NoButton, {}, {});
        QApplication::sendEvent(port, &move);
        return port->cursor().shape();
    };
    EXPECT_EQ(shapeAt(view.RectAt(6).center() - QPoint(2, 0)), Qt::ArrowCursor)
        << "selected: it can be dragged";
    EXPECT_EQ(shapeAt(view.RectAt(1).center() - QPoint(2, 0)), Qt::IBeamCursor);
}

TEST_F(TextEditing, DraggingSelectsBothWaysAndBeyondTheEdge) {
    Load(QStringLiteral("<a>text</a>\r\n").repeated(200));
    QWidget* port = view.viewport();
    const auto moveTo = [&](QPoint place) {
        QMouseEvent move(QEvent::MouseMove, place, port->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         {});
        QApplication::sendEvent(port, &move);
    };
    QTest::mousePress(port, Qt::LeftButton, {}, view.RectAt(16).center());
    moveTo(view.RectAt(20).center());
    EXPECT_EQ(model.SelText(), QStringLiteral("text"));
    moveTo(view.RectAt(3).center());
    EXPECT_EQ(model.SelText(), QStringLiteral("text</a>\r\n<a>"));
    moveTo(QPoint(60, port->height() + 5));
    EXPECT_GT(view.FirstRow(), 0) << "the view follows a pointer that left it";
    QTest::mouseRelease(port, Qt::LeftButton, {}, QPoint(60, port->height() + 5));
    EXPECT_EQ(model.SelStart(), 16);
}

TEST_F(TextEditing, DroppedTextGoesInAtThePointAndFilesAreLeftToTheWindow) {
    Load(QStringLiteral("<a></a>\r\n<b></b>"));
    QMimeData text, file;
    text.setText(QStringLiteral("x\ny"));
    file.setUrls({QUrl(QStringLiteral("file:///home/anna/orders.xml"))});
    QStringList pasted; // what is to be coloured
    model.Pasted.connect([&](qsizetype at, qsizetype length) { pasted << model.Long().mid(at, length); });
    Drop(text, view.RectAt(12).center());
    EXPECT_EQ(pasted, QStringList{QStringLiteral("x\r\ny")});
    EXPECT_EQ(model.Text(), QStringLiteral("<a></a>\r\n<b>x\r\ny</b>"));
    EXPECT_EQ(model.SelText(), QStringLiteral("x\r\ny"));
    Drop(file, view.RectAt(0).center());
    model.Locked = true;
    Drop(text, view.RectAt(0).center());
    EXPECT_EQ(model.Text(), QStringLiteral("<a></a>\r\n<b>x\r\ny</b>"));
}

// --- input methods -----------------------------------------------------------------------------------------

TEST_F(TextEditing, ComposedTextIsShownInPlaceAndGoesInWhenItIsDone) {
    Load(QStringLiteral("<a>old</a>"), 3);
    model.SetSelLength(3);
    const int place = view.RectAt(3).x();
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QApplication::sendEvent(&view, &composing);
    EXPECT_EQ(model.Text(), QStringLiteral("<a></a>")) << "the selection makes room";
    EXPECT_GT(view.RectAt(3).x(), place) << "the caret is behind what is composed";
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("\u4F60\u597D"));
    QApplication::sendEvent(&view, &done);
    EXPECT_EQ(model.Text(), QStringLiteral("<a>\u4F60\u597D</a>"));
    EXPECT_EQ(view.RectAt(3).x(), place) << "and is gone when it is done";
    EXPECT_EQ(view.inputMethodQuery(Qt::ImSurroundingText).toString(), model.Text());
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorPosition).toInt(), 5);
    QInputMethodEvent again;
    again.setCommitString(QStringLiteral("!"), -2, 2);
    QApplication::sendEvent(&view, &again);
    EXPECT_EQ(model.Text(), QStringLiteral("<a>!</a>"));
    model.Locked = true;
    EXPECT_FALSE(view.inputMethodQuery(Qt::ImEnabled).toBool());
}

// --- clipboard ---------------------------------------------------------------------------------------------

TEST_F(TextEditing, TheClipboardTakesAndGivesTheSameCharacters) {
    const QString awkward = QStringLiteral("a\u00A0b\u2029c\uFDD0\uFFFC|");
    Load(awkward + QStringLiteral("\r\nd"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), awkward + QStringLiteral("\nd"));
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(model.Text(), awkward + QStringLiteral("\r\nd") + awkward + QStringLiteral("\r\nd"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(model.Text(), QString());
    const QString clip = QGuiApplication::clipboard()->text();
    Type(QStringLiteral("kept"));
    Press(Qt::Key_A, Qt::ControlModifier);
    QGuiApplication::clipboard()->setText(QStringLiteral(""));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(model.SelText(), QStringLiteral("kept")) << "nothing is pasted over it";
    Press(Qt::Key_Delete);
    QGuiApplication::clipboard()->setText(clip);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(model.Text(), awkward + QStringLiteral("\r\nd") + awkward + QStringLiteral("\r\nd"));
}

// --- assistive programs ------------------------------------------------------------------------------------

TEST_F(TextEditing, AssistiveProgramsReadAndEditTheText) {
    Load(QStringLiteral("<a>\r\n<b>two</b>\r\n</a>"), 8);
    model.SetSelLength(3);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&view);
    ASSERT_TRUE(accessible && accessible->textInterface());
    QAccessibleTextInterface& text = *accessible->textInterface();
    int start = 0, end = 0;
    text.selection(0, &start, &end);
    EXPECT_EQ(text.text(start, end), QStringLiteral("two"));
    EXPECT_EQ(text.textAtOffset(6, QAccessible::LineBoundary, &start, &end),
              QStringLiteral("<b>two</b>\r\n"));
    EXPECT_EQ(text.textBeforeOffset(6, QAccessible::LineBoundary, &start, &end), QStringLiteral("<a>\r\n"));
    EXPECT_EQ(text.textAfterOffset(6, QAccessible::LineBoundary, &start, &end), QStringLiteral("</a>"));
    EXPECT_EQ(text.offsetAtPoint(text.characterRect(9).center()), 9);
    text.setCursorPosition(3);
    EXPECT_EQ(model.SelStart(), 3);
    accessible->editableTextInterface()->replaceText(8, 11, QStringLiteral("2"));
    EXPECT_EQ(model.Text(), QStringLiteral("<a>\r\n<b>2</b>\r\n</a>"));
}

} // namespace
