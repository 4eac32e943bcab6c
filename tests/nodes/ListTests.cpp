// SPDX-License-Identifier: GPL-3.0-or-later
// The list: its rows, its names, and its commands, by the acts of a user.
#include "core/edit/Transaction.h"
#include "tests/nodes/ListDesk.h"
#include "textview/TextState.h"

namespace {

using controls::TreeNode;
using services::Answer;

struct List : test::ListDesk {};

TEST_F(List, ChildrenStandAboveAttributesAndALeafShowsItself) {
    Open();
    EXPECT_EQ(Table(), "1 title||Tee\n1 chapter|n=\"2\"|x\n3 Node Text|end|\n2 lang|de|\n2 year|1999|");
    EXPECT_EQ(Rows().Item(4).Key, Element().Key() + QStringLiteral("/lang"));
    EXPECT_EQ(Rows().Item(4).Tag, Element().Key());
    Select(Root());
    EXPECT_EQ(Table(), "7 xml|version=\"1.0\"|\n8 #comment|on tea|\n1 book|lang=\"de\" year=\"1999\"|end");
    Select(Element().LastChild());
    EXPECT_EQ(Table(), "3 Node Text|end|");
    Select(Root().Child());
    EXPECT_EQ(Table(), "7 xml version|version=\"1.0\"|");
    Select(Root().Child().Next());
    EXPECT_EQ(Table(), "8 comment|on tea|");
}

// A search looks at cells whose rows nobody has seen yet.
TEST_F(List, ACellReadsTheSameBeforeItsRowIsMade) {
    Open("<book lang='de'><title>Tee<b/>!</title>words<!--why--><x n='\xe2\x82\xac'/><![CDATA[<]]></book>");
    QStringList cells, rows;
    for (int row = 1; row <= Rows().Count(); ++row)
        for (int column = 1; column <= 3; ++column)
            cells << Rows().Cell(row, column).toString();
    for (int row = 1; row <= Rows().Count(); ++row)
        rows << Rows().Item(row).Text << Rows().Item(row).Sub[0] << Rows().Item(row).Sub[1];
    EXPECT_EQ(cells.join(u'|').toStdString(), rows.join(u'|').toStdString());
    EXPECT_EQ(rows.size(), 6 * 3);
}

TEST_F(List, NamesOfElementsAndAttributesAreLabels) {
    Open();
    const auto rename = [&](int row, const char* name) {
        ClickRow(row);
        Menu("mnuEditP");
        if (Rows().LabelEditRow() == 0)
            return;
        Rows().EndLabelEdit(QString::fromUtf8(name));
        if (Rows().LabelKept()) // refused
            Rows().CancelLabelEdit();
    };
    rename(1, "heading");
    EXPECT_EQ(Element().Child().Text(), QStringLiteral("heading"));
    EXPECT_NE(w->rtxtXML.Text().indexOf(QStringLiteral("<heading>")), -1);
    rename(4, "xml:lang");
    EXPECT_EQ(Element().Tag(), QStringLiteral("xml:lang=\"de\" year=\"1999\""));
    EXPECT_EQ(Rows().Item(Rows().SelectedItem()).Text, QStringLiteral("xml:lang"));
    const std::string before = Xml();
    t.prompts.Answer({Answer::Ok, Answer::Ok, Answer::Ok});
    rename(1, "1a");
    EXPECT_EQ(LastBox(), "XML node name fomula");
    rename(5, "a b");
    EXPECT_EQ(LastBox(), "This is not a validate attribute name");
    rename(5, "xml:lang");
    EXPECT_EQ(t.prompts.Texts().back(),
              QStringLiteral("Can not set same attribute name at XML attribute list!"));
    EXPECT_EQ(Xml(), before);
    ClickRow(3);
    EXPECT_FALSE(Rows().StartLabelEdit()) << "a text has no name";
    Select(Root());
    for (const int row : {1, 2}) {
        ClickRow(row);
        EXPECT_FALSE(Rows().StartLabelEdit()) << "nor have instructions and comments";
    }
}

TEST_F(List, WhatIsAddedCanBeNamedOrFilledAtOnce) {
    Open();
    ClickRow(1);
    Menu("mnuNewNodeP");
    ASSERT_EQ(Rows().LabelEditRow(), 2) << "behind the row";
    Rows().EndLabelEdit(QStringLiteral("subtitle"));
    ClickRow(2);
    Menu("mnuNewCNodeP"); // the list walks down to it
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("subtitle"));
    t.prompts.Answer(Answer::Ok);
    Rows().EndLabelEdit(QStringLiteral("1"));
    EXPECT_EQ(Rows().LabelEditRow(), 1) << "a refused name stays in its editor";
    Rows().EndLabelEdit({});
    EXPECT_EQ(Table(), "1 Unnamed||");
    const auto type = [&](const char* text) {
        ASSERT_TRUE(w->txtListView.Visible());
        w->txtListView.GotFocus();
        w->txtListView.UserTyped(QString::fromUtf8(text));
        w->txtListView.LostFocus();
    };
    ClickRow(1);
    Menu("mnuNewNodeTextP");
    type("inner");
    EXPECT_EQ(Table(), "3 Node Text|inner|");
    Menu("mnuNewCommentP");
    type("why");
    EXPECT_EQ(Table(), "3 Node Text|inner|\n8 #comment|why|");
    Select(Element().LastChild());
    Menu("mnuNewAttrP");
    EXPECT_EQ(Table(), "3 Node Text|end|") << "a text has no attributes";
    Select(Element());
    Menu("mnuNewAttrP");
    Rows().EndLabelEdit(QStringLiteral("isbn"));
    Menu("mnuNewAttrP");
    Rows().EndLabelEdit(Rows().Item(Rows().LabelEditRow()).Text);
    EXPECT_EQ(Element().Tag(), QStringLiteral("lang=\"de\" year=\"1999\" isbn=\"\" attr1=\"\""));
}

// Whatever it is: it goes whole, the user is where they were, and the history knows nothing of it.
TEST_F(List, EscapeTakesBackWhatWasJustAdded) {
    Open();
    const std::string before = Xml(), text = w->rtxtXML.Text().toStdString();
    for (const char* entry :
         {"mnuNewNodeP", "mnuNewCNodeP", "mnuNewNodeTextP", "mnuNewCommentP", "mnuNewAttrP"}) {
        for (const bool refused : {false, true}) {
            SCOPED_TRACE(entry);
            ClickRow(2);
            Menu(entry);
            const bool label = Rows().LabelEditRow() > 0;
            EXPECT_NE(label, w->txtListView.Visible());
            if (refused) {
                t.prompts.Answer(Answer::No);
                if (label) {
                    Rows().EndLabelEdit(QStringLiteral("7"));
                } else {
                    w->txtListView.UserTyped(QStringLiteral("--<"));
                    w->txtListView.LostFocus();
                }
                EXPECT_EQ(w->rtxtXML.Text().toStdString(), text);
            }
            if (label)
                Rows().CancelLabelEdit();
            else
                EditorKey(Qt::Key_Escape, 0);
            EXPECT_EQ(Xml(), before);
            EXPECT_EQ(w->rtxtXML.Text().toStdString(), text);
            EXPECT_EQ(w->tvXML.SelectedItem(), Element());
            EXPECT_EQ(Rows().SelectedItem(), 2);
        }
    }
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 0);
    Edit(2, 3, "y");
    ClickRow(2);
    TypeInto(2, 3, QStringLiteral("z"));
    EditorKey(Qt::Key_Escape, 0);
    EXPECT_EQ(Rows().Item(2).Sub[1], QStringLiteral("y")) << "what was there before stays";
}

// With OK at the question the new element lands below the comment, where no list shows it.
TEST_F(List, AnElementThatTheListCannotShowGetsItsNameToo) {
    Open();
    Select(Root());
    ClickRow(2);
    t.prompts.Answer(Answer::Ok);
    Menu("mnuNewNodeP");
    ASSERT_EQ(Root().Child().Next().Children(), 1);
    EXPECT_EQ(Root().Child().Next().Child().Text(), QStringLiteral("Unnamed"));
    EXPECT_FALSE(edit::IsAddingNewNode(*w)) << "the text isn't held back";
}

TEST_F(List, SelectedRowsAreDeletedTogether) {
    Open();
    ClickRows({1, 3, 4});
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<book year=\"1999\"><chapter n=\"2\">x<b></b>y</chapter></book>");
    EXPECT_EQ(Table(), "1 chapter|n=\"2\"|x\n2 year|1999|");
    EXPECT_EQ(Rows().SelectedItem(), 2) << "the row behind what went";
    EXPECT_EQ(w->tvXML.SelectedItem(), Element());
    Select(Element().Child().Child());
    ClickRow(1);
    Key(Qt::Key_Delete); // the node on show itself
    EXPECT_EQ(Xml(), "<book year=\"1999\"><chapter n=\"2\"><b></b>y</chapter></book>");
    Select(Element());
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<book></book>");
    EXPECT_EQ(w->rtxtXML.Text().right(13), QStringLiteral("<book></book>"));
    Key(Qt::Key_Delete); // nothing is left to delete
    EXPECT_EQ(Xml(), "<book></book>");
}

TEST_F(List, RowsMoveAmongTheirKind) {
    Open();
    ClickRow(5);
    Menu("mnuMoveUP");
    EXPECT_EQ(Element().Tag(), QStringLiteral("year=\"1999\" lang=\"de\""));
    EXPECT_EQ(Rows().SelectedItem(), 4) << "the moved row is the current one";
    Menu("mnuMoveUP"); // no attribute gets among the nodes
    EXPECT_EQ(Element().Tag(), QStringLiteral("year=\"1999\" lang=\"de\""));
    ClickRow(2);
    Menu("mnuMoveUP");
    EXPECT_EQ(
        Xml(),
        "<book year=\"1999\" lang=\"de\"><chapter n=\"2\">x<b></b>y</chapter><title>Tee</title>end</book>");
    EXPECT_EQ(Rows().SelectedItem(), 1);
    EXPECT_EQ(w->tvXML.SelectedItem(), Element());
    EXPECT_EQ(w->miPopupContext, kContextList);
}

// The list goes along with the row, which is current there.
TEST_F(List, ARowChangesItsLevel) {
    Open();
    const auto press = [&](const char* button) {
        t.PressButton(QStringLiteral("tbListEdit"), QLatin1String(button));
    };
    ClickRow(2);
    press("movedownlevel");
    EXPECT_EQ(
        Xml(),
        "<book lang=\"de\" year=\"1999\"><title>Tee<chapter n=\"2\">x<b></b>y</chapter></title>end</book>");
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    EXPECT_EQ(Rows().SelectedItem(), 2);
    press("moveuplevel");
    EXPECT_EQ(
        Xml(),
        "<book lang=\"de\" year=\"1999\"><title>Tee</title><chapter n=\"2\">x<b></b>y</chapter>end</book>");
    EXPECT_EQ(w->tvXML.SelectedItem(), Element());
    EXPECT_EQ(Rows().SelectedItem(), 2);
    const std::string before = Xml();
    for (const auto& [row, button] :
         {std::pair(2, "moveuplevel"), {1, "movedownlevel"}, {4, "movedownlevel"}}) {
        ClickRow(row); // no second root element, nothing before the first, and an attribute is none
        press(button);
        EXPECT_EQ(Xml(), before);
        EXPECT_EQ(w->tvXML.SelectedItem(), Element());
        EXPECT_EQ(Rows().SelectedItem(), row);
    }
}

TEST_F(List, AMoveFillsTheListOnce) {
    Open();
    ClickRow(2);
    const auto before = t.app().work;
    Menu("mnuMoveUP");
    EXPECT_EQ(t.app().work.listFills, before.listFills + 1);
    EXPECT_EQ(t.app().work.paths, before.paths + 1);
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 2);
}

TEST_F(List, WalkingOverADocumentTypeOpensNoBox) {
    Open("<!DOCTYPE shop><shop/>");
    Select(Root().Child());
    ASSERT_EQ(m_tvXML::GetKeyType(Root().Child()), m_tvXML::kDocumentType);
    EXPECT_EQ(Rows().Count(), 0);
    EXPECT_TRUE(t.prompts.boxes.empty());
}

// A moved node is a new one: an edit of the old one is finished before.
TEST_F(List, WhatIsBeingTypedIsntLostByAMove) {
    Open();
    TypeInto(2, 3, QStringLiteral("typed"));
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("moveup"));
    EXPECT_EQ(Xml(Element().Child()), "<chapter n=\"2\">typed<b></b>y</chapter>");
    EXPECT_FALSE(w->txtListView.Visible());
}

TEST_F(List, KeysAndClicksOfTheListItself) {
    Open();
    ClickRow(2);
    Rows().DblClick();
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("chapter"));
    EXPECT_EQ(Table(), "3 Node Text|x|\n1 b||\n3 Node Text|y|\n2 n|2|");
    ClickRow(1);
    Rows().DblClick();
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("chapter")) << "a text has no level below";
    ClickRow(4);
    Rows().DblClick();
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("2")) << "and an attribute a value";
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("uponelevel"));
    EXPECT_EQ(w->tvXML.SelectedItem(), Element());
    ClickRow(4);
    Key(Qt::Key_Tab);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("de"));
    w->txtListView.LostFocus();
    const std::pair<int, int> views[] = {{Qt::Key_W, controls::lvwIcon},
                                         {Qt::Key_E, controls::lvwList},
                                         {Qt::Key_R, controls::lvwSmallIcon},
                                         {Qt::Key_Q, controls::lvwReport}};
    for (const auto& [key, view] : views) {
        Key(Qt::Key_Tab);
        EXPECT_EQ(w->txtListView.Visible(), Rows().View() == controls::lvwReport)
            << "cells stand in the report";
        w->txtListView.LostFocus();
        Key(key, Qt::ControlModifier);
        EXPECT_EQ(Rows().View(), view);
    }
    int focus = 0;
    w->tvXML.focusRequested.connect([&focus] { ++focus; });
    Key(Qt::Key_Return);
    EXPECT_EQ(focus, 1);
}

// An empty text is no reason for the text view to stay behind: who goes on there would lose what came after.
TEST_F(List, ATextThatStaysEmptyHoldsNothingUp) {
    Open();
    Menu("mnuNewNodeTextP");
    w->txtListView.GotFocus();
    w->txtListView.LostFocus();
    ASSERT_EQ(Rows().Item(4).Sub[0], QString());
    ClickRow(5);
    Rows().StartLabelEdit();
    Rows().EndLabelEdit(QStringLiteral("tongue"));
    EXPECT_NE(w->rtxtXML.Text().indexOf(QStringLiteral("tongue=\"de\"")), -1) << "at once";
    Edit(3, 2, "");
    EXPECT_EQ(w->rtxtXML.Text().indexOf(QStringLiteral("end")), -1) << "an emptied text, too";

    Element().SetTag(QStringLiteral("year=\"2000\""));
    Menu("mnuEditUndo");
    EXPECT_NE(Xml().find("tongue="), std::string::npos) << "the last step alone is taken back";
    Menu("mnuRedo");
    EXPECT_NE(Xml().find("year=\"2000\""), std::string::npos) << "and is there to be done again";
}

TEST_F(List, ARowThatIsBeingEditedIsDeletedWithItsEditor) {
    Open();
    TypeInto(2, 3, QStringLiteral("typed"));
    w->txtListView.UserSelected(5, 0);
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("delete"));
    EXPECT_FALSE(w->txtListView.Visible());
    EXPECT_EQ(Xml(), "<book lang=\"de\" year=\"1999\"><title>Tee</title>end</book>");
    Menu("mnuEditUndo");
    EXPECT_EQ(Xml(Element().Child().Next()), "<chapter n=\"2\">typed<b></b>y</chapter>")
        << "what was typed stands";
}

// A step of the history builds the tree anew, and the row that is being edited goes with the old one.
TEST_F(List, WhatIsBeingTypedIsAStepOfTheHistory) {
    Open();
    TypeInto(4, 2, QStringLiteral("fr"));
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("copy")); // finishes the edit
    TypeInto(4, 2, QStringLiteral("nl"));
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("undo"));
    EXPECT_FALSE(w->txtListView.Visible());
    EXPECT_NE(Xml().find("lang=\"fr\""), std::string::npos) << Xml();
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("redo"));
    EXPECT_NE(Xml().find("lang=\"nl\""), std::string::npos) << Xml();
}

// Beside another view nobody sees the list's label: the attribute keeps the name it got.
TEST_F(List, AnAttributeThatIsAddedBesideTheTextHasAFreeName) {
    Open("<r attr1=\"\"/>");
    w->tbsXML.Select(QStringLiteral("textview"));
    Select(Element());
    t.ChooseMenu(QStringLiteral("mnuNewAttrP"));
    EXPECT_EQ(Rows().LabelEditRow(), 0);
    EXPECT_NE(w->rtxtXML.Text().indexOf(QStringLiteral("<r attr1=\"\" attr2=\"\">")), -1);
}

// The list isn't looked at while another view shows, and has to be right when it is looked at again.
TEST_F(List, ComesBackUpToDate) {
    Open();
    Select(Root());
    w->tbsXML.Select(QStringLiteral("browserview"));
    Menu("mnuNewCommentP");
    Select(Root());
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Rows().Count(), 4);

    Select(Element());
    w->tbsXML.Select(QStringLiteral("browserview"));
    Element().SetTag(QStringLiteral("lang=\"de\" fresh=\"1\"")); // as another view would
    Select(Element());
    Menu("mnuNewAttrP");
    EXPECT_EQ(Element().Tag(), QStringLiteral("lang=\"de\" fresh=\"1\" attr1=\"\""));

    t.EditText({});
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(Rows().Count(), 0) << "the document was emptied";
}

TEST_F(List, FollowsACommandThatAddedNothing) {
    Open();
    Select(Root());
    Menu("mnuNewNodeTextP"); // goes down to the first node, which takes no text
    EXPECT_EQ(Rows().Tag, w->tvXML.SelectedItem().Key());
    Select(Root());
    t.prompts.Answer(Answer::Cancel);
    Menu("mnuNewNodeP");
    EXPECT_EQ(Rows().Tag, w->tvXML.SelectedItem().Key());
}

TEST_F(List, AnOpenEditReachesTheFileOfAWindowThatCloses) {
    Open();
    TypeInto(4, 2, QStringLiteral("nl"));
    t.prompts.Answer(Answer::Yes);
    t.frame().CloseForm(w);
    EXPECT_TRUE(t.folder.Read(QStringLiteral("book.xml")).contains("<book lang=\"nl\""));
}

TEST_F(List, AMillionRowsAreMadeWhenTheyAreLookedAt) {
    constexpr int kRows = 1'000'000;
    Open("<r>" + QByteArray("<a/>").repeated(kRows) + "</r>");
    ASSERT_EQ(Rows().Count(), kRows);
    TreeNode last = Element().LastChild();
    last.SetTag(QStringLiteral("n=\"1\""));
    EXPECT_EQ(Rows().Item(kRows).Sub[0], QStringLiteral("n=\"1\"")) << "made now, and not before";
    EXPECT_EQ(Rows().IndexOf(last.Key()), kRows);
    Edit(kRows, 2, "n=\"2\"");
    EXPECT_EQ(last.Tag(), QStringLiteral("n=\"2\""));
    Rows().SelectAll();
    Rows().SetSelected(kRows, false);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<r><a n=\"2\"></a></r>");
}

} // namespace
