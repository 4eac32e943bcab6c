// SPDX-License-Identifier: GPL-3.0-or-later
// The menu entries that follow the situation of the active window.
#include "core/sync/Views.h"
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

void ShowTableView(TestApp& t) {
    t.OpenText(QStringLiteral("shop.xml"), kShop).tbsXML.Select(QStringLiteral("tableview"));
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
    {"table selected",
     [](TestApp& t) {
         ShowTableView(t);
         t.frame().SetMenuSituation(MenuSituation::TableSelected);
     }},
    {"table none", ShowTableView},
};

struct Row {
    const char* entry;
    const char* states; ///< a letter for each situation: E enabled, D disabled
};
// In a document that has its root element, with nothing copied.
constexpr Row kRows[] = {
    {"mnuEditCut", "DDEEDEDED"},     {"mnuEditCopy", "DDEEDEDED"},    {"mnuEditPaste", "DDDDDDDDD"},
    {"mnuDelete", "DDEEEEEED"},      {"mnuEditName", "DEEEDDDEE"},    {"mnuEditValue", "DDEEEDDEE"},
    {"mnuNewCNode", "DDEEEDDDD"},    {"mnuNewNode", "DDEEEDDDD"},     {"mnuNewAttr", "DDEEEDDDD"},
    {"mnuNewNodeText", "DDEEEDDDD"}, {"mnuNewComment", "DEEEEDDDD"},  {"mnuFindReplace", "DDDDDEEDD"},
    {"mnuSplitEditor", "DDDDDEEDD"}, {"mnuWinSplit", "DDDDDEEDD"},    {"mnuCopyAsHTML", "DDDDDDDEE"},
    {"mnuNewCNodeP", "DDEEEDDDD"},   {"mnuNewCommentP", "DEEEEDDDD"}, {"mnuEditP", "DEEEDDDEE"},
};

TEST(MenuMatrix, EachSituationEnablesItsEntries) {
    for (std::size_t column = 0; column < std::size(kSituations); ++column) {
        TestApp t;
        kSituations[column].enter(t);
        for (const Row& row : kRows)
            EXPECT_EQ(t.frame().Menu(QLatin1String(row.entry)).Enabled() ? 'E' : 'D', row.states[column])
                << row.entry << " in the situation: " << kSituations[column].name;
    }
}

TEST(MenuMatrix, ASituationShowsContextEntriesThatWereHidden) {
    TestApp t;
    SelectNode(t);
    controls::MenuItem& entry = t.frame().Menu(QStringLiteral("mnuNewAttrP"));
    entry.SetVisible(false);
    t.ClickNode(Pen(t.window()));
    EXPECT_TRUE(entry.Visible());
}

// The view in use says which commands there are, also where no click or key has told of it again.
TEST(MenuMatrix, IsThatOfTheViewInUseInAWindowThatStaysOrComesBack) {
    TestApp t;
    const auto letter = [&t](const char* entry) {
        return t.frame().Menu(QLatin1String(entry)).Enabled() ? 'E' : 'D';
    };
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
    t.frame().ActivateForm(&tree); // which selects its root
    EXPECT_EQ(letter("mnuFindReplace"), 'D') << "tree";
    EXPECT_EQ(letter("mnuEditCut"), 'D') << "tree";
    tree.tbsXML.Select(QStringLiteral("browserview"));
    t.frame().ActivateForm(&text);
    t.frame().ActivateForm(&tree);
    EXPECT_EQ(letter("mnuEditName"), 'D') << "browser view";
}

} // namespace
