// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard of the list: what rows and nodes are as text, and what of a text goes where.
#include "tests/nodes/ListDesk.h"

namespace {

using controls::TreeNode;
using services::Answer;

struct ListClipboard : test::ListDesk {};

TEST_F(ListClipboard, NodesAndAttributesAreCopiedAndPasted) {
    Open();
    ClickRows({1, 4});
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(t.clipboard.text, QStringLiteral("<title>Tee</title>"));
    Select(Element().Child().Next());
    Key(Qt::Key_V, Qt::ControlModifier); // what went along in this program is pasted with it
    EXPECT_EQ(Xml(Element().Child().Next()),
              "<chapter n=\"2\" lang=\"de\">x<b></b>y<title>Tee</title></chapter>");

    Select(Element());
    ClickRow(5);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(t.clipboard.text, QStringLiteral("year=\"1999\""));
    ClickRow(1); // attributes go into the row's element
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(Element().Child()), "<title year=\"1999\">Tee</title>");
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(t.prompts.Texts().back(),
              QStringLiteral("Can not set same attribute name at XML attribute list!"));
    EXPECT_EQ(Xml(Element().Child()), "<title year=\"1999\">Tee</title>");
}

// A whole document, as other programs copy it.
TEST_F(ListClipboard, ADeclarationInFrontOfWhatIsPastedIsLeftOut) {
    Open("<r><a/></r>");
    t.clipboard.SetText(
        QStringLiteral("\r\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<x k=\"1\">?></x>"));
    t.frame().RefreshMenu();
    t.ClickNode(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuEditPaste"));
    EXPECT_EQ(Xml(), "<r><a><x k=\"1\">?&gt;</x></a></r>");
    Select(Element());
    ClickRow(1);
    Menu("mnuPasteP");
    EXPECT_EQ(Xml(), "<r><a><x k=\"1\">?&gt;</x></a><x k=\"1\">?&gt;</x></r>");
    t.clipboard.SetText(QStringLiteral("<?xml-stylesheet href=\"a\"?>"));
    Menu("mnuPasteP");
    EXPECT_EQ(Element().LastChild().Text(), QStringLiteral("xml-stylesheet")) << "that is an instruction";
}

// Only the tree knows where an attribute can go: the clipboard's text can't hold one beside nodes.
TEST_F(ListClipboard, RowsThatWereCutComeWholeIntoTheTree) {
    Open();
    ClickRows({1, 4});
    Key(Qt::Key_X, Qt::ControlModifier);
    ASSERT_EQ(Xml(), "<book year=\"1999\"><chapter n=\"2\">x<b></b>y</chapter>end</book>");
    Select(Element().Child());
    w->tvXML.KeyUp(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(Element().Child()), "<chapter n=\"2\" lang=\"de\">x<b></b>y<title>Tee</title></chapter>");
}

// Toolbar buttons leave the focus in the cell: its letters are meant, not its row.
TEST_F(ListClipboard, InACellTheCommandsWorkOnItsText) {
    Open();
    const std::string before = Xml();
    TypeInto(4, 2, QStringLiteral("german"));
    w->txtListView.UserSelected(0, 3);
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("cut"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("man"));
    EXPECT_EQ(t.clipboard.text, QStringLiteral("ger"));
    EXPECT_EQ(Xml(), before);
    t.clipboard.text = QStringLiteral("hu");
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("paste"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("human"));
    w->txtListView.UserSelected(0, 2);
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("delete"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("man"));
    EXPECT_EQ(Xml(), before);
    // In a label there is nothing that a command can be given: it is finished, and its node stays.
    w->txtListView.LostFocus();
    w->tvXML.StartLabelEdit();
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("cut"));
    EXPECT_TRUE(Element());
}

// A text that doesn't parse is behind no change: it stays.
TEST_F(ListClipboard, WhatPastesNothingTakesNoTextAway) {
    Open();
    t.prompts.Answer(Answer::Ok);
    t.EditText(QStringLiteral("<book>half"));
    const QString typed = w->rtxtXML.Text();
    t.clipboard.text = QStringLiteral("<a");
    t.prompts.Answer(Answer::Ok);
    Select(Element());
    w->tvXML.KeyUp(Qt::Key_V, Qt::ControlModifier);
    Select(Root());
    w->tvXML.KeyUp(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(w->rtxtXML.Text(), typed);
}

TEST_F(ListClipboard, TheValueOfANodeIsEditedFromTheTree) {
    Open();
    t.ChooseMenu(QStringLiteral("mnuEditValue"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("de")) << "the first attribute, behind the children";
    w->txtListView.LostFocus();
    Select(Root().Child().Next());
    t.ChooseMenu(QStringLiteral("mnuEditValue"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("on tea"));
}

TEST_F(ListClipboard, ATextKeepsItsCharactersOnTheWay) {
    Open("<r><a>x</a><b/><c/>tail<d/></r>");
    Edit(1, 3, "n=\"1\"");
    Select(Element().Child());
    ClickRow(1);
    Key(Qt::Key_C, Qt::ControlModifier);
    Select(Element().Child().Next());
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(Element().Child().Next()), "<b>n=&quot;1&quot;</b>")
        << "a text that reads like an attribute";

    Select(Element());
    ClickRows({2, 4}); // an element and a text that don't stand beside each other
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(t.clipboard.text, QStringLiteral("<b>n=&quot;1&quot;</b>tail"));
}

TEST_F(ListClipboard, WhatDoesNotFitIsRefusedInWords) {
    Open();
    const std::string before = Xml();
    const auto paste = [&](const char* text) {
        t.clipboard.text = QString::fromUtf8(text);
        t.prompts.Answer(Answer::Ok);
        Key(Qt::Key_V, Qt::ControlModifier);
    };
    paste("<i>");
    EXPECT_EQ(LastBox(), "This is not valid XML");
    Select(Element().LastChild());
    for (const char* text : {"n=\"1\"", "<i/>"}) {
        paste(text);
        EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("This type of data can not paste!"));
    }
    EXPECT_EQ(Xml(), before);
    Select(Element());
    t.clipboard.text = QStringLiteral("<i/><j/>plain");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_NE(Xml().find("end<i></i><j></j>plain</book>"), std::string::npos);
}

// Cut deletes what the clipboard holds, and nothing else.
TEST_F(ListClipboard, WhatHasNoTextFormIsNeitherCopiedNorCut) {
    Open("<r><![CDATA[a < b]]><b/>x</r>");
    Edit(3, 2, "");
    t.clipboard.text = QStringLiteral("kept");
    const auto cut = [&](std::initializer_list<int> rows) {
        ClickRows(rows);
        t.prompts.Answer(Answer::Ok);
        Key(Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("This type of data can not copy!"));
        EXPECT_EQ(t.clipboard.text, QStringLiteral("kept"));
        EXPECT_EQ(Table(), "4 #cdata-section|a < b|\n1 b||\n3 Node Text||");
    };
    cut({1});
    cut({3});
    cut({1, 2});
    Select(Element().Child());
    for (const char* entry : {"mnuEditCopy", "mnuEditCut"}) {
        t.prompts.Answer(Answer::Ok);
        t.ChooseMenu(QLatin1String(entry));
        EXPECT_EQ(t.clipboard.text, QStringLiteral("kept"));
        EXPECT_EQ(Element().Children(), 3);
    }
    Select(Element());
    ClickRows({2, 3}); // an empty text is copied in full by leaving it out
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(t.clipboard.text, QStringLiteral("<b></b>"));
    EXPECT_EQ(Table(), "4 #cdata-section|a < b|");
}

TEST_F(ListClipboard, APasteIsDoneWholeOrNotAtAll) {
    Open();
    ClickRows({1, 4}); // title and lang
    Key(Qt::Key_C, Qt::ControlModifier);
    const std::string before = Xml();
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(t.prompts.Texts().back(),
              QStringLiteral("Can not set same attribute name at XML attribute list!"));
    EXPECT_EQ(Xml(), before) << "lang is there: the title doesn't go in alone";
    ClickRow(2);
    Rows().StartLabelEdit();
    Rows().EndLabelEdit(QStringLiteral("a b:c")); // nobody looks at what stands before the colon
    ClickRows({2, 4});
    Key(Qt::Key_C, Qt::ControlModifier);
    Select(Element().Child());
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(LastBox(), "This is not valid XML");
    EXPECT_EQ(Xml(Element().Child()), "<title>Tee</title>") << "nor does lang";
    Select(Root());
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("This type of data can not paste!"));

    for (const char* text : {"<!--c--><book/>", "<!--c-->words", "<![CDATA[c]]>"}) {
        t.clipboard.text = QString::fromUtf8(text);
        t.prompts.Answer(Answer::Ok);
        Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("This type of data can not paste!")) << text;
        EXPECT_EQ(Root().Children(), 3) << text;
    }
    t.clipboard.text = QStringLiteral("<!--c--><?page 2?>");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Root().Children(), 5);
    Select(Root());
    ClickRow(3);
    Key(Qt::Key_Delete);
    t.clipboard.text = QStringLiteral("<a/><b/>");
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Root().Children(), 4) << "two root elements";
    t.clipboard.text = QStringLiteral("<a/><!--end-->");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(), "<a></a>");
}

// What the tree copied goes into the row's element; what another program copied since goes where it always
// does.
TEST_F(ListClipboard, OnlyTheLastCopyOfTheTreeGoesIntoARow) {
    Open("<book><title>Tee</title><b><c/></b></book>");
    Select(Element().Child().Next());
    t.ChooseMenu(QStringLiteral("mnuEditCopy"));
    t.clipboard.text.remove(u'\r'); // the desktop's clipboard has line ends of its own
    Select(Element());
    ClickRow(1);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(Element().Child()), "<title>Tee<b><c></c></b></title>");
    t.clipboard.text = QStringLiteral("<i/>");
    ClickRow(1);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Xml(Element().Child()), "<title>Tee<b><c></c></b></title>");
    EXPECT_EQ(Xml(Element().LastChild()), "<i></i>");
}

// The rows stay at hand for the text where another program has emptied the clipboard.
TEST_F(ListClipboard, CopiedRowsGoIntoTheTextAsTheyWere) {
    Open();
    ClickRow(1);
    Key(Qt::Key_C, Qt::ControlModifier);
    Select(Element().LastChild());
    t.clipboard.text.clear();
    w->tbsXML.Select(QStringLiteral("textview"));
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(0, 0);
    t.ChooseMenu(QStringLiteral("mnuEditPaste"));
    EXPECT_TRUE(w->rtxtXML.Text().startsWith(QStringLiteral("<title>Tee</title>")));
}

TEST_F(ListClipboard, AFragmentOfMegabytesIsPasted) {
    constexpr int kItems = 100'000;
    Open("<r/>");
    const QString item =
        QStringLiteral("<item number=\"1234567\">") + QString(70, u'x') + QStringLiteral("</item>");
    t.clipboard.text = item.repeated(kItems);
    ASSERT_GT(t.clipboard.text.size(), 9'900'000);
    Rows().GotFocus();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Rows().Count(), kItems);
    EXPECT_EQ(Rows().Item(kItems).Sub[0], QStringLiteral("number=\"1234567\""));
    t.clipboard.text = item.repeated(kItems) + QStringLiteral("</r>");
    t.prompts.Answer(Answer::Ok);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(LastBox(), "This is not valid XML");
    EXPECT_EQ(Rows().Count(), kItems);
}

} // namespace
