// SPDX-License-Identifier: GPL-3.0-or-later
// What the user didn't touch goes to the file as it came, whatever the text view shows.
#include "core/edit/Journal.h"
#include "core/edit/Open.h"
#include "tests/textview/FindDesk.h"

namespace {

using services::Answer;
using test::TextDesk;

const QByteArray kComments = "<!--x-->\n<a>\n\t<!--5 pens--><b>one</b>\n\t<!----><!-- own --><c/>\n</a>\n";

QByteArray SavedAs(test::TestApp& app) {
    static int number = 0;
    const QString name = QStringLiteral("copy%1.xml").arg(++number);
    app.prompts.Choose(app.folder.Path(name));
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    return app.folder.Read(name);
}

QByteArray Saved(test::TestApp& app) {
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    return app.folder.Read(QStringLiteral("text.xml"));
}

TEST(Unchanged, BlanksThatColouringShowsDoNotReachTheFile) {
    TextDesk desk(kComments);
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<!-- 5 pens-->")));
    EXPECT_EQ(SavedAs(desk.app), kComments);
    desk.window().tbsXML.Select(QStringLiteral("listview"));
    desk.app.ClickNode(desk.window().tvXML.Nodes(1));
    EXPECT_EQ(SavedAs(desk.app), kComments);

    // Nor those of a text that doesn't parse, edited elsewhere.
    test::TestApp app;
    app.prompts.Answer(Answer::Ok);
    DocumentWindow& bad = app.OpenText(QStringLiteral("text.xml"), kComments + "<a>");
    bad.rtxtXML.GotFocus();
    bad.rtxtXML.UserSelected(bad.rtxtXML.Long().size(), 0);
    bad.rtxtXML.Type(QStringLiteral("!"));
    app.prompts.Answer(Answer::Ok);
    EXPECT_EQ(Saved(app), kComments + "<a>!");
}

TEST(Unchanged, WhatIsTypedAndTakenBackLeavesNoTrace) {
    const qsizetype size = TextDesk(kComments).Text().size();
    for (qsizetype at = 0; at <= size; at += 2) {
        TextDesk desk(kComments);
        const QString text = desk.Text();
        for (const bool byUndo : {true, false}) {
            desk.Select(at);
            desk.Type(QStringLiteral(" "));
            byUndo ? desk.Undo() : static_cast<void>(desk.Press(Qt::Key_Backspace));
            EXPECT_EQ(desk.Text(), text);
            EXPECT_EQ(SavedAs(desk.app), kComments) << at << byUndo;
        }
        desk.Select(std::max<qsizetype>(at - 6, 0), 12);
        desk.Press(Qt::Key_Delete);
        desk.Undo();
        desk.Redo();
        desk.Undo();
        EXPECT_EQ(SavedAs(desk.app), kComments) << at;
        EXPECT_TRUE(desk.PanesAgree());
    }
}

TEST(Unchanged, EditsOfTheTextMoveTheBlanksAlong) {
    TextDesk desk(kComments);
    desk.Select(0, desk.Text().size());
    desk.Press(Qt::Key_Tab);
    EXPECT_EQ(desk.window().rtxtXML.Plain().toString(),
              u'\t' + QString::fromLatin1(kComments.trimmed()).replace(u'\n', QStringLiteral("\r\n\t")) +
                  QStringLiteral("\r\n"));
    desk.Undo();

    test::FindDesk find(kComments);
    find.Look(QStringLiteral("pens-->"), QStringLiteral("p-->"));
    find.form().cmdReplaceAll.Click();
    find.Select(0);
    find.Look(QStringLiteral("<!-- x"), QStringLiteral("<!-- y"));
    find.form().cmdReplaceAll.Click();
    EXPECT_EQ(find.window().rtxtXML.Plain().toString().remove(u'\r').toLatin1(),
              QByteArray(kComments).replace("5 pens", "5 p").replace("<!--x", "<!-- y"));
    find.Undo();
    find.Undo();
    EXPECT_EQ(SavedAs(find.app), kComments);
}

TEST(Unchanged, ATreeBuiltFromTheTextHasNoBlankOfTheView) {
    TextDesk desk(kComments);
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("!"));
    desk.window().tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(desk.window().tvXML.Nodes(1).Child().Tag(), QStringLiteral("x"));
    EXPECT_TRUE(Saved(desk.app).startsWith("<!--x-->\n<a>\n<!--5 pens-->\n\t<b>one!</b>\n<!---->"));
    desk.window().tbsXML.Select(QStringLiteral("textview"));
    edit::JournalOf(desk.app.app()).Tick();
    desk.Select(desk.Text().indexOf(QStringLiteral("one")));
    desk.Type(QStringLiteral("1"));
    edit::JournalOf(desk.app.app()).Tick();
    desk.app.prompts.Answer(Answer::Yes);
    desk.app.Restart();
    EXPECT_TRUE(desk.window().rtxtXML.Plain().toString().startsWith(QStringLiteral("<!--x-->")));
}

TEST(Unchanged, AnErrorIsShownAtItsPlaceBesideSuchBlanks) {
    test::TestApp app;
    app.prompts.Answer(Answer::Ok);
    DocumentWindow& bad = app.OpenText(QStringLiteral("text.xml"), "<a>\n<!--x--><!--y--><b <!--z--></a>");
    EXPECT_EQ(bad.rtxtXML.SelStart(), bad.rtxtXML.Text().indexOf(QStringLiteral("<!-- z")));
    EXPECT_EQ(app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 22"));
    EXPECT_TRUE(app.prompts.boxes[0].text.contains(QStringLiteral("LinePos:20\r\n"))) << "in the file";
}

TEST(Unchanged, MixedLineEndsComeBackWithTheText) {
    const QByteArray mixed = "<a>\n\t<b>one</b>\r\n\t<c/>\r<d/>\n</a>\r\n";
    TextDesk desk(mixed);
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("!"));
    EXPECT_NE(Saved(desk.app), mixed);
    desk.Type(QStringLiteral("?"));
    EXPECT_NE(Saved(desk.app), mixed);
    while (desk.Steps().contains(u'u'))
        desk.Undo();
    EXPECT_EQ(Saved(desk.app), mixed);
    EXPECT_EQ(SavedAs(desk.app), mixed);
}

TEST(Unchanged, ABadByteStaysThatByte) {
    const QByteArray bytes = "<a>\n\t<b>\xC3\xA9t\xC3\xA9</b>\n\t<c>caf\xE9</c>\n</a>";
    test::TestApp app;
    app.prompts.Answer(Answer::Ok);
    DocumentWindow& window = app.OpenText(QStringLiteral("text.xml"), bytes);
    EXPECT_TRUE(app.prompts.boxes.at(0).text.contains(QStringLiteral("UTF-8")));
    EXPECT_TRUE(window.rtxtXML.Text().contains(QStringLiteral("<b>\u00e9t\u00e9</b>")));
    EXPECT_EQ(SavedAs(app), bytes);
    app.EditText(window.rtxtXML.Text().replace(QStringLiteral("<b>"), QStringLiteral("<b>\u5317")));
    EXPECT_EQ(SavedAs(app), QByteArray(bytes).replace("<b>", "<b>\xE5\x8C\x97"));
    app.ClickNode(window.tvXML.Nodes(1).Child().Child());
    app.frame().RunMenuCommand(QStringLiteral("mnuDeleteP"));
    EXPECT_EQ(SavedAs(app), "<a>\n\t<c>caf\xE9</c>\n</a>");
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
}

// The declaration goes and comes back, and with it what the file was read as.
TEST(Unchanged, TheEncodingComesBackWithTheText) {
    for (const QByteArray label : {"UTF-16BE", "none-such", "windows-1252"}) {
        QByteArray bytes = "<?xml version=\"1.0\" encoding=\"" + label + "\"?>\n<a>caf\xE9</a>";
        if (label.startsWith("UTF"))
            bytes = text::Encode(QString::fromLatin1(bytes).replace(u'\n', QStringLiteral("\r\n")), {}).bytes;
        test::TestApp app;
        app.prompts.AllowAnyBox();
        DocumentWindow& window = app.OpenText(QStringLiteral("text.xml"), bytes);
        app.ClickNode(window.tvXML.Nodes(1).Child());
        app.frame().RunMenuCommand(QStringLiteral("mnuDeleteP"));
        EXPECT_EQ(Saved(app), "<a>caf\xC3\xA9</a>");
        app.ChooseMenu(QStringLiteral("mnuEditUndo"));
        app.prompts.boxes.clear();
        EXPECT_EQ(Saved(app), bytes) << label.toStdString();
        EXPECT_TRUE(app.prompts.boxes.empty());
    }
}

// Built into a window whose text is on show, as one that is loaded again is.
TEST(Unchanged, OpeningWritesNothingAnewWhicheverViewShows) {
    TextDesk desk("<a/>");
    DocumentWindow* window = &desk.window();
    const QString name = desk.app.folder.Write(QStringLiteral("other.xml"), "<a><b/><![CDATA[x]]></a>");
    edit::OpenFile(desk.app.app(), name, window);
    EXPECT_EQ(window->rtxtXML.Text(), QStringLiteral("<a><b/><![CDATA[x]]></a>"));
    EXPECT_TRUE(desk.app.prompts.rewritings.empty());
}

} // namespace
