// SPDX-License-Identifier: GPL-3.0-or-later
// Two panes on one text: which one is in use, what menus and path box show, and the colours of what comes in.
#include "shell/Settings.h"
#include "tests/textview/TextDesk.h"
#include "textview/TextState.h"

namespace {

using controls::RichTextBox;
using test::TextDesk;

constexpr std::uint32_t kBlack = 0, kBlue = 0xff0000, kOther = 0x123456;

std::uint32_t ColourOf(const RichTextBox& pane, const QString& text) {
    const qsizetype place = pane.Text().indexOf(text);
    std::uint32_t colour = kBlack;
    for (const controls::ColourRun& run : pane.Runs())
        colour = run.start <= place ? run.colour : colour;
    return colour;
}

bool ColoursAgree(TextDesk& desk) {
    return desk.window().rtxtXML.Runs() == desk.window().rtxtXML2.Runs();
}

bool CanCopy(TextDesk& desk) {
    const bool copy = desk.app.frame().Menu(QStringLiteral("mnuEditCopy")).Enabled();
    EXPECT_EQ(desk.app.frame().Menu(QStringLiteral("mnuEditCut")).Enabled(), copy);
    return copy;
}

// What is dropped changes a pane that doesn't have the keys.
TEST(PaneInUse, IsTheOneThatChangesAndNothingOfTheChangeIsLost) {
    for (const bool second : {false, true}) {
        TextDesk desk;
        const QString before = desk.Text();
        RichTextBox& other = second ? desk.window().rtxtXML2 : desk.window().rtxtXML;
        desk.Enter(second ? desk.window().rtxtXML : desk.window().rtxtXML2);
        other.UserSelected(9, 0);
        other.UserReplaced(9, 0, QStringLiteral("two "));
        EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>two one</b>")));
        EXPECT_TRUE(desk.PanesAgree());
        desk.pane().LostFocus();
        EXPECT_EQ(desk.window().tvXML.Nodes(1).Child().Child().Child().Tag(), QStringLiteral("two one"));
        desk.Undo();
        EXPECT_EQ(desk.Text(), before);
        EXPECT_TRUE(desk.PanesAgree());
    }
}

TEST(PaneInUse, ADragOverTheOtherPaneShowsThePlaceThere) {
    TextDesk desk;
    desk.Select(3);
    desk.window().rtxtXML2.charFromPos = [](double, double) { return qsizetype(9); };
    desk.window().rtxtXML2.DragOver(0, 0);
    EXPECT_EQ(desk.window().rtxtXML2.SelStart(), 9);
    EXPECT_EQ(desk.app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 5"));
    EXPECT_EQ(desk.Selection(), QStringLiteral("3+0")) << "the pane in use stays where it is";
}

TEST(PaneInUse, ASecondPaneOpensAtThePlaceOfTheFirst) {
    TextDesk desk;
    desk.SelectText(QStringLiteral("one"));
    desk.app.ChooseMenu(QStringLiteral("mnuWinSplit"));
    EXPECT_EQ(desk.window().rtxtXML2.SelText(), QStringLiteral("one"));
}

TEST(PaneInUse, TakesTheClipboardsCommandsByKeyMenuAndToolbar) {
    using Command = std::function<void(TextDesk&)>;
    const auto key = [](Qt::Key code) {
        return Command([code](TextDesk& desk) { desk.Press(code, Qt::ControlModifier); });
    };
    const auto menu = [](const char* name) {
        return Command([name](TextDesk& desk) { desk.app.ChooseMenu(QLatin1String(name)); });
    };
    const auto button = [](const char* name) {
        return Command([name](TextDesk& desk) {
            desk.app.PressButton(QStringLiteral("tbCommonEdit"), QLatin1String(name));
        });
    };
    const struct {
        const char* name;
        Command copy, cut, paste;
    } ways[] = {{"keys", key(Qt::Key_C), key(Qt::Key_X), key(Qt::Key_V)},
                {"menu", menu("mnuEditCopy"), menu("mnuEditCut"), menu("mnuEditPaste")},
                {"toolbar", button("copy"), button("cut"), button("paste")}};
    for (const bool second : {false, true}) {
        for (const auto& way : ways) {
            SCOPED_TRACE(std::string(way.name) + (second ? ", second pane" : ", first pane"));
            TextDesk desk;
            desk.Enter(second ? desk.window().rtxtXML2 : desk.window().rtxtXML);
            desk.SelectText(QStringLiteral("one"));
            way.copy(desk);
            EXPECT_EQ(desk.app.clipboard.text, QStringLiteral("one"));
            desk.SelectText(QStringLiteral("b>"));
            way.cut(desk);
            way.paste(desk);
            way.paste(desk);
            EXPECT_EQ(desk.Text(), QStringLiteral("<a>\r\n\t<b>b>one</b>\r\n</a>"));
            EXPECT_TRUE(desk.PanesAgree());
            EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 3);
        }
    }
}

// --- menus and path ----------------------------------------------------------------------------------------

TEST(TextMenus, FollowTheSelectionHoweverItComesAndGoes) {
    TextDesk desk;
    desk.Select(3);
    EXPECT_FALSE(CanCopy(desk));
    desk.pane().UserSelected(3, 2); // by keys that are still held
    EXPECT_TRUE(CanCopy(desk));
    desk.app.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("cut"));
    EXPECT_FALSE(CanCopy(desk));
    desk.SelectText(QStringLiteral("one"));
    desk.app.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("amp"));
    EXPECT_FALSE(CanCopy(desk));
    desk.app.ChooseMenu(QStringLiteral("mnuSelectAll"));
    EXPECT_TRUE(CanCopy(desk));
    desk.Type(QStringLiteral("x"));
    EXPECT_FALSE(CanCopy(desk));
    // What the program selects in the other pane is nothing to copy.
    desk.window().rtxtXML2.SetSelStart(0);
    desk.window().rtxtXML2.SetSelLength(1);
    EXPECT_FALSE(CanCopy(desk));
}

TEST(TextMenus, StayThoseOfTheTreeWhileItHasTheAttention) {
    TextDesk desk;
    desk.Select(0);
    desk.app.ClickNode(desk.window().tvXML.Nodes(1).Child().Child());
    EXPECT_EQ(desk.pane().SelLength(), 1) << "the node is marked in the text";
    EXPECT_TRUE(desk.app.frame().Menu(QStringLiteral("mnuNewCNode")).Enabled());
}

TEST(CaretLink, ThePathFollowsTheCaretAndUndoKeepsTheNodeAtIt) {
    TextDesk desk("<a>\n\t<b>one</b>\n\t<c>two</c>\n</a>");
    desk.CaretBehind(QStringLiteral("<b>"));
    EXPECT_EQ(desk.window().txtXPath.Text(), QStringLiteral("/a[1]/b[1]"));
    desk.CaretBehind(QStringLiteral("two"));
    EXPECT_EQ(desk.window().txtXPath.Text(), QStringLiteral("/a[1]/c[1]"));
    desk.Type(QStringLiteral("x"));
    desk.Undo();
    EXPECT_EQ(desk.window().tvXML.SelectedItem().Text(), QStringLiteral("c"));
}

// --- colours of what comes in ------------------------------------------------------------------------------

TEST(PastedText, IsColouredInBothPanesAndTheCaretStandsBehindIt) {
    TextDesk desk;
    desk.app.clipboard.text = QStringLiteral("<q/>x");
    desk.CaretBehind(QStringLiteral("<b>"));
    desk.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(desk.Selection(), QStringLiteral("14+0"));
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("<q")), kBlue);
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("q/")), kBlack);
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("xone")), kBlack);
    EXPECT_TRUE(ColoursAgree(desk));
    // Too long to be coloured: not in the colour of the bracket before it either.
    desk.app.clipboard.text = QString(600, u'y');
    desk.CaretBehind(QStringLiteral("</b>"));
    desk.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("yy")), kBlack);
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("</a>")), kBlue);
    desk.Undo();
    desk.Redo();
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("yy")), kBlack);
    EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("</a>")), kBlue);
    EXPECT_TRUE(ColoursAgree(desk));
}

// Colours of the user's own, which no rule for single characters would give back.
TEST(Indent, KeepsTheColoursOfTheLinesInBothPanes) {
    QByteArray document = "<list>";
    for (int i = 0; i < 40; ++i)
        document += "\n\t<item>number " + QByteArray::number(i) + "</item>";
    TextDesk desk(document + "\n</list>");
    desk.app.app().options.GLColor = kOther;
    shell::SetRTFColorString(desk.app.app());
    const std::vector<controls::ColourRun> before = desk.pane().Runs();
    const auto coloured = [&](const char* moment) {
        SCOPED_TRACE(moment);
        EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("<item>number 20")), kOther);
        EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("number 20")), kBlack);
        EXPECT_EQ(ColourOf(desk.pane(), QStringLiteral("</list>")), kOther);
        EXPECT_TRUE(ColoursAgree(desk));
    };
    desk.SelectLines(QStringLiteral("<list>"), QStringLiteral("number 39"));
    desk.Press(Qt::Key_Tab);
    coloured("indented");
    desk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    coloured("and back");
    EXPECT_EQ(desk.pane().Runs(), before);
    desk.Undo();
    coloured("undone");
    desk.Undo();
    EXPECT_EQ(desk.pane().Runs(), before);
    desk.Redo();
    coloured("done again");
}

TEST(TypedText, GoesOnInTheColourOfTheCommentWhenAMarkIsTakenBack) {
    TextDesk desk("<a>\n\t<!-- note -->\n</a>");
    const auto typedAfter = [&](const std::function<void()>& act) {
        desk.CaretBehind(QStringLiteral("no"));
        desk.Type(QStringLiteral("<"));
        act();
        desk.Type(QStringLiteral("x"));
        const std::uint32_t colour = ColourOf(desk.pane(), QStringLiteral("x"));
        desk.Press(Qt::Key_Backspace);
        return colour;
    };
    const std::uint32_t grey = ColourOf(desk.pane(), QStringLiteral("note"));
    EXPECT_EQ(typedAfter([&] { desk.Press(Qt::Key_Backspace); }), grey);
    EXPECT_EQ(typedAfter([&] {
                  desk.SelectText(QStringLiteral("o<"));
                  desk.Press(Qt::Key_X, Qt::ControlModifier);
              }),
              grey);
    EXPECT_TRUE(ColoursAgree(desk));
}

TEST(Undo, ALongPieceComesBackInItsColours) {
    QByteArray document = "<list>";
    for (int i = 0; i < 60; ++i)
        document += "\n\t<item>number " + QByteArray::number(i) + "</item>";
    TextDesk desk(document + "\n</list>");
    const std::vector<controls::ColourRun> before = desk.pane().Runs();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"deleted", [&] { desk.Press(Qt::Key_Delete); }},
        {"typed over", [&] { desk.Type(QStringLiteral("/")); }},
    };
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        desk.SelectLines(QStringLiteral("<item>number 5<"), QStringLiteral("number 49"));
        takeAway();
        for (int i = 0; i < 2; ++i) {
            desk.Undo();
            EXPECT_EQ(desk.pane().Runs(), before);
            EXPECT_TRUE(ColoursAgree(desk));
            desk.Redo();
        }
        desk.Undo();
    }
}

} // namespace
