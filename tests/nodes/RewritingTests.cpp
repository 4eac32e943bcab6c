// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is asked before a document is first written anew, and what the answers lead to.
#include "nodes/dialogs/frmEditNodes.h"
#include "tests/nodes/ListDesk.h"
#include "textview/TextState.h"

namespace {

using controls::TreeNode;
using services::Answer;

constexpr char kLossy[] = "<!DOCTYPE order>\n<order id=\"7\">\n<item>Tee</item> <item>Milch</item>"
                          "<!--x--><note><![CDATA[a < b]]></note>\n</order>\n";

struct RewritingTest : test::ListDesk {
    nodes::frmEditNodes* dialog = nullptr;

    void SetUp() override {
        t.frame().editNodesShown.connect([this](nodes::frmEditNodes& form) { dialog = &form; });
        Open(kLossy, QStringLiteral("order.xml"));
    }
    std::size_t Asked() { return t.prompts.rewritings.size(); }
    std::string Text() { return w->rtxtXML.Text().toStdString(); }
    TreeNode First() { return Element().Child(); }
    QByteArray Saved() {
        t.ChooseMenu(QStringLiteral("mnuFileSave"));
        return t.folder.Read(QStringLiteral("order.xml"));
    }
    void EnterText() {
        w->tbsXML.Select(QStringLiteral("textview"));
        w->rtxtXML.GotFocus();
    }
    void Type(const char* before, const char* typed) {
        EnterText();
        w->rtxtXML.UserSelected(w->rtxtXML.Text().indexOf(QLatin1String(before)), 0);
        w->rtxtXML.Type(QLatin1String(typed));
    }
};

TEST_F(RewritingTest, AnEditOfNodesThatIsDeclinedIsTakenBackWhole) {
    const std::string text = Text(), nodes = Xml(Root()), rows = Table();
    t.clipboard.text = QStringLiteral("<pasted/>");
    const std::pair<const char*, std::function<void()>> edits[] = {
        {"delete", [&] { Menu("mnuDeleteP"); }},
        {"paste", [&] { Menu("mnuPasteP"); }},
        {"cut", [&] { Menu("mnuCutP"); }},
        {"move",
         [&] {
             Select(First());
             Menu("mnuMoveDown");
         }},
        {"new element",
         [&] {
             Select(First());
             Menu("mnuNewNodeP");
         }},
        {"name in the tree",
         [&] {
             Select(First());
             ASSERT_TRUE(w->tvXML.StartLabelEdit());
             w->tvXML.EndLabelEdit(QStringLiteral("other"));
         }},
        {"cell", [&] { Edit(1, 3, "Kaffee"); }},
        {"attribute", [&] { Edit(Rows().Count(), 2, "8"); }},
        {"name in the list",
         [&] {
             ClickRow(1);
             ASSERT_TRUE(w->ListView1.StartLabelEdit());
             w->ListView1.EndLabelEdit(QStringLiteral("other"));
         }},
        {"rows",
         [&] {
             ClickRows({1, 2});
             Menu("mnuDeleteP");
         }},
        {"new attribute", [&] { Menu("mnuNewAttr"); }},
        {"drop", [&] { w->tvXML.Drag.DropText(QStringLiteral("<dropped/>"), First().Key()); }},
        {"dialog",
         [&] {
             Select(First());
             Menu("mnuEditPopupEditNode");
             ASSERT_TRUE(dialog);
             dialog->txtNodeText.UserTyped(QStringLiteral("Kaffee"));
             dialog->cmdOk.Click();
             EXPECT_EQ(dialog->txtNodeText.Text(), QStringLiteral("Kaffee")) << "it stays as it was typed";
             dialog->cmdCancel.Click();
         }},
    };
    std::size_t asked = 0;
    for (const auto& [name, act] : edits) {
        SCOPED_TRACE(name);
        t.prompts.AnswerRewriting({Answer::Cancel});
        act();
        t.prompts.ForgetUnused();
        EXPECT_EQ(Asked(), ++asked) << "each edit asks";
        asked = Asked();
        EXPECT_EQ(Text(), text);
        EXPECT_EQ(Xml(Root()), nodes);
        EXPECT_FALSE(w->tvXML.LabelEditNode());
        EXPECT_FALSE(w->bond.bTreeChanged());
        EXPECT_EQ(textview::StateOf(*w).UndoPos, 0);
        Select(Element());
        EXPECT_EQ(Table(), rows);
    }
    EXPECT_EQ(Saved(), QByteArray(kLossy));
    EXPECT_TRUE(t.frame().CloseForm(w)) << "nothing has changed";
}

TEST_F(RewritingTest, WhoGoesOnIsNotAskedAgainAndUndoBringsTheBytesBack) {
    Edit(1, 3, "Kaffee");
    ASSERT_EQ(Asked(), 1U);
    const QString question = t.prompts.rewritings[0].text;
    EXPECT_TRUE(t.prompts.rewritings[0].about.endsWith(QStringLiteral("order.xml")));
    for (const char* part :
         {"1 document type declaration", "1 CDATA section", "1 text of blanks between nodes", "OK", "Cancel"})
        EXPECT_TRUE(question.contains(QLatin1String(part))) << part << question.toStdString();
    EXPECT_FALSE(question.contains(QStringLiteral("entit")));
    Edit(1, 3, "Kakao");
    Type("<note>", "<new/>");
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Asked(), 1U);
    EXPECT_NE(Saved(), QByteArray(kLossy));
    for (int step = 0; step < 4; ++step)
        t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(Saved(), QByteArray(kLossy));
    EXPECT_EQ(Asked(), 1U);
    // What was taken back was the consent, too: the next letter must not cost the section.
    t.prompts.AnswerRewriting({Answer::Cancel});
    Type("<note>", "<new/>");
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Asked(), 2U);
    EXPECT_TRUE(Saved().contains("<![CDATA[a < b]]>"));
}

// The text is the user's then, and only the tree's edits ask.
TEST_F(RewritingTest, AnEditOfTheTextThatIsDeclinedStaysAsTyped) {
    t.prompts.AnswerRewriting({Answer::Cancel});
    Type("<note>", "<new/>");
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Asked(), 1U);
    EXPECT_TRUE(t.prompts.rewritings[0].text.contains(QStringLiteral("as it was typed")));
    const QByteArray typed = QByteArray(kLossy).replace("<note>", "<new/><note>");
    EXPECT_NE(Xml().find("<new></new>"), std::string::npos) << "the tree is built from it";
    EXPECT_EQ(Saved(), typed);

    Type("<note>", "<b></b>");
    w->rtxtXML.UserSelected(w->rtxtXML.Text().indexOf(QStringLiteral("<b></b>")) + 3, 4);
    w->rtxtXML.Type({});
    t.ChooseMenu(QStringLiteral("mnuXMLCloseTag"));
    const QByteArray second = QByteArray(typed).replace("<note>", "<b></b><note>");
    EXPECT_EQ(Saved(), second);
    EXPECT_EQ(Asked(), 1U) << "the text stays";

    t.prompts.AnswerRewriting({Answer::Cancel});
    w->tbsXML.Select(QStringLiteral("listview"));
    Select(Element());
    Edit(1, 3, "Kaffee");
    EXPECT_EQ(Asked(), 2U);
    EXPECT_EQ(Saved(), second);
    Edit(1, 3, "Kaffee");
    EXPECT_EQ(Asked(), 3U);
    EXPECT_EQ(Saved().count("CDATA"), 0);
}

TEST_F(RewritingTest, WhatLosesNothingAsksNothing) {
    // Taking back, the name of the document, saving and searching write nothing anew.
    Type("<note>", " ");
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    t.ChooseMenu(QStringLiteral("mnuRedo"));
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    w->tbsXML.Select(QStringLiteral("listview"));
    const QString renamed = t.folder.Path(QStringLiteral("renamed.xml"));
    Select(Root());
    ASSERT_TRUE(w->tvXML.StartLabelEdit());
    w->tvXML.EndLabelEdit(renamed);
    Select(First());
    const QString copy = t.folder.Path(QStringLiteral("copy.xml"));
    t.prompts.Choose(copy);
    t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    Select(Element());
    EXPECT_EQ(Asked(), 0U);
    EXPECT_EQ(w->rtxtXML.Plain().toString().remove(u'\r'), QString::fromLatin1(kLossy));
    for (const char* file : {"renamed.xml", "copy.xml"})
        EXPECT_EQ(t.folder.Read(QLatin1String(file)), QByteArray(kLossy)) << file;
    EXPECT_TRUE(t.frame().CloseForm(w));

    Open();
    Edit(1, 3, "Kaffee");
    Type("</book>", "<x/>");
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Asked(), 0U);
}

TEST_F(RewritingTest, WhatIsTypedMayBeTheFirstToBeLost) {
    Open("<a><b/></a>", QStringLiteral("plain.xml"));
    Select(First());
    t.prompts.AnswerRewriting({Answer::Cancel});
    Type("</a>", "<![CDATA[typed]]>");
    w->rtxtXML.LostFocus();
    EXPECT_EQ(Text(), "<a><b/><![CDATA[typed]]></a>");
    EXPECT_EQ(Asked(), 1U);
}

} // namespace
