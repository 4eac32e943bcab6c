// SPDX-License-Identifier: GPL-3.0-or-later
// Tab and the keys with Ctrl.
#include "tests/textview/TextDesk.h"
#include "textview/Indent.h"
#include "textview/TextState.h"

namespace {

using test::TextDesk;

TEST(Indent, WithoutASelectionOneTabGoesInAndTheKeyIsUsedUp) {
    TextDesk desk;
    desk.CaretBehind(QStringLiteral("<b>"));
    EXPECT_EQ(desk.Press(Qt::Key_Tab), 0);
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>\tone")));
    desk.Undo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>one")));
}

TEST(Indent, IndentsTheLinesOfASelectionKeepsThemSelectedAndIsOneStep) {
    const QByteArray document = "<list>\n\t<b>1</b>\n\t<c>2</c>\n\t<d>3</d>\n\t<e>4</e>\n</list>";
    TextDesk desk(document);
    const QString before = desk.Text();
    struct Case {
        const char* name;
        qsizetype start, length;
        QString lines; // what is selected after Tab
    };
    const qsizetype b = before.indexOf(QStringLiteral("\t<b>")), c = before.indexOf(QStringLiteral("\t<c>")),
                    d = before.indexOf(QStringLiteral("\t<d>")), e = before.indexOf(QStringLiteral("\t<e>"));
    const QString three = QStringLiteral("\t\t<b>1</b>\r\n\t\t<c>2</c>\r\n\t\t<d>3</d>");
    const Case cases[] = {
        {"whole lines", b, e - 2 - b, three},
        {"from the middle of a line to the middle of another", b + 5, d + 3 - b - 5, three},
        {"a line end at the end stays out", b, e - b, three},
        {"part of one line", c + 2, 3, QStringLiteral("\t\t<c>2</c>")},
        {"the first line", 0, 4, QStringLiteral("\t<list>")},
        {"the first lines, from their middle", 4, c - 4, QStringLiteral("\t<list>\r\n\t\t<b>1</b>")},
        {"everything but the first line's beginning", 2, e - 2 - 2, QStringLiteral("\t<list>\r\n") + three},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        desk.Select(one.start, one.length);
        desk.Press(Qt::Key_Tab);
        // What lies in the middle of its line is selected up to there.
        EXPECT_TRUE(one.lines.startsWith(desk.pane().SelText())) << desk.pane().SelText().toStdString();
        EXPECT_EQ(desk.pane().SelText().count(u'\n'), one.lines.count(u'\n'));
        EXPECT_EQ(desk.Text().size(), before.size() + one.lines.count(u'\n') + 1);
        desk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(desk.Text(), before);
        desk.Undo();
        desk.Undo();
        EXPECT_EQ(desk.Text(), before);
        EXPECT_TRUE(desk.PanesAgree());
    }
}

TEST(Indent, ShiftAndTabTakesTheLinesTabAndChangesNothingWhereThereIsNone) {
    TextDesk desk("<a>\n\t<b>one</b>\n<c>\ttwo</c>\n</a>");
    desk.app.prompts.AllowAnyBox();
    textview::SetRichText(desk.window(), QStringLiteral("<a>\r\n\t<b>one</b>\r\n<c>\ttwo</c>\r\n</a>"));
    const QString before = desk.Text();
    for (const char* place : {"<a>", "<c>\t", "two</c>", "</a>"}) {
        desk.CaretBehind(QLatin1String(place));
        desk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(desk.Text(), before) << place;
    }
    desk.SelectLines(QStringLiteral("<c>"), QStringLiteral("</a>"));
    desk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(desk.Text(), before);
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);

    desk.CaretBehind(QStringLiteral("one"));
    desk.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(desk.Text().startsWith(QStringLiteral("<a>\r\n<b>one</b>\r\n")));
    EXPECT_EQ(desk.pane().SelStart(), desk.Text().indexOf(QStringLiteral("one")) + 3);
    desk.Undo();
    EXPECT_EQ(desk.Text(), before);
}

TEST(Indent, KeysWithCtrlActOnTheTextAndAreUsedUp) {
    TextDesk desk;
    desk.CaretBehind(QStringLiteral("one"));
    EXPECT_EQ(desk.Press(Qt::Key_Home, Qt::ControlModifier), 1);
    EXPECT_EQ(desk.Selection(), QStringLiteral("0+0"));
    EXPECT_EQ(desk.Press(Qt::Key_End, Qt::ControlModifier), 1);
    EXPECT_EQ(desk.pane().SelStart(), desk.Text().size());
    EXPECT_EQ(desk.Press(Qt::Key_A, Qt::ControlModifier), 1);
    EXPECT_EQ(desk.pane().SelText(), desk.Text());
    // Selecting to an end, and a letter that the keyboard makes with AltGr, are the pane's own business.
    EXPECT_EQ(desk.Press(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier), Qt::Key_End);
    EXPECT_EQ(desk.Press(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier), Qt::Key_Z);

    desk.SelectText(QStringLiteral("<b>"));
    desk.Press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(desk.app.clipboard.text, QStringLiteral("<b>"));
    desk.SelectText(QStringLiteral("one"));
    desk.Press(Qt::Key_C, Qt::ControlModifier);
    desk.Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(desk.app.clipboard.text, QStringLiteral("one"));
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b></b>")));
    desk.Press(Qt::Key_V, Qt::ControlModifier);
    desk.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>oneone</b>")));
    for (int i = 0; i < 3; ++i)
        desk.Undo();
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>one</b>")));
    EXPECT_EQ(desk.Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier), 1);
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b></b>")));
}

} // namespace
