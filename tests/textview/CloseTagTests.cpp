// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/textview/TextDesk.h"
#include "textview/CloseTag.h"

namespace {

using services::Answer;
using test::TextDesk;

const QString kMoveCursor = QStringLiteral("Please move cursor to end of current node's start tag.");
const QString kIgnore =
    QStringLiteral("The XML is invalid. Please move cursor to end of start tag. Do you want to ignor it?");

TEST(CloseTag, KnowsTheElementThatTheCaretStandsIn) {
    const std::pair<const char*, const char*> cases[] = {
        // the caret stands at the bar
        {"<a><b>|</a>", "</b>"},
        {"<a>text|", "</a>"},
        {"<a><b/><c></c>|", "</a>"},
        {"<a><p:b x=\"1>2\"\ty='/>'>t|</a>", "</p:b>"},
        {"<?xml version=\"1.0\"?><a><!-- <c> -->|", "</a>"},
        {"<a><![CDATA[a > <b>]]>|", "</a>"},
        {"<a><b\r\nx='1'|", "</b>"},
    };
    TextDesk desk;
    for (const auto& [document, tag] : cases) {
        QString text = QLatin1String(document);
        const qsizetype caret = text.indexOf(u'|');
        textview::SetRichText(desk.window(), text.remove(caret, 1));
        desk.Select(caret);
        EXPECT_EQ(textview::GetCloseTag(desk.window()), QLatin1String(tag)) << document;
    }
}

TEST(CloseTag, PutsTheEndTagInKeepsTheCaretAndTheTreeFollows) {
    TextDesk desk("<a>\n\t<b>one</b>\n\t<c>two</c>\n</a>");
    const QString open = QStringLiteral("<a>\r\n\t<b>one</b>\r\n\t<c>two\r\n</a>");
    textview::SetRichText(desk.window(), open);
    desk.CaretBehind(QStringLiteral("two"));
    const QString caret = desk.Selection();
    desk.app.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("closetag"));
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>\r\n\t<b>one</b>\r\n\t<c>two</c>\r\n</a>"));
    EXPECT_EQ(desk.Selection(), caret);
    EXPECT_EQ(desk.app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 3 , Col 8"));
    EXPECT_TRUE(desk.PanesAgree());
    EXPECT_EQ(desk.window().tvXML.SelectedItem().Text(), QStringLiteral("c"));
    EXPECT_EQ(desk.window().txtXPath.Text(), QStringLiteral("/a[1]/c[1]"));
    desk.Undo();
    EXPECT_EQ(desk.Text(), open);
}

TEST(CloseTag, TellsWhyThereIsNone) {
    const auto boxes = [](const char* text) {
        TextDesk desk;
        desk.app.prompts.AllowAnyBox();
        QString given = QString::fromLatin1(text);
        const qsizetype caret = given.indexOf(u'|');
        textview::SetRichText(desk.window(), given.remove(caret, 1));
        desk.Select(caret);
        desk.app.ChooseMenu(QStringLiteral("mnuXMLCloseTag"));
        EXPECT_EQ(desk.Text(), given);
        return desk.app.prompts.Texts();
    };
    const auto place = [](int position) {
        return QStringLiteral(
                   "This line's position %1 should not be space, carriage returns, line feeds, or tabs.")
            .arg(position);
    };
    EXPECT_EQ(boxes("|<a></a>"), QStringList{kMoveCursor});
    EXPECT_EQ(boxes("<a></a>|"), QStringList{kMoveCursor});
    EXPECT_EQ(boxes("<a></a></b>|"), (QStringList{QStringLiteral("This is too complex."), kMoveCursor}));
    EXPECT_EQ(boxes("<a>\r\n\tx |"), (QStringList{place(3), kMoveCursor}));
    EXPECT_EQ(boxes("<a><|"), (QStringList{place(4), kMoveCursor}));
}

TEST(CloseTag, AsksWhenTheTextIsWrongThenAndTakesTheTagAwayOnNo) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        TextDesk desk;
        const QString wrong = QStringLiteral("<a><b>one<c></b></a>");
        textview::SetRichText(desk.window(), wrong);
        desk.CaretBehind(QStringLiteral("<a>"));
        desk.app.prompts.Answer(answer);
        if (answer == Answer::Yes)
            desk.app.prompts.Answer(Answer::Ok); // the parser's report
        desk.app.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("closetag"));
        EXPECT_EQ(desk.app.prompts.Texts().front(), kIgnore);
        EXPECT_EQ(desk.Text(), answer == Answer::No ? wrong : QStringLiteral("<a></a><b>one<c></b></a>"));
        EXPECT_EQ(desk.Selection(), QStringLiteral("3+0"));
        EXPECT_TRUE(desk.PanesAgree());
    }
}

} // namespace
