// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "core/model/NodeContent.h"
#include "tests/table/TableDesk.h"

namespace {

using test::TableDesk;

struct CellEdit : TableDesk {};

TEST_F(CellEdit, AValueGoesIntoItsAttributeAndTheTextAsOneStep) {
    Open();
    const int fills = t.app().work.tableFills;
    Edit(1, 3, "Black tea");
    EXPECT_EQ(TagAt(1), "id=\"007\" name=\"Black tea\"");
    EXPECT_NE(Text().find("name=\"Black tea\""), std::string::npos);
    Edit(3, 3, "Pan");
    EXPECT_EQ(TagAt(3), "name=\"Pan\" id=\"1.50\"");
    EXPECT_EQ(Grid().TextMatrix(3, 3), QStringLiteral("Pan"));
    EXPECT_EQ(t.app().work.tableFills, fills) << "only what changed is read again";
    Undo();
    EXPECT_NE(Text().find("name=\"Pot\""), std::string::npos);
    EXPECT_NE(Text().find("Black tea"), std::string::npos);
}

// A letter begins a new value; the blank opens the old one. Escape keeps it either way.
TEST_F(CellEdit, TheKeyThatOpensTheEditorIsTyped) {
    Open();
    Click(1, 3);
    Key('5');
    EXPECT_EQ(Edited(), "5");
    EXPECT_EQ(w->txtTView.SelStart(), 1);
    w->txtTView.SetSelText(QStringLiteral("6"));
    w->txtTView.LostFocus();
    EXPECT_EQ(TagAt(1), "id=\"007\" name=\"56\"");
    Click(1, 3);
    Key(' ');
    EXPECT_EQ(Edited(), "56");
}

TEST_F(CellEdit, AStepBackLeavesTheMarkWhereTheUserIs) {
    Open("<r><a x='1' y='2'><b/></a><a x='3' y='4'><b/></a></r>");
    Edit(1, 2, "9");
    Click(1, 2);
    t.ChooseMenu(QStringLiteral("mnuSortZA"));
    Edit(2, 3, "8");
    Drag(2, 2, 2, 3);
    Undo();
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{2, 2, 2, 3})) << "and not the whole row";
    Key(Qt::Key_Delete);
    EXPECT_EQ(Xml(), "<r><a x=\"9\" y=\"2\"><b></b></a><a x=\"\" y=\"\"><b></b></a></r>");
    t.ClickNode(Element().Child().Child());
    Click(1, 2);
    t.ClickNode(Element().LastChild().Child());
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{1, 1, 1, 2})) << "on another level the row is new";
    t.ClickNode(Element().Child());
    Click(1, 2);
    t.ClickNode(Element().LastChild());
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{2, 1, 2, 4})) << "and so is another row";
}

TEST_F(CellEdit, TheSameTextIsNoEdit) {
    Open();
    const QString text = w->rtxtXML.Text();
    const auto revision = w->tvXML.Revision();
    Edit(1, 2, "007");
    Edit(3, 2, "1.50"); // what the document holds, though 1.5 is shown
    Edit(2, 4, "");
    EXPECT_EQ(w->tvXML.Revision(), revision);
    EXPECT_EQ(w->rtxtXML.Text(), text);
}

TEST_F(CellEdit, AnAttributeThatTheRowLacksStandsAtTheEnd) {
    Open("<r><a x='1' y='2'/><a/><a z='1'/></r>");
    Edit(2, 3, "9");
    EXPECT_EQ(TagAt(2), " y=\"9\"");
    Edit(1, 4, "3"); // the first row brings the column now
    EXPECT_EQ(Cells(), "<a>|x|y|z|Node Text\n[1]-|1|2|3|\n[2]-||9||\n[3]-|||1|\n(Calc)||||");
}

TEST_F(CellEdit, TheSearchInTheTagHitsTheEndOfAnotherNameWhereTheElementLacksItsOwn) {
    Open("<r><a ax='1' x='2'/><a ax='3'/><a xmlns:x='u'/></r>");
    Edit(1, 3, "9");
    Edit(2, 3, "8");
    Edit(3, 3, "7");
    EXPECT_EQ(TagAt(1), "ax=\"1\" x=\"9\"");
    EXPECT_EQ(TagAt(2), "ax=\"8\"");
    EXPECT_EQ(TagAt(3), "xmlns:x=\"u\" x=\"7\"") << "never a declaration";
}

TEST_F(CellEdit, APrefixKeepsItsDeclaration) {
    Open("<r xmlns:s='v'><x:a xmlns:x='u' x='1' p='2'><x:b/></x:a><x:a xmlns:x='u' s:k='3'/></r>");
    const std::string before = Xml();
    t.prompts.AllowAnyBox();
    const auto refused = [&](const char* what) {
        EXPECT_EQ(Xml(), before) << what;
        EXPECT_EQ(t.prompts.boxes.size(), 1U) << what;
        t.prompts.boxes.clear();
    };
    Click(1, 2);
    Key(Qt::Key_Delete);
    refused("emptied");
    Drag(0, 2, 3, 2);
    Key(Qt::Key_Delete);
    refused("the column");
    DblClick(1, 2);
    w->txtTView.UserTyped({});
    w->txtTView.LostFocus();
    EXPECT_TRUE(w->txtTView.Visible()) << "it stays as it was typed";
    EXPECT_TRUE(CellKey(Qt::Key_Escape));
    refused("typed");
    for (const auto& [column, name] : {std::pair(2, "y"), std::pair(2, "xmlns:y"), std::pair(4, "q:z")}) {
        Rename(column, name);
        EXPECT_EQ(EditedHeader(), name);
        EXPECT_TRUE(EditorKey(w->txtTViewHeader, Qt::Key_Escape));
        refused(name);
    }
    t.clipboard.SetText(QStringLiteral("<a p=\"5\" q:z=\"6\"/>"));
    Click(1, 4);
    Control(Qt::Key_V);
    refused("pasted");
    Rename(4, "s:z");
    Click(1, 3);
    Key(Qt::Key_Delete);
    EXPECT_EQ(TagAt(1), "xmlns:x=\"u\" x=\"\" s:z=\"2\"");
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(CellEdit, NodeTextIsTheFirstTextChild) {
    Open();
    Edit(1, 4, "finest");
    Edit(2, 4, "new");
    const std::string selected = Current();
    EXPECT_EQ(Cells(),
              "<item>|id|name|Node Text\n[1]-|007|Tea|finest\n[2]+|8|Cup|new\n[3]-|1.5|Pot|\n(Calc)|||");
    EXPECT_EQ(m_tvXML::GetKeyType(Element().Child().Next().Next().LastChild()), m_tvXML::kText);
    Edit(1, 4, "");
    EXPECT_FALSE(Element().Child().Child());
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
}

TEST_F(CellEdit, WhatWouldBreakTheDocumentIsWrittenEscaped) {
    Open("<r><a x='1'/></r>");
    const std::pair<const char*, const char*> cases[] = {
        {"5\" long", "5&quot; long"},
        {"a<b", "a&lt;b"},
        {"AT&T", "AT&amp;T"},
        {"a &amp; b", "a &amp; b"},
        {"&#65;", "&#65;"},
        {"1\" y=\"2", "1&quot; y=&quot;2"},
        {"it's", "it's"},
        {"&nbsp;", "&amp;nbsp;"},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"}};
    for (const auto& [typed, stored] : cases) {
        Edit(1, 2, typed);
        EXPECT_EQ(TagAt(1), std::string("x=\"") + stored + "\"");
        EXPECT_FALSE(t.app().lastParseError) << typed;
    }
    const std::pair<const char*, const char*> texts[] = {
        {"a<b", "a&lt;b"}, {"a]]>b", "a]]&gt;b"}, {"<i>x</i>", "<i>x</i>"}, {"</a><a>", "&lt;/a>&lt;a>"}};
    for (const auto& [typed, stored] : texts) {
        Edit(1, 3, typed);
        EXPECT_EQ(Element().Child().Child().Tag().toStdString(), stored);
        EXPECT_FALSE(t.app().lastParseError) << typed;
    }
    t.prompts.AllowAnyBox();
    const std::string before = Xml();
    DblClick(1, 2);
    w->txtTView.UserTyped(QStringLiteral("bad \x01 value"));
    w->txtTView.LostFocus();
    EXPECT_EQ(Xml(), before);
    EXPECT_EQ(Edited(), "bad \x01 value") << "what was refused stays as it was typed";
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(w->tbsXML.SelectedKey(), QStringLiteral("tableview")) << "and the view waits for it";
    EXPECT_TRUE(CellKey(Qt::Key_Escape));
}

TEST_F(CellEdit, TheEditorOpensOnWhatTheDocumentHoldsAndTakesNoOtherCell) {
    Open();
    Click(3, 2);
    Key(Qt::Key_Space);
    EXPECT_EQ(Edited(), "1.50") << "shown as 1.5";
    EXPECT_EQ(w->txtTView.SelStart() + w->txtTView.SelLength(), 0);
    for (const auto& [row, column] : {std::pair(1, 0), std::pair(1, 1), std::pair(0, 4)}) {
        w->txtTView.LostFocus();
        DblClick(row, column == 0 ? 1 : column);
        EXPECT_EQ(Edited(), "closed");
        t.ClickNode(Element().Child());
    }
}

TEST_F(CellEdit, RowsThatWereTakenAwayTakeNothing) {
    Open();
    DblClick(1, 3);
    w->txtTView.UserTyped(QStringLiteral("late"));
    edit::Run(*w, "Elsewhere", [&] { w->tvXML.Nodes.Remove(Element().Child()); });
    EXPECT_EQ(Edited(), "closed");
    EXPECT_TRUE(t.frame().StatusBar1().Panel(1).contains(QStringLiteral("late"))) << "and not in silence";
    w->txtTView.LostFocus();
    EXPECT_EQ(Xml().find("late"), std::string::npos);
}

TEST_F(CellEdit, WhatIsTypedStaysOverItsCellWhenTheLevelIsLoadedAnew) {
    Open("<r><b/><a x='1'/><a x='2' y='3'/></r>");
    t.ClickNode(Element().LastChild());
    DblClick(2, 2, 1);
    w->txtTView.UserTyped(QStringLiteral("kept"));
    edit::Run(*w, "Elsewhere", [&] {
        w->tvXML.Nodes.Remove(Element().Child().Next());
        w->tvXML.Nodes.Remove(Element().Child());
    });
    EXPECT_EQ(Edited(), "kept");
    w->txtTView.LostFocus();
    EXPECT_EQ(Xml(), "<r><a x=\"kept\" y=\"3\"></a></r>");
}

TEST_F(CellEdit, KeysThatMoveInTheGridTakeTheCurrentNodeAlong) {
    Open("<r><a x='1'/><a x='2'/></r>");
    Click(1, 2);
    Grid().Select(2, 1, 2, 1);
    Key(Qt::Key_Down);
    EXPECT_EQ(w->txtXPath.Text(), QStringLiteral("/r[1]/a[2]"));
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{2, 1, 2, 1}));
    Grid().Select(1, 1, 1, 1); // no key yet
    t.clipboard.SetText(QStringLiteral("<b/>"));
    Control(Qt::Key_V);
    EXPECT_EQ(Xml(), "<r><a x=\"1\"><b></b></a><a x=\"2\"></a></r>");
}

TEST_F(CellEdit, AStepBackInALargeDocumentStandsBeforeTheNextDelete) {
    Open("<r><a x='1' y='2'/>" + QByteArray("<!--") + QByteArray(4'100'000, 'c') + "--></r>");
    Edit(1, 2, "9");
    Click(1, 3);
    Undo();
    Key(Qt::Key_Delete);
    EXPECT_EQ(TagAt(1), "x=\"1\" y=\"\"");
}

// --- headers
// -------------------------------------------------------------------------------------------------

TEST_F(CellEdit, RenamingAColumnKeepsRowsWhoseValueIsShownOtherwise) {
    Open("<r><a x='1'/><a/><a x='02'/><a x='3' y='4'/></r>");
    Rename(2, "n");
    EXPECT_EQ(Xml(), "<r><a n=\"1\"></a><a></a><a x=\"02\"></a><a n=\"3\" y=\"4\"></a></r>");
    EXPECT_EQ(Cells(), "<a>|n|x|y|Node Text\n[1]-|1|||\n[2]-||||\n[3]-||||\n[4]-|3|||\n(Calc)||||");
    Undo();
    EXPECT_EQ(Xml(), "<r><a x=\"1\"></a><a></a><a x=\"02\"></a><a x=\"3\" y=\"4\"></a></r>");
}

TEST_F(CellEdit, NamesThatCantBeAreRefusedWithAWord) {
    Open("<r><a x='1' y='2' bx='3'/></r>");
    const std::string before = Xml();
    for (const char* name : {"", "a b", "1x", "y", "a\"b"}) {
        t.prompts.AllowAnyBox();
        t.prompts.boxes.clear();
        Rename(2, name);
        EXPECT_EQ(Xml(), before) << name;
        EXPECT_EQ(t.prompts.boxes.size(), 1U) << name;
        EXPECT_EQ(EditedHeader(), name) << "it stays as it was typed";
        EXPECT_TRUE(EditorKey(w->txtTViewHeader, Qt::Key_Escape));
    }
    Rename(4, "y2");
    EXPECT_EQ(TagAt(1), "x=\"1\" y=\"2\" y2=\"3\"");
    DblClick(0, 5);
    EXPECT_EQ(EditedHeader(), "closed") << "Node Text";
}

// --- keys
// ----------------------------------------------------------------------------------------------------

TEST_F(CellEdit, ArrowsAndTabWalkWithTheEditor) {
    Open("<r><a x='1' y='22'>t</a><a x='3' y='44'>u</a></r>");
    DblClick(1, 2);
    EXPECT_FALSE(CellKey(Qt::Key_Left)) << "the first column";
    EXPECT_FALSE(CellKey(Qt::Key_Right, 0)) << "inside the text";
    w->txtTView.UserTyped(QStringLiteral("9"));
    EXPECT_TRUE(CellKey(Qt::Key_Right, 1));
    EXPECT_EQ(Edited(), "22");
    EXPECT_EQ(TagAt(1), "x=\"9\" y=\"22\"");
    EXPECT_TRUE(CellKey(Qt::Key_Tab, 1));
    EXPECT_EQ(Edited(), "t");
    EXPECT_TRUE(CellKey(Qt::Key_Tab, 1));
    EXPECT_EQ(Edited(), "3") << "the next row";
    EXPECT_TRUE(CellKey(Qt::Key_Backtab));
    EXPECT_EQ(Edited(), "t");
    EXPECT_TRUE(CellKey(Qt::Key_Down));
    EXPECT_EQ(Edited(), "u");
    w->txtTView.UserTyped(QStringLiteral("v"));
    EXPECT_TRUE(CellKey(Qt::Key_Tab));
    EXPECT_EQ(Edited(), "closed") << "behind the last one";
    EXPECT_EQ(Grid().TextMatrix(2, 4), QStringLiteral("v"));
    DblClick(2, 4);
    EXPECT_TRUE(CellKey(Qt::Key_Left, 0));
    EXPECT_EQ(Edited(), "44");
    EXPECT_TRUE(test::TableDesk::EditorKey(w->txtTView, Qt::Key_Left, 2, Qt::ControlModifier));
    EXPECT_EQ(Edited(), "3");
    EXPECT_TRUE(CellKey(Qt::Key_Up));
    EXPECT_EQ(Edited(), "9");
    EXPECT_TRUE(CellKey(Qt::Key_Up));
    EXPECT_EQ(EditedHeader(), "x");
    EXPECT_TRUE(EditorKey(w->txtTViewHeader, Qt::Key_Right, 1));
    EXPECT_EQ(EditedHeader(), "y");
    EXPECT_FALSE(EditorKey(w->txtTViewHeader, Qt::Key_Right, 1)) << "Node Text has no editor";
    EXPECT_TRUE(EditorKey(w->txtTViewHeader, Qt::Key_Down));
    EXPECT_EQ(Edited(), "22");
    w->txtTView.UserTyped(QStringLiteral("5"));
    EXPECT_TRUE(CellKey(Qt::Key_Escape));
    EXPECT_EQ(Edited(), "closed");
    EXPECT_EQ(TagAt(1), "x=\"9\" y=\"22\"");
    DblClick(1, 3);
    w->txtTView.UserTyped(QStringLiteral("5"));
    EXPECT_TRUE(CellKey(Qt::Key_Return));
    EXPECT_EQ(TagAt(1), "x=\"9\" y=\"5\"");
}

TEST_F(CellEdit, DownFromTheLastRowOpensTheBoxOfFigures) {
    Open();
    DblClick(3, 2);
    EXPECT_TRUE(CellKey(Qt::Key_Down));
    EXPECT_EQ(Edited(), "closed");
    EXPECT_TRUE(w->cmbSum.Visible());
    int key = Qt::Key_Up;
    w->cmbSum.KeyDown(key, 0);
    EXPECT_EQ(key, 0);
    EXPECT_FALSE(w->cmbSum.Visible());
    EXPECT_EQ(Edited(), "1.50");
}

TEST_F(CellEdit, AWalkGoesOnInTheSameRowWhenTheGridIsMadeAnew) {
    Open("<r><a x='1'/><a x='2'/><a y='1' x='3'/></r>");
    Drag(1, 2, 3, 2);
    t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("za"));
    EXPECT_EQ(Grid().TextMatrix(1, 1), QStringLiteral("[2]-")) << "the third row shows no x, and is last";
    DblClick(2, 3);
    w->txtTView.UserTyped(QStringLiteral("new")); // the first row brings the column now
    EXPECT_TRUE(CellKey(Qt::Key_Left));
    EXPECT_EQ(Edited(), "1");
    EXPECT_EQ(TagAt(1), "x=\"1\" y=\"new\"");
}

// --- rows and levels
// -----------------------------------------------------------------------------------------

TEST_F(CellEdit, AClickSelectsTheNodeAndLeavesTheGridAsItIs) {
    Open();
    const int fills = t.app().work.tableFills;
    Drag(2, 2, 3, 3);
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child().Next().Next());
    EXPECT_EQ(Grid().Selection(), (controls::GridRange{2, 2, 3, 3}));
    Click(4, 2);
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child().Next().Next()) << "no node in the last row";
    EXPECT_EQ(t.app().work.tableFills, fills);
}

TEST_F(CellEdit, ADoubleClickOnALabelWalksDownAndUp) {
    Open("<r><a><!--c--><b n='1'/></a></r>");
    DblClick(1, 1);
    EXPECT_EQ(Cells(), "<b>|n|Node Text\n[1]-|1|\n(Calc)||");
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("b"));
    DblClick(1, 1);
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("a"));
    Grid().events().Click(Grid()); // the second half of the double click
    DblClick(1, 0);
    EXPECT_EQ(Cells(), "<b>|n|Node Text\n[1]-|1|\n(Calc)||");
}

TEST_F(CellEdit, CommandsOfTheFrameEditValueAndName) {
    Open();
    Grid().events().GotFocus(Grid());
    Menu("mnuEditValue");
    EXPECT_EQ(Edited(), "007") << "from a whole row";
    w->txtTView.LostFocus();
    Click(1, 3);
    Menu("mnuEditName");
    EXPECT_EQ(EditedHeader(), "name");
    w->txtTViewHeader.UserTyped(QStringLiteral("label"));
    w->tbsXML.Select(QStringLiteral("textview"));
    EXPECT_NE(Text().find("label=\"Cup\""), std::string::npos) << "leaving the view commits";
}

TEST_F(CellEdit, AnEntityGoesIntoTheOpenCell) {
    Open();
    EXPECT_FALSE(t.frame().ToolbarByName("tbTextEdit").Button("lt").Enabled());
    DblClick(1, 3);
    w->txtTView.GotFocus();
    w->txtTView.UserSelected(3, 0);
    t.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("lt"));
    EXPECT_EQ(Edited(), "Tea&lt;");
    w->txtTView.UserSelected(0, 3);
    Menu("mnuEditCut");
    EXPECT_EQ(t.clipboard.text, QStringLiteral("Tea"));
    Menu("mnuEditPaste");
    w->txtTView.LostFocus();
    EXPECT_EQ(TagAt(1), "id=\"007\" name=\"Tea&lt;\"");
}

TEST_F(CellEdit, SavingCommitsWhatIsBeingTyped) {
    Open();
    DblClick(1, 3);
    w->txtTView.UserTyped(QStringLiteral("Mate"));
    Menu("mnuFileSave");
    EXPECT_TRUE(t.folder.Read(QStringLiteral("shop.xml")).contains("name=\"Mate\""));
}

} // namespace
