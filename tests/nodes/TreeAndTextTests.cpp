// SPDX-License-Identifier: GPL-3.0-or-later
// A document changed in the tree while its text is, or has been, changed too: neither side is lost in
// silence.
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using services::Answer;
using test::TestApp;

struct TreeAndText : testing::Test {
    TestApp t;
    DocumentWindow& w = t.OpenText(QStringLiteral("list.xml"), "<list><a/><b/></list>");

    TreeNode List() { return w.tvXML.Nodes(1).Child(); }
    QString Text() { return w.rtxtXML.Text(); }
    bool Shows(const char* part) { return Text().contains(QLatin1String(part)); }
    void Name(TreeNode node, const char* name) {
        t.ClickNode(node);
        t.ChooseMenu(QStringLiteral("mnuEditName"));
        w.tvXML.EndLabelEdit(QLatin1String(name));
    }
    /// Types into the text view and stays there.
    void TypeBehind(const char* part, const char* text) {
        w.tbsXML.Select(QStringLiteral("textview"));
        w.rtxtXML.GotFocus();
        w.rtxtXML.UserSelected(Text().indexOf(QLatin1String(part)) + qstrlen(part), 0);
        w.rtxtXML.Type(QLatin1String(text));
    }
};

TEST_F(TreeAndText, ATextThatDoesNotParseGivesWayToTheTreeWithAWordAndComesBackByUndo) {
    t.prompts.Answer(Answer::Ok); // it isn't valid XML
    t.EditText(QStringLiteral("<list>half an hour's wo"));
    const QString typed = Text();
    t.prompts.boxes.clear();
    t.prompts.Answer(Answer::Ok);
    Name(List(), "items");
    ASSERT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_TRUE(t.prompts.boxes[0].text.contains(QStringLiteral("Undo")));
    EXPECT_TRUE(Shows("<items>"));
    Name(List(), "things"); // the text is the tree's now: nothing more to say
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    for (int i = 0; i < 2; ++i)
        t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(Text(), typed);
}

TEST_F(TreeAndText, AFileThatDoesNotParseIsNotReplacedByTheEmptyDocumentInSilence) {
    t.prompts.Answer({Answer::Ok, Answer::Ok});
    DocumentWindow& bad = t.OpenText(QStringLiteral("bad.xml"), "<letters><letter>Dear Ann</letters>");
    t.ClickNode(bad.tvXML.Nodes(1));
    t.ChooseMenu(QStringLiteral("mnuNewComment"));
    ASSERT_EQ(t.prompts.boxes.size(), 2U);
    EXPECT_TRUE(t.prompts.boxes[1].text.contains(QStringLiteral("Undo")));
}

// The search and the entities change a text that hasn't got the focus.
TEST_F(TreeAndText, ATextThatACommandChangedComesIntoTheTreeBeforeTheNextOne) {
    const auto change = [this](const char* text) {
        w.rtxtXML.SetSelStart(Text().indexOf(QStringLiteral("<list>")) + 6);
        w.rtxtXML.SetSelLength(0);
        w.rtxtXML.SetSelText(QLatin1String(text));
    };
    w.tbsXML.Select(QStringLiteral("textview"));
    w.rtxtXML.GotFocus();
    w.rtxtXML.LostFocus();
    t.ClickNode(List().Child());
    change("new text");
    w.tvXML.KeyUp(Qt::Key_Delete, 0);
    EXPECT_EQ(Text(), QStringLiteral("<list>new text<b></b>\r\n</list>"));
    // It is for the node that was chosen, and not for another one that has taken its place.
    t.ClickNode(List().Child().Next());
    change("<found/>");
    w.tvXML.KeyUp(Qt::Key_Delete, 0);
    EXPECT_TRUE(Shows("<found>") && !Shows("<b>")) << Text().toStdString();
    // The place alone says too little, and the tree's root is where it was.
    t.EditText(QStringLiteral("<list><b id=\"1\"/><b id=\"2\"/></list>"));
    w.tbsXML.Select(QStringLiteral("textview"));
    t.ClickNode(List().Child().Next());
    change("<b/>");
    w.tvXML.KeyUp(Qt::Key_Delete, 0);
    EXPECT_TRUE(Shows("id=\"1\"") && Shows("id=\"2\"")) << Text().toStdString();
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());
    t.ClickNode(w.tvXML.Nodes(1));
    change("<!-- new -->");
    t.ChooseMenu(QStringLiteral("mnuNewComment"));
    EXPECT_EQ(Text().count(QStringLiteral("<!--")), 2) << Text().toStdString();
    // One that doesn't parse holds the command back.
    t.ClickNode(List());
    change("<lost");
    const QString typed = Text();
    t.prompts.Answer(Answer::Ok);
    w.tvXML.KeyUp(Qt::Key_Delete, 0);
    EXPECT_EQ(Text(), typed);
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("This is not valid XML"));
}

TEST_F(TreeAndText, ThePathFollowsARename) {
    w.tbsXML.Select(QStringLiteral("textview"));
    Name(List(), "items");
    EXPECT_EQ(w.txtXPath.Text(), QStringLiteral("/items[1]"));
}

// The move commands work from the text view as well, without the focus leaving it.
TEST_F(TreeAndText, WhatIsBeingTypedComesIntoTheTreeBeforeAMove) {
    TypeBehind("<b/>", "<c/>");
    t.ChooseMenu(QStringLiteral("mnuMoveUP")); // of the node at the caret
    EXPECT_EQ(List().Children(), 3);
    EXPECT_EQ(List().Child().Next().Text(), QStringLiteral("c"));

    TypeBehind("</c>", "<d>");
    const QString typed = Text();
    t.prompts.Answer(Answer::Ok); // it isn't valid XML
    t.ChooseMenu(QStringLiteral("mnuMoveUP"));
    EXPECT_EQ(Text(), typed) << "the tree isn't that of the text: nothing is moved";
}

// Its nodes would not be those of the text.
TEST_F(TreeAndText, TheNodeDialogDoesNotOpenOverATypedTextThatDoesNotParse) {
    int shown = 0;
    t.frame().editNodesShown.connect([&](nodes::frmEditNodes&) { ++shown; });
    TypeBehind("<b/>", "<c>");
    t.prompts.Answer(Answer::Ok); // it isn't valid XML
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_EQ(shown, 0);
    TypeBehind("<c>", "</c>");
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_EQ(shown, 1);
}

// The text waits for a new node to be named or filled, but not for ever.
TEST_F(TreeAndText, AChangeBesideATextNodeThatWasLeftEmptyReachesTheTextView) {
    t.ClickNode(List());
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeTextP"));
    w.txtListView.LostFocus(); // nothing was typed
    ASSERT_EQ(m_tvXML::GetKeyType(List().LastChild()), 3);
    Name(List(), "items");
    w.tbsXML.Select(QStringLiteral("textview"));
    EXPECT_TRUE(Shows("<items>"));
    TypeBehind("</b>", "<c/>");
    w.rtxtXML.LostFocus();
    EXPECT_EQ(List().Text(), QStringLiteral("items"));
}

TEST_F(TreeAndText, ViewsFollowANewNodeWhenItHasItsName) {
    t.ClickNode(List().Child());
    const QString path = w.txtXPath.Text();
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    w.tvXML.LostFocus(); // to the editor of the label
    EXPECT_EQ(w.txtXPath.Text(), path);
    w.tvXML.EndLabelEdit(QStringLiteral("new"));
    EXPECT_EQ(w.txtXPath.Text(), path + QStringLiteral("/new[1]"));
}

// By their places: what stands in front of them may be another number of nodes.
TEST_F(TreeAndText, WhatIsOpenStaysOpenInATreeThatIsBuiltAnew) {
    controls::TreeView& tree =
        t.OpenText(QStringLiteral("a.xml"), "<a><b><c/><c><d/></c></b><b><c/></b>x<e><f/></e></a>").tvXML;
    const auto open = [&] {
        QStringList names;
        for (int i = 1; i <= tree.Nodes.Count(); ++i) {
            const TreeNode node = tree.Nodes(i);
            if (i > 1 && node.Expanded())
                names << node.Text();
        }
        return names.join(u' ').toStdString();
    };
    TreeNode a = tree.Nodes(1).Child();
    TreeNode first = a.Child();
    for (TreeNode node : {a, first.Next(), first.LastChild(), a.LastChild(), first})
        node.SetExpanded(true);
    ASSERT_EQ(open(), "a b c b e");
    tree.SetSelectedItem(a);
    t.EditText(QStringLiteral("<a><g/><b><h/><c/><c><d/></c></b><b><c/></b><e><f/></e></a>"));
    EXPECT_EQ(open(), "a b c b e f") << "and the node at the caret";
    EXPECT_FALSE(tree.Nodes(1).Child().Child().Next().Child().Next().Expanded()) << "the first c";
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(open(), "a b c b e f");
}

TEST_F(TreeAndText, AStepOfTheHistoryStaysWhereTheUserIs) {
    Name(List().Child().Next(), "renamed");
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(w.tvXML.SelectedItem().Text(), QStringLiteral("b"));
    t.ChooseMenu(QStringLiteral("mnuRedo"));
    EXPECT_EQ(w.tvXML.SelectedItem().Text(), QStringLiteral("renamed"));
    t.ClickNode(List().Child());
    t.ChooseMenu(QStringLiteral("mnuNewNode"));
    w.tvXML.EndLabelEdit(QStringLiteral("new"));
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(w.tvXML.SelectedItem().Text(), QStringLiteral("renamed")) << "what stands in its place";
}

} // namespace
