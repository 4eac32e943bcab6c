// SPDX-License-Identifier: GPL-3.0-or-later
// The history of the text, through the events of the panes.
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "tests/textview/TextDesk.h"
#include "textview/TextState.h"
#include "textview/Undo.h"
#include <random>

namespace {

using controls::RichTextBox;
using test::TextDesk;

const QString kText = QStringLiteral("<a>\r\n\t<b>one</b>\r\n</a>");

/// What the last step took away and put in, as "3-abc 3+x".
QString LastStep(TextDesk& desk) {
    DocumentWindow& window = desk.window();
    if (textview::StateOf(window).UndoPos == 0)
        return QStringLiteral("none");
    const textview::UndoRecord& record = textview::StateOf(window).undoStack.at(
        static_cast<std::size_t>(textview::StateOf(window).UndoPos) - 1);
    return record.WholeText ? QStringLiteral("whole")
                            : QStringLiteral("%1-%2 %3+%4")
                                  .arg(record.DelPos)
                                  .arg(record.DelText)
                                  .arg(record.InsPos)
                                  .arg(record.InsText);
}

// Opening a document is no step, so the history starts empty.
TEST(Undo, EachSingleEditIsOneStepThatGoesBackAndAgainInBothPanes) {
    struct Case {
        const char* name;
        std::function<void(TextDesk&)> edit;
        QString step;
    };
    const Case cases[] = {
        {"typing", [](TextDesk& d) { d.CaretBehind(QStringLiteral("one")), d.Type(QStringLiteral("x")); },
         QStringLiteral("12- 12+x")},
        {"overtyping", [](TextDesk& d) { d.SelectText(QStringLiteral("one")), d.Type(QStringLiteral("x")); },
         QStringLiteral("9-one 9+x")},
        {"delete selection",
         [](TextDesk& d) { d.SelectText(QStringLiteral("one")), d.Press(Qt::Key_Delete); },
         QStringLiteral("9-one 9+")},
        {"Backspace", [](TextDesk& d) { d.CaretBehind(QStringLiteral("one")), d.Press(Qt::Key_Backspace); },
         QStringLiteral("11-e 12+")},
        {"Backspace over a line end",
         [](TextDesk& d) { d.CaretBehind(QStringLiteral("<a>\r\n")), d.Press(Qt::Key_Backspace); },
         QStringLiteral("3-\r\n 5+")},
        {"Delete", [](TextDesk& d) { d.CaretBehind(QStringLiteral("<b>")), d.Press(Qt::Key_Delete); },
         QStringLiteral("9-o 9+")},
        {"Delete takes one character of a line end",
         [](TextDesk& d) { d.CaretBehind(QStringLiteral("</b>")), d.Press(Qt::Key_Delete); },
         QStringLiteral("16-\r 16+")},
        {"a word deleted at once",
         [](TextDesk& d) { d.CaretBehind(QStringLiteral("<b>")), d.pane().UserReplaced(9, 3, {}); },
         QStringLiteral("9-one 9+")},
        {"a text dropped far from the caret",
         [](TextDesk& d) { d.Select(0), d.pane().UserReplaced(9, 0, QStringLiteral("two ")); },
         QStringLiteral("9- 9+two ")},
    };
    for (const bool second : {false, true}) {
        for (const Case& one : cases) {
            SCOPED_TRACE(one.name);
            TextDesk desk;
            desk.Enter(second ? desk.window().rtxtXML2 : desk.window().rtxtXML);
            desk.app.prompts.AllowAnyBox();
            one.edit(desk);
            const QString after = desk.Text();
            if (QString(QLatin1String(one.name)).startsWith(QStringLiteral("a text dropped")))
                EXPECT_EQ(after.size(), kText.size() + 4);
            else
                EXPECT_EQ(LastStep(desk), one.step);
            EXPECT_TRUE(desk.PanesAgree());
            desk.Undo();
            EXPECT_EQ(desk.Text(), kText);
            EXPECT_TRUE(desk.PanesAgree());
            desk.Redo();
            EXPECT_EQ(desk.Text(), after);
            EXPECT_TRUE(desk.PanesAgree());
        }
    }
}

TEST(Undo, DeleteAtTheEndOfTheTextIsNoStep) {
    TextDesk desk;
    desk.Select(desk.Text().size());
    desk.Press(Qt::Key_Delete);
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
    EXPECT_EQ(desk.Text(), kText);
}

TEST(Undo, ANewEditEndsWhatCouldBeRedone) {
    TextDesk desk;
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("xy"));
    EXPECT_EQ(desk.Steps(), QStringLiteral("u"));
    desk.Undo();
    EXPECT_EQ(desk.Steps(), QStringLiteral("ur"));
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("z"));
    EXPECT_EQ(desk.Steps(), QStringLiteral("u"));
    EXPECT_EQ(textview::StateOf(desk.window()).undoStack.size(), 2u);
    desk.Redo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("onez")));
    desk.Undo();
    desk.Undo();
    EXPECT_EQ(desk.Steps(), QStringLiteral("r"));
    EXPECT_EQ(desk.Text(), kText);
}

// The limit holds for changes of the tree alone.
TEST(Undo, TypedStepsAreAllKeptAndTreeChangesUpToOneMoreThanTheLimit) {
    TextDesk desk;
    desk.app.app().options.Steps = 4;
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("0123456789"));
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 10);
    for (int i = 0; i < 10; ++i)
        desk.Undo();
    EXPECT_EQ(desk.Text(), kText);

    const auto changeTree = [&](int number) {
        desk.window().tvXML.Nodes(1).Child().Child().Child().SetTag(QString::number(number));
        desk.window().tvXML.LostFocus();
    };
    for (int i = 1; i <= 5; ++i)
        changeTree(i);
    EXPECT_EQ(textview::StateOf(desk.window()).undoStack.size(), 5u);
    changeTree(6);
    EXPECT_EQ(textview::StateOf(desk.window()).undoStack.size(), 5u);
    for (int i = 0; i < 8; ++i)
        desk.Undo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>1</b>"))) << "the oldest step is lost, no other one";
}

TEST(Undo, WithoutAStepTheChangedTreeStillReachesTheText) {
    TextDesk desk;
    desk.window().tvXML.Nodes(1).Child().Child().Child().SetTag(QStringLiteral("two"));
    desk.Undo();
    EXPECT_EQ(desk.Text(), kText) << "brought into the text as a step, and that one taken back";
    desk.Redo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>two</b>")));
    EXPECT_EQ(desk.window().tvXML.Nodes(1).Child().Child().Child().Text(), QStringLiteral("two"));
}

// Blanks that the serialiser would write otherwise must not come back as a step of their own.
TEST(Undo, ATextInAFormOfItsOwnGoesBackToTheFirstStep) {
    TextDesk desk;
    desk.CaretBehind(QStringLiteral("<a>"));
    desk.Type(QStringLiteral("  "));
    desk.pane().LostFocus();
    const QString tidy = desk.Text();
    desk.Enter(desk.window().rtxtXML);
    for (int i = 0; i < 4; ++i)
        desk.Undo();
    EXPECT_EQ(desk.Text(), kText);
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
    while (desk.Steps().contains(u'r'))
        desk.Redo();
    EXPECT_EQ(desk.Text(), tidy);
}

TEST(Undo, KeepsTheCurrentNodeAndTellsABadTextQuietly) {
    TextDesk desk("<a>\n\t<b>one</b>\n\t<c></c>\n</a>");
    desk.CaretBehind(QStringLiteral("<c>"));
    desk.Type(QStringLiteral("x<"));
    desk.window().tvXML.SetSelectedItem(desk.window().tvXML.Nodes(1).Child().Child().Next());
    edit::ShowNodePath(desk.window(), desk.app.frame().StatusBar1());
    desk.Undo();
    EXPECT_EQ(desk.window().tvXML.SelectedItem().Text(), QStringLiteral("c"));
    desk.Redo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("x<")));
    EXPECT_EQ(desk.app.prompts.Texts(), QStringList());
    EXPECT_EQ(desk.app.prompts.beeps, 1);
}

// Wherever the caret was, and also where the text doesn't parse then, whose fault stands elsewhere.
TEST(Undo, TheCaretGoesToTheChangeInThePaneInUseAlone) {
    for (const bool second : {false, true}) {
        TextDesk desk("<a>\n\t<b>one</b>\n\t<c>two</c>\n</a>");
        desk.Enter(second ? desk.window().rtxtXML2 : desk.window().rtxtXML);
        RichTextBox& other = second ? desk.window().rtxtXML : desk.window().rtxtXML2;
        desk.CaretBehind(QStringLiteral("<b>on"));
        desk.Type(QStringLiteral("xy"));
        desk.SelectText(QStringLiteral("<b>"));
        desk.Press(Qt::Key_Delete);
        const qsizetype end = desk.Text().size();
        other.SetSelStart(end);
        const auto undo = [&] {
            desk.Select(0);
            desk.Undo();
            return desk.Text().left(desk.pane().SelStart());
        };
        EXPECT_TRUE(undo().endsWith(QStringLiteral("\t<b>")));
        EXPECT_EQ(desk.app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 5"));
        EXPECT_TRUE(undo().endsWith(QStringLiteral("<b>onx")));
        EXPECT_TRUE(undo().endsWith(QStringLiteral("<b>on")));
        desk.Select(desk.Text().size());
        desk.Redo();
        EXPECT_TRUE(desk.Text().left(desk.pane().SelStart()).endsWith(QStringLiteral("<b>onx")));
        desk.Redo();
        desk.Redo();
        EXPECT_EQ(desk.Selection(), QStringLiteral("6+0"))
            << "what doesn't parse is told, and no place to go to";
        EXPECT_EQ(other.SelStart(), end);
        EXPECT_EQ(other.SelLength(), 0);
    }
}

// A large document is parsed once for many steps: at the end of them, or when something asks for the tree.
TEST(Undo, TheTreeOfALargeDocumentFollowsWhenTheStepsRest) {
    const QByteArray row = "\t<row>0123456789012345678901234567890123456789</row>\n";
    TextDesk desk("<rows>\n" + row.repeated(80'000) + "</rows>");
    desk.CaretBehind(QStringLiteral("<row>"));
    desk.Type(QStringLiteral("abc"));
    const int parses = desk.app.app().work.parses;
    const auto shown = [&] { return desk.window().tvXML.Nodes(1).Child().Child().Child().Text().left(4); };
    desk.Undo();
    desk.Undo();
    EXPECT_EQ(desk.app.app().work.parses, parses);
    ASSERT_TRUE(desk.window().tmText.Enabled());
    desk.window().tmText.Tick();
    EXPECT_EQ(desk.app.app().work.parses, parses + 1);
    EXPECT_EQ(shown(), QStringLiteral("a012"));
    EXPECT_FALSE(desk.window().tmText.Enabled());
    desk.Redo();
    desk.pane().LostFocus();
    EXPECT_EQ(shown(), QStringLiteral("ab01"));
    EXPECT_EQ(desk.Steps(), QStringLiteral("ur")) << "what can be done again is still there";
    desk.Undo();
    desk.Type(QStringLiteral("z"));
    EXPECT_FALSE(desk.window().tmText.Enabled()) << "typing waits until the text is left";
}

// A change of the whole text, as saving may be one, doesn't cost what was typed before it.
TEST(Undo, TypedStepsDoNotCountForTheLimit) {
    TextDesk desk;
    desk.app.app().options.Steps = 2;
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("0123456789"));
    desk.window().tvXML.GotFocus();
    desk.pane().LostFocus();
    desk.window().tvXML.Nodes(1).Child().Child().Child().SetTag(QStringLiteral("two"));
    desk.window().tvXML.LostFocus();
    ASSERT_TRUE(desk.Text().contains(QStringLiteral("two")));
    for (int i = 0; i < 11; ++i)
        desk.Undo();
    EXPECT_EQ(desk.Text(), kText);
}

// A text that came past the history: the stored piece isn't there any more.
TEST(Undo, NeverTakesOtherTextAway) {
    TextDesk desk;
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("x"));
    const QString other = QStringLiteral("<a>\r\n\t<c>1234567890</c>\r\n</a>");
    textview::SetRichText(desk.window(), other);
    desk.Undo();
    EXPECT_EQ(desk.Text(), other);
    desk.Redo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("1234567890").left(1)));
    EXPECT_TRUE(desk.PanesAgree());
}

class Walk {
public:
    Walk(TextDesk& desk, unsigned seed) : desk_(desk), random_(seed) {}

    void Step() {
        desk_.Enter(Number(0, 1) == 1 ? desk_.window().rtxtXML2 : desk_.window().rtxtXML);
        desk_.Select(Place(), Number(0, 3) == 0 ? Number(1, 9) : 0);
        switch (Number(0, 9)) {
        case 0:
            return desk_.Undo();
        case 1:
            return desk_.Redo();
        case 2:
            return void(desk_.Press(Qt::Key_Delete));
        case 3:
            return void(desk_.Press(Qt::Key_Backspace));
        case 4:
            return void(desk_.Press(Qt::Key_Tab));
        case 5:
            return void(desk_.Press(Qt::Key_Backtab, Qt::ShiftModifier));
        case 6:
            return desk_.pane().UserReplaced(Place(), 0, QStringLiteral("<d e=\"f\"/>\r\n"));
        default:
            return desk_.Type(QStringLiteral("z"));
        }
    }

private:
    qsizetype Number(qsizetype least, qsizetype most) {
        return std::uniform_int_distribution<qsizetype>(least, most)(random_);
    }
    // Never inside a line end: no user can put the caret there.
    qsizetype Place() {
        const QString text = desk_.Text();
        const qsizetype place = Number(0, text.size());
        return place > 0 && place < text.size() && text[place] == u'\n' ? place - 1 : place;
    }
    TextDesk& desk_;
    std::mt19937 random_;
};

TEST(Undo, ARandomWalkGoesBackToTheFirstTextAndAgainToTheLast) {
    TextDesk desk;
    Walk walk(desk, 7);
    const auto stepsLeft = [&] {
        return textview::StateOf(desk.window()).UndoPos <
               static_cast<int>(textview::StateOf(desk.window()).undoStack.size());
    };
    for (int i = 0; i < 2000; ++i) {
        walk.Step();
        ASSERT_TRUE(desk.PanesAgree()) << i;
    }
    while (stepsLeft())
        desk.Redo();
    const QString last = desk.Text();
    while (textview::StateOf(desk.window()).UndoPos > 0)
        desk.Undo();
    EXPECT_EQ(desk.Text(), kText);
    EXPECT_TRUE(desk.PanesAgree());
    while (stepsLeft())
        desk.Redo();
    EXPECT_EQ(desk.Text(), last);
    EXPECT_TRUE(desk.PanesAgree());
}

} // namespace
