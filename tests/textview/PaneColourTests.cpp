// SPDX-License-Identifier: GPL-3.0-or-later
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

TEST(PaneColour, PastedTextIsColouredInBothPanesAndTheCaretStandsBehindIt) {
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
TEST(PaneColour, IndentingKeepsTheColoursOfTheLinesInBothPanes) {
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

TEST(PaneColour, TypingGoesOnInTheColourOfTheCommentWhenAMarkIsTakenBack) {
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

TEST(PaneColour, UndoBringsALongPieceBackInItsColours) {
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
