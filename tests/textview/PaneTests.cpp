// SPDX-License-Identifier: GPL-3.0-or-later
// Two panes on one text: which one is in use, and what menus and path box show.
#include "tests/textview/TextDesk.h"
#include "textview/TextState.h"

namespace {

using controls::RichTextBox;
using test::TextDesk;

bool CanCopy(TextDesk& desk) {
    const bool copy = desk.app.frame().Menu(QStringLiteral("mnuEditCopy")).Enabled();
    EXPECT_EQ(desk.app.frame().Menu(QStringLiteral("mnuEditCut")).Enabled(), copy);
    return copy;
}

// What is dropped changes a pane that doesn't have the keys.
TEST(Pane, TheOneThatChangesIsInUseAndNothingOfTheChangeIsLost) {
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

TEST(Pane, ADragOverTheOtherPaneShowsThePlaceThere) {
    TextDesk desk;
    desk.Select(3);
    desk.window().rtxtXML2.charFromPos = [](double, double) { return qsizetype(9); };
    desk.window().rtxtXML2.DragOver(0, 0);
    EXPECT_EQ(desk.window().rtxtXML2.SelStart(), 9);
    EXPECT_EQ(desk.app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 5"));
    EXPECT_EQ(desk.Selection(), QStringLiteral("3+0")) << "the pane in use stays where it is";
}

TEST(Pane, ASecondPaneOpensAtThePlaceOfTheFirst) {
    TextDesk desk;
    desk.SelectText(QStringLiteral("one"));
    desk.app.ChooseMenu(QStringLiteral("mnuWinSplit"));
    EXPECT_EQ(desk.window().rtxtXML2.SelText(), QStringLiteral("one"));
}

TEST(Pane, TakesTheClipboardsCommandsByKeyMenuAndToolbar) {
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

TEST(Pane, MenusFollowTheSelectionHoweverItComesAndGoes) {
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

TEST(Pane, MenusStayThoseOfTheTreeWhileItHasTheAttention) {
    TextDesk desk;
    desk.Select(0);
    desk.app.ClickNode(desk.window().tvXML.Nodes(1).Child().Child());
    EXPECT_EQ(desk.pane().SelLength(), 1) << "the node is marked in the text";
    EXPECT_TRUE(desk.app.frame().Menu(QStringLiteral("mnuNewCNode")).Enabled());
}

} // namespace
