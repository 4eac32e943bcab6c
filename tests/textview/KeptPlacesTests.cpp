// SPDX-License-Identifier: GPL-3.0-or-later
// The caret's place when the text is written anew.
#include "tests/textview/TextDesk.h"
#include "textview/KeptPlaces.h"
#include "textview/TextState.h"

namespace {

using test::TextDesk;

TEST(KeptPlaces, ArePlacesOfTheContent) {
    struct Case {
        const char *before, *after; // the caret stands at the bar
    };
    const Case cases[] = {
        {"<a><b>one</b><c>t|wo</c></a>", "<a>\n\t<b>one</b>\n\t<c>t|wo</c>\n</a>"},
        {"<a><b>one</b>|<c>two</c></a>", "<a>\n\t<b>one</b>|\n\t<c>two</c>\n</a>"},
        {"<a>\n\n\n<b x = 'o|ne' >t</b></a>", "<a>\n\t<b x=\"o|ne\">t</b>\n</a>"},
        {"<a><b/><b/><c|/><b/>\n</a>", "<a>\n\t<b></b>\n\t<b></b>\n\t<c|></c>\n\t<b></b>\n</a>"},
        {"<a><b/>|<c/></a>", "<a>\n\t<b></b>|\n\t<c></c>\n</a>"},
        {"<a ><b x='1\"2|3'/></a>", "<a>\n\t<b x=\"1&quot;2|3\"></b>\n</a>"},
        {"<a ><b>&#65;&gt;|x</b></a>", "<a>\n\t<b>A&gt;|x</b>\n</a>"},
        {"<a ><b>one  two| three</b></a>", "<a>\n\t<b>one  two| three</b>\n</a>"},
        {"<a><b>1</b>\n \n  |<c>2</c></a>", "<a>\n\t<b>1</b>\n\t|<c>2</c>\n</a>"},
        {"<a><b>1</b>|\n\n <c>2</c></a>", "<a>\n\t<b>1</b>|\n\t<c>2</c>\n</a>"},
        {"<a><!--x-->\n<b>|</b></a>", "<a>\n\t<!-- x-->\n\t<b>|</b>\n</a>"},
        {"<a><!-- <b> -->\n<b>t|</b></a>", "<a>\n\t<!-- <b> -->\n\t<b>t|</b>\n</a>"},
        {"<a><![CDATA[gone]]>|<b>1</b></a>", "<a>|\n\t<b>1</b>\n</a>"},
        {"<a >t</a>|", "<a>t</a>|"},
        {"|<a >t</a>", "|<a>t</a>"},
    };
    for (const Case& one : cases) {
        QString before = QLatin1String(one.before), after = QLatin1String(one.after);
        const qsizetype place = before.indexOf(u'|'), wanted = after.indexOf(u'|');
        before.remove(place, 1);
        after.remove(wanted, 1);
        const auto where = textview::KeptPlaces(text::LongText(before), text::LongText(after));
        const qsizetype found = where(place);
        EXPECT_EQ(QString(after).insert(found, u'|').toStdString(), one.after) << one.before;
    }
}

// Wherever the caret is: the characters of the content before it are as many as they were.
TEST(KeptPlaces, NoPlaceOfATextLeavesItsCharacters) {
    const QString loose = QStringLiteral(
                      "<a x='1'  y = \"2\"><b >one two</b>\r\n\r\n\r\n<c>three</c><d>4</d></a>"),
                  tidy = QStringLiteral(
                      "<a x=\"1\" y=\"2\">\r\n\t<b>one two</b>\r\n\t<c>three</c>\r\n\t<d>4</d>\r\n</a>");
    const auto letters = [](QString text, qsizetype end) {
        text.truncate(end);
        for (const QChar blank : {u' ', u'\t', u'\r', u'\n'})
            text.remove(blank);
        return text.replace(u'\'', u'"');
    };
    for (const bool back : {false, true}) {
        const QString &before = back ? tidy : loose, &after = back ? loose : tidy;
        const auto where = textview::KeptPlaces(text::LongText(before), text::LongText(after));
        for (qsizetype place = 0; place <= before.size(); ++place)
            EXPECT_EQ(letters(after, where(place)), letters(before, place)) << place;
    }
}

// What is typed after the text was written anew goes on where the user was.
TEST(KeptPlaces, TypingGoesOnInTheSameElement) {
    const QByteArray document = "<a><b>one</b><c>two</c></a>";
    const auto typed = [&](const std::function<void(TextDesk&)>& act, const char* behind, const char* first) {
        TextDesk desk(document);
        desk.CaretBehind(QLatin1String(behind));
        desk.Type(QLatin1String(first));
        act(desk);
        desk.Type(QStringLiteral("y"));
        return desk.Text();
    };
    const auto leave = [](TextDesk& desk) {
        desk.pane().LostFocus();
        desk.Enter(desk.pane());
    };
    const auto save = [](TextDesk& desk) { desk.app.ChooseMenu(QStringLiteral("mnuFileSave")); };
    for (const auto& act : {std::function<void(TextDesk&)>(leave), std::function<void(TextDesk&)>(save)})
        EXPECT_EQ(typed(act, "two", "x"), QStringLiteral("<a>\r\n\t<b>one</b>\r\n\t<c>twoxy</c>\r\n</a>"));
    const auto close = [](TextDesk& desk) { desk.app.ChooseMenu(QStringLiteral("mnuXMLCloseTag")); };
    EXPECT_EQ(typed(close, "two", "<d>"),
              QStringLiteral("<a>\r\n\t<b>one</b>\r\n\t<c>two<d>y</d>\r\n\t</c>\r\n</a>"));
}

// --- the mark on a node ------------------------------------------------------------------------------------

struct Mark : testing::Test {
    TextDesk desk{"<a><order>one</order></a>"};
    Mark() {
        desk.app.ClickNode(desk.window().tvXML.Nodes(1).Child().Child());
        EXPECT_EQ(desk.Selection(), QStringLiteral("3+1"));
        desk.Enter(desk.window().rtxtXML);
    }
};

TEST_F(Mark, TheFirstKeyTakesNothingAway) {
    using Act = std::function<void(TextDesk&)>;
    desk.app.clipboard.text = QStringLiteral("p");
    const auto menu = [](const char* entry) {
        return Act([entry](TextDesk& d) { d.app.frame().RunMenuCommand(QLatin1String(entry)); });
    };
    const std::pair<Act, QString> acts[] = {
        {[](TextDesk& d) { d.Type(QStringLiteral("x")); }, QStringLiteral("x")},
        {menu("mnuEditPaste"), QStringLiteral("p")},
        {menu("mnuDelete"), {}},
        {menu("mnuEditCut"), {}},
        {[](TextDesk& d) { d.app.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("amp")); },
         QStringLiteral("&amp;")},
        {[](TextDesk& d) { d.Press(Qt::Key_Tab); }, QStringLiteral("\t")},
    };
    for (const auto& [act, added] : acts) {
        desk.pane().Mark(3, 1);
        act(desk);
        EXPECT_EQ(desk.Text(), QStringLiteral("<a>") + added + QStringLiteral("<order>one</order></a>"));
        EXPECT_EQ(desk.Selection(), QStringLiteral("%1+0").arg(3 + added.size()));
        if (!added.isEmpty())
            desk.Undo();
    }
    EXPECT_EQ(desk.app.clipboard.text, QStringLiteral("p"));
}

TEST_F(Mark, WhatTheUserSelectsThereIsASelection) {
    desk.Select(3, 1);
    desk.Type(QStringLiteral("x"));
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>xorder>one</order></a>"));
}

} // namespace
