// SPDX-License-Identifier: GPL-3.0-or-later
// What is dragged, what takes it where, and what becomes of a drop. Acts go in through the controls.
#include "tests/support/TestApp.h"
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using controls::Dragged;
using controls::TreeNode;

struct DragDrop : testing::Test {
    test::TestApp t;
    DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), "<a><b n=\"1\"><c/></b><d/>tail</a>");
    static TreeNode Named(DocumentWindow& window, const char* text) {
        for (int i = 1; i <= window.tvXML.Nodes.Count(); ++i)
            if (window.tvXML.Nodes(i).Text() == QLatin1String(text))
                return window.tvXML.Nodes(i);
        return {};
    }
    TreeNode Named(const char* text) { return Named(w, text); }
    static std::string Text(DocumentWindow& window) {
        return window.rtxtXML.Text()
            .remove(QRegularExpression(QStringLiteral("\\s*[\\r\\n]\\s*")))
            .toStdString();
    }
    std::string Text() { return Text(w); }
    bool Has(const char* part) { return Text().find(part) != std::string::npos; }

    /// As a press on a node and a pull at it: the node is current then, and the list hasn't followed yet.
    bool DragNode(TreeNode node) {
        bool cancel = false;
        w.tvXML.SetSelectedItem(node);
        w.tvXML.Drag.Start(cancel);
        return !cancel;
    }
    bool DragRows() {
        bool cancel = false;
        w.ListView1.Drag.Start(cancel);
        return !cancel;
    }
    /// Text of the node that takes a drop at a node; empty for none.
    static QString Taker(DocumentWindow& window, TreeNode node, Dragged what = Dragged::Nodes) {
        QString key;
        window.tvXML.Drag.Over(what, node, key);
        const TreeNode taker = window.tvXML.Nodes.Find(key);
        EXPECT_EQ(window.tvXML.Drag.Highlight(), taker);
        return taker ? taker.Text() : QString();
    }
    static void Drop(DocumentWindow& window, TreeNode node) {
        QString key;
        window.tvXML.Drag.Over(Dragged::Nodes, node, key);
        if (!key.isEmpty())
            window.tvXML.Drag.Drop(key);
    }
    static void DropOnList(DocumentWindow& window, int row) {
        QString key;
        window.ListView1.Drag.Over(Dragged::Nodes, row, key);
        if (!key.isEmpty())
            window.ListView1.Drag.Drop(key);
    }
    void DropText(const char* text, TreeNode node) { w.tvXML.Drag.DropText(QLatin1String(text), node.Key()); }
};

// --- the tree ----------------------------------------------------------------------------------------------

TEST_F(DragDrop, ANodeIsCopiedWithAllBelowItAlsoIntoItsOwnChild) {
    ASSERT_TRUE(DragNode(Named("b")));
    Drop(w, Named("d"));
    EXPECT_TRUE(Has("<d><b n=\"1\"><c></c></b></d>")) << Text();
    ASSERT_TRUE(DragNode(Named("b")));
    Drop(w, Named("c"));
    EXPECT_TRUE(Has("<b n=\"1\"><c><b n=\"1\"><c></c></b></c></b>")) << Text();
    EXPECT_EQ(w.tvXML.SelectedItem(), Named("b"));
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_FALSE(Has("<c><b")) << "one step takes a drop back: " << Text();
}

TEST_F(DragDrop, TheNodeThatTakesADropIsMarkedAndNoneTakesWhatMakesNoSense) {
    ASSERT_TRUE(DragNode(Named("b")));
    EXPECT_EQ(Taker(w, Named("d")), QStringLiteral("d"));
    EXPECT_EQ(Taker(w, Named("tail")), QStringLiteral("a")) << "its element stands for a text";
    EXPECT_EQ(Taker(w, Named("b")), QString()) << "itself";
    EXPECT_EQ(Taker(w, w.tvXML.Nodes(1)), QString()) << "the root of the tree";
    EXPECT_EQ(Taker(w, {}), QString()) << "beside the nodes";
    EXPECT_FALSE(DragNode(w.tvXML.Nodes(1)));
    ASSERT_TRUE(DragNode(Named("a")));
    EXPECT_EQ(Taker(w, Named("tail")), QString()) << "a node doesn't go into itself by way of its text";
    EXPECT_EQ(Taker(w, Named("tail"), Dragged::Text), QStringLiteral("a"));
    w.tvXML.Drag.Leave();
    EXPECT_FALSE(w.tvXML.Drag.Highlight());
}

// --- the list ----------------------------------------------------------------------------------------------

TEST_F(DragDrop, RowsGoWhereTheyFitAndAreToldOtherwise) {
    t.ClickNode(Named("b"));
    w.ListView1.ClearSelected();
    EXPECT_FALSE(DragRows());
    w.ListView1.SelectAll();
    ASSERT_TRUE(DragRows());
    EXPECT_EQ(Taker(w, Named("c")), QString()) << "a row that is dragged itself";
    EXPECT_EQ(Taker(w, Named("b")), QString()) << "it has the attribute already";
    Drop(w, Named("d"));
    EXPECT_TRUE(Has("<d n=\"1\"><c></c></d>")) << Text();
    const std::string before = Text();
    w.ListView1.SelectAll(); // the list was filled anew
    ASSERT_TRUE(DragRows());
    t.prompts.Answer(services::Answer::Ok);
    Drop(w, Named("d"));
    EXPECT_EQ(t.prompts.Texts(),
              QStringList{QStringLiteral("Can not set same attribute name at XML attribute list!")});
    EXPECT_EQ(Text(), before) << "the nodes stay away with the attribute";
}

TEST_F(DragDrop, ANodeDroppedOnTheListGoesIntoTheRowOrTheNodeOnShow) {
    t.ClickNode(Named("b"));
    const QString shown = w.ListView1.Tag;
    ASSERT_TRUE(DragNode(Named("d")));
    DropOnList(w, 1); // the child
    EXPECT_TRUE(Has("<b n=\"1\"><c><d></d></c></b>")) << Text();
    ASSERT_TRUE(DragNode(Named("d")));
    DropOnList(w, 2); // the attribute
    EXPECT_TRUE(Has("<b n=\"1\"><c><d></d></c><d></d></b>")) << Text();
    EXPECT_EQ(w.ListView1.Tag, shown) << "the list stays where the drop was";
    EXPECT_EQ(w.ListView1.Count(), 3);
    ASSERT_TRUE(DragNode(Named("b")));
    QString key;
    w.ListView1.Drag.Over(Dragged::Nodes, 0, key);
    EXPECT_EQ(key, QString()) << "the node on show is the one that is dragged";
}

// --- between documents -------------------------------------------------------------------------------------

TEST_F(DragDrop, NodesAndRowsGoIntoAnotherDocumentAsLongAsTheirWindowIsOpen) {
    t.ClickNode(Named("b"));
    w.ListView1.SelectAll();
    ASSERT_TRUE(DragRows());
    DocumentWindow& other = t.OpenText(QStringLiteral("z.xml"), "<z><y/></z>");
    Drop(other, Named(other, "y"));
    EXPECT_EQ(Text(other), "<z><y n=\"1\"><c></c></y></z>");
    ASSERT_TRUE(DragNode(Named("tail")));
    Drop(other, Named(other, "y"));
    EXPECT_EQ(Text(other), "<z><y n=\"1\"><c></c>tail</y></z>");
    EXPECT_EQ(w.rtxtXML.Text(), w.bond.msOpenText.toString()) << "a drag only copies";
    t.frame().CloseForm(&w);
    EXPECT_EQ(Taker(other, Named(other, "y")), QString());
}

TEST_F(DragDrop, ATextFromElsewhereIsNodesOrAttributes) {
    DropText("<x/><y/>", Named("d"));
    DropText("m='2'", Named("b"));
    EXPECT_TRUE(Has("<d><x></x><y></y></d>")) << Text();
    EXPECT_TRUE(Has("<b n=\"1\" m=\"2\">")) << Text();
    const std::string before = Text();
    t.prompts.AllowAnyBox();
    DropText("m=\"3\"", Named("b"));
    DropText("plain", Named("b"));
    DropText("k=\"3\"", Named("tail")); // no element
    EXPECT_EQ(t.prompts.boxes.size(), 3U);
    DropText("<x>", Named("b"));
    EXPECT_EQ(Text(), before);
}

// --- beside an edit ----------------------------------------------------------------------------------------

// The tree that a text is dropped on must be that of the text, or one of the two would be lost.
TEST_F(DragDrop, AnEditedTextComesIntoTheTreeBeforeAnythingIsDroppedThere) {
    w.tbsXML.Select(QStringLiteral("textview"));
    w.rtxtXML.GotFocus();
    const auto type = [this](const char* text) {
        w.rtxtXML.UserSelected(0, w.rtxtXML.Text().size());
        w.rtxtXML.Type(QLatin1String(text));
    };
    const auto refused = [this] {
        bool refuse = false;
        w.tvXML.Drag.Enter(refuse);
        return refuse;
    };
    type("<a><new/></a>");
    EXPECT_FALSE(refused());
    ASSERT_TRUE(Named("new"));
    DropText("<x/>", Named("new"));
    EXPECT_EQ(Text(), "<a><new><x></x></new></a>");
    type("<a><new>");
    EXPECT_TRUE(refused()) << "no box opens in the middle of a drag";
    EXPECT_EQ(Text(), "<a><new>");
    EXPECT_NE(t.frame().StatusBar1().Panel(1), QString());
}

TEST_F(DragDrop, ADropEndsAnOpenEditFirst) {
    t.ClickNode(Named("b"));
    w.ListView1.SetSelectedItem(2);
    w.ListView1.KeyUp(Qt::Key_Tab, 0);
    w.txtListView.UserTyped(QStringLiteral("77"));
    DropText("<x/>", Named("d"));
    EXPECT_TRUE(Has("<a><b n=\"77\"><c></c></b><d><x></x></d>")) << Text();
}

} // namespace
