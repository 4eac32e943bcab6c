// SPDX-License-Identifier: GPL-3.0-or-later
// The menu entries that follow the situation of the active window.
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using test::TestApp;

const QByteArray kShop = "<shop><pen colour='red'><cap/></pen></shop>";

controls::TreeNode Pen(DocumentWindow& window) {
    return window.tvXML.Nodes(1).Child().Child();
}

/// How a user comes into each situation.
struct Situation {
    const char* name;
    void (*enter)(TestApp& t);
};

void ShowTextView(TestApp& t, qsizetype selected) {
    DocumentWindow& w = t.OpenText(QStringLiteral("shop.xml"), kShop);
    w.tbsXML.Select(QStringLiteral("textview"));
    w.rtxtXML.UserSelected(0, selected);
    w.rtxtXML.GotFocus();
}

void SelectNode(TestApp& t) {
    DocumentWindow& w = t.OpenText(QStringLiteral("shop.xml"), kShop);
    t.ClickNode(Pen(w));
}

/// With the cell in a column selected; the first one holds the row's label.
void ShowTableView(TestApp& t, int column) {
    DocumentWindow& w = t.OpenText(QStringLiteral("shop.xml"), kShop);
    w.tbsXML.Select(QStringLiteral("tableview"));
    controls::FlexGrid& grid = w.hfgrdTableView(0);
    grid.Select(1, column, 1, column);
    grid.events().GotFocus(grid);
}

constexpr Situation kSituations[] = {
    {"no window", [](TestApp&) {}},
    {"tree root",
     [](TestApp& t) {
         DocumentWindow& w = t.OpenText(QStringLiteral("shop.xml"), kShop);
         t.ClickNode(w.tvXML.Nodes(1));
     }},
    {"tree node", SelectNode},
    {"list item",
     [](TestApp& t) {
         SelectNode(t);
         t.window().ListView1.SetSelectedItem(2); // the row of cap, behind the attribute
         t.window().ListView1.GotFocus();
     }},
    {"list none",
     [](TestApp& t) {
         SelectNode(t);
         t.window().ListView1.GotFocus();
     }},
    {"text selected", [](TestApp& t) { ShowTextView(t, 6); }},
    {"text none", [](TestApp& t) { ShowTextView(t, 0); }},
    {"table selected", [](TestApp& t) { ShowTableView(t, 2); }},
    {"table none", [](TestApp& t) { ShowTableView(t, 1); }},
    {"browser view",
     [](TestApp& t) {
         t.OpenText(QStringLiteral("shop.xml"), kShop).tbsXML.Select(QStringLiteral("browserview"));
     }},
};
constexpr std::size_t kBrowser = std::size(kSituations) - 1;

struct Row {
    const char* entry;
    const char* states; ///< a letter for each situation: E enabled, D disabled
};
// In a document that has its root element, with nothing copied and nothing changed.
constexpr Row kRows[] = {
    {"mnuEditCut", "DDEEDEDEDD"},     {"mnuEditCopy", "DDEEDEDEDD"},    {"mnuEditPaste", "DDDDDDDDDD"},
    {"mnuDelete", "DDEEEEEEDD"},      {"mnuEditName", "DEEEDDDEED"},    {"mnuEditValue", "DDEEEDDEED"},
    {"mnuNewCNode", "DDEEEDDDDD"},    {"mnuNewNode", "DDEEEDDDDD"},     {"mnuNewAttr", "DDEEEDDDDD"},
    {"mnuNewNodeText", "DDEEEDDDDD"}, {"mnuNewComment", "DEEEEDDDDD"},  {"mnuFindReplace", "DDDDDEEDDD"},
    {"mnuSplitEditor", "DDDDDEEDDD"}, {"mnuWinSplit", "DDDDDEEDDD"},    {"mnuCopyAsHTML", "DDDDDDDEED"},
    {"mnuNewCNodeP", "DDEEEDDDDD"},   {"mnuNewCommentP", "DEEEEDDDDD"}, {"mnuEditP", "DEEEDDDEED"},
    {"mnuSelectAll", "DDDEEEEEED"},   {"mnuEditUndo", "DDDDDDDDDD"},    {"mnuMoveUP", "DEEEEEEEED"},
    {"mnuXMLCloseTag", "DDDDDEEDDD"}, {"mnuXSD", "EDDDDDDDDD"},
};

char Letter(TestApp& t, const char* entry) {
    return t.frame().Menu(QLatin1String(entry)).Enabled() ? 'E' : 'D';
}

TEST(MenuMatrix, EachSituationEnablesItsEntries) {
    for (std::size_t column = 0; column < std::size(kSituations); ++column) {
        TestApp t;
        kSituations[column].enter(t);
        for (const Row& row : kRows)
            EXPECT_EQ(Letter(t, row.entry), row.states[column])
                << row.entry << " in the situation: " << kSituations[column].name;
    }
}

// What was copied here can be pasted in every view, and XML from another program; a text takes all that other
// programs copy.
TEST(MenuMatrix, PasteFollowsWhatWasCopied) {
    for (std::size_t column = 1; column < std::size(kSituations); ++column) {
        TestApp t;
        t.OpenText(QStringLiteral("other.xml"), "<a><b/></a>");
        t.ClickNode(t.window().tvXML.Nodes(1).Child());
        t.ChooseMenu(QStringLiteral("mnuEditCopy"));
        EXPECT_EQ(Letter(t, "mnuEditPaste"), 'E') << "at once";
        kSituations[column].enter(t);
        EXPECT_EQ(Letter(t, "mnuEditPaste"), column == kBrowser ? 'D' : 'E') << kSituations[column].name;
        EXPECT_EQ(Letter(t, "mnuPasteP"), column == kBrowser ? 'D' : 'E') << kSituations[column].name;
    }
    TestApp other;
    other.OpenText(QStringLiteral("other.xml"), "<a><b/></a>");
    other.ClickNode(other.window().tvXML.Nodes(1).Child());
    other.ChooseMenu(QStringLiteral("mnuEditCopy"));
    other.ChooseMenu(QStringLiteral("mnuFileClose"));
    SelectNode(other);
    EXPECT_EQ(Letter(other, "mnuEditPaste"), 'E') << "its document was closed since";

    TestApp t;
    t.clipboard.SetText(QStringLiteral("from elsewhere"));
    SelectNode(t);
    EXPECT_EQ(Letter(t, "mnuEditPaste"), 'D');
    ShowTextView(t, 0);
    EXPECT_EQ(Letter(t, "mnuEditPaste"), 'E');
    t.clipboard.SetText(QChar(QChar::ByteOrderMark) + QStringLiteral("\n<?xml version='1.0'?><x/>"));
    SelectNode(t);
    EXPECT_EQ(Letter(t, "mnuEditPaste"), 'E');
}

TEST(MenuMatrix, ANodeOffersWhatItsKindAndPlaceAllowInTheTreeAndAsARow) {
    TestApp t;
    DocumentWindow* w = nullptr;
    // Letters for child, node, attribute, text, comment, name, value, delete.
    const auto letters = [&] {
        std::string all;
        for (const char* entry : {"mnuNewCNode", "mnuNewNode", "mnuNewAttr", "mnuNewNodeText",
                                  "mnuNewComment", "mnuEditName", "mnuEditValue", "mnuDelete"})
            all += Letter(t, entry);
        return all;
    };
    const auto chooseRow = [&](int row) {
        w->ListView1.GotFocus();
        w->ListView1.ClearSelected();
        w->ListView1.SetSelectedItem(row);
        w->ListView1.Click();
    };
    const auto expect = [&](controls::TreeNode node, const char* states, const char* what) {
        t.ClickNode(node);
        EXPECT_EQ(letters(), states) << what;
        t.ClickNode(node.Parent());
        chooseRow(w->ListView1.IndexOf(node.Key()));
        EXPECT_EQ(letters(), states) << what << " as a row";
    };
    w = &t.OpenText(QStringLiteral("a.xml"),
                    "<!--top--><?style a?><a n='1'><b/>words<!--note--><?page 2?></a>");
    const controls::TreeNode root = w->tvXML.Nodes(1), top = root.Child(), element = root.LastChild();
    t.ClickNode(root);
    EXPECT_EQ(letters(), "DDDDEEDD") << "tree root";
    expect(top, "DDDDEDEE", "comment beside the root element");
    expect(top.Next(), "DDDDEDEE", "instruction beside the root element");
    expect(element, "EDDDEEEE", "root element");
    for (const char* entry : {"mnuNewAttrP", "mnuNewNodeTextP"})
        EXPECT_EQ(Letter(t, entry), 'E') << "within reach of the context menu: " << entry;
    EXPECT_EQ(Letter(t, "mnuNewNodeP"), 'D');
    expect(element.Child(), "EEEEEEEE", "element");
    for (controls::TreeNode node = element.Child().Next(); node; node = node.Next())
        expect(node, "DEDDEDEE", "text, comment or instruction");
    chooseRow(5);
    EXPECT_EQ(letters(), "EDDDEEEE") << "an attribute stands for its element, here the root element";
    chooseRow(1);
    w->ListView1.SetSelectedItem(2);
    w->ListView1.KeyUp(Qt::Key_Down, 0); // the keys went to another row
    EXPECT_EQ(Letter(t, "mnuEditName"), 'D') << "text";

    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    w = &t.window();
    const controls::TreeNode declaration = w->tvXML.Nodes(1).Child();
    t.ClickNode(w->tvXML.Nodes(1));
    EXPECT_EQ(letters(), "EDDDEEDD") << "a root element can be made";
    EXPECT_EQ(Letter(t, "mnuNewCNodeP"), 'E');
    expect(declaration, "DDDDEDEE", "instruction in a document without root element");
    expect(declaration.Next(), "DEDDEDEE", "comment in a document without root element");
}

// What a command changed is seen in the menus at once.
TEST(MenuMatrix, FollowsEachCommand) {
    TestApp t;
    SelectNode(t);
    DocumentWindow& w = t.window();
    w.ListView1.SetSelectedItem(2);
    w.ListView1.GotFocus();
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Letter(t, "mnuEditCut"), 'E') << "the row's neighbour is selected";
    EXPECT_EQ(Letter(t, "mnuEditUndo"), 'E');
    EXPECT_EQ(Letter(t, "mnuRedo"), 'D');
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(Letter(t, "mnuEditUndo"), 'D');
    EXPECT_EQ(Letter(t, "mnuRedo"), 'E');

    w.tvXML.GotFocus();
    w.tvXML.SetSelectedItem(w.tvXML.Nodes(1));
    w.tvXML.KeyUp(Qt::Key_Up, 0);
    EXPECT_EQ(Letter(t, "mnuEditCut"), 'D') << "the arrow keys went to the tree root";
    w.txtXPath.UserTyped(QStringLiteral("/*/*"));
    w.txtXPath.KeyUp(Qt::Key_Return, 0);
    EXPECT_EQ(Letter(t, "mnuEditCut"), 'E') << "a path led to a node";
}

// The view in use says which commands there are, also where no click or key has told of it again.
TEST(MenuMatrix, IsThatOfTheViewInUseInAWindowThatStaysOrComesBack) {
    TestApp t;
    const auto letter = [&t](const char* entry) { return Letter(t, entry); };
    DocumentWindow& text = t.OpenText(QStringLiteral("a.xml"), kShop);
    t.EditText(QStringLiteral("<shop/>"));
    t.prompts.Answer(services::Answer::Cancel);
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(letter("mnuFindReplace"), 'E') << "kept at closing";
    EXPECT_EQ(letter("mnuNewComment"), 'D') << "kept at closing";

    DocumentWindow& tree = t.OpenText(QStringLiteral("b.xml"), kShop);
    t.ClickNode(Pen(tree));
    t.frame().ActivateForm(&text);
    EXPECT_EQ(letter("mnuFindReplace"), 'E') << "text view";
    EXPECT_EQ(letter("mnuNewComment"), 'D') << "text view";
    t.frame().ActivateForm(&tree);
    EXPECT_EQ(letter("mnuFindReplace"), 'D') << "tree";
    EXPECT_EQ(letter("mnuEditCut"), 'E') << "its node is still current";
    tree.tbsXML.Select(QStringLiteral("browserview"));
    t.frame().ActivateForm(&text);
    t.frame().ActivateForm(&tree);
    EXPECT_EQ(letter("mnuEditName"), 'D') << "browser view";

    DocumentWindow& schema =
        t.OpenText(QStringLiteral("c.xsd"), "<schema xmlns='http://www.w3.org/2001/XMLSchema'/>");
    t.prompts.Answer(services::Answer::Ok); // it has no root element
    schema.tbsXML.Select(QStringLiteral("compactview"));
    EXPECT_EQ(letter("mnuEditName"), 'D') << "compact view";
    t.frame().ActivateForm(&tree);
    t.frame().ActivateForm(&schema);
    EXPECT_EQ(letter("mnuEditName"), 'D') << "compact view";
}

TEST(MenuMatrix, AShownTextCanBeCheckedFromTheTreeBesideIt) {
    TestApp t;
    DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), kShop);
    EXPECT_EQ(Letter(t, "mnuXMLValidate"), 'D');
    w.tbsXML.Select(QStringLiteral("textview"));
    t.ClickNode(Pen(w));
    EXPECT_EQ(Letter(t, "mnuXMLValidate"), 'E');
    EXPECT_EQ(Letter(t, "mnuNewAttrP"), 'E') << "the tree is in use";
    t.prompts.Answer(services::Answer::Ok);
    t.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("validate"));
    EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("It is valid XML!"));
}

} // namespace
