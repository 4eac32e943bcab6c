// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "nodes/MoveNodes.h"
#include "tests/nodes/ListDesk.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include <gtest/gtest.h>
#include <new>

using controls::TreeNode;
using test::TestApp;

namespace {

const QByteArray kNotes = "<notes><note day=\"1\">one</note><note day=\"2\">two</note></notes>";

struct Standing3 {
    QString tree, text;
    std::size_t steps;
    bool operator==(const Standing3&) const = default;
};

Standing3 StandingOf(DocumentWindow& window) {
    QStringList nodes;
    const controls::TreeCursor top(window.tvXML.Nodes(1));
    for (controls::TreeCursor node = top; node; node = node.nextBelow(top))
        nodes << node.node().Key() + u'|' + node.node().Text() + u'|' + node.node().Tag();
    return {nodes.join(u'\n'), window.rtxtXML.Text(), textview::StateOf(window).undoStack.size()};
}

// What was done since a moment.
Work Since(const Work& before, const Work& now) {
    return {.parses = now.parses - before.parses,
            .probes = now.probes - before.probes,
            .texts = now.texts - before.texts,
            .listFills = now.listFills - before.listFills,
            .tableFills = now.tableFills - before.tableFills,
            .paths = now.paths - before.paths,
            .menuStates = now.menuStates - before.menuStates,
            .toolbars = now.toolbars - before.toolbars};
}

} // namespace

// A large document would wait for each of them.
TEST(Edit, NoDearStepRunsTwice) {
    TestApp app;
    Work before = app.app().work;
    DocumentWindow& window = app.OpenText(QStringLiteral("notes.xml"), kNotes);
    app.ClickNode(window.tvXML.Nodes(1));
    Work done = Since(before, app.app().work);
    EXPECT_EQ(done, (Work{.parses = 1, .listFills = 1, .paths = 1, .menuStates = 1, .toolbars = 1}));

    window.tbsXML.Select(QStringLiteral("textview"));
    window.tbsXML.Select(QStringLiteral("listview"));
    app.ClickNode(window.tvXML.Nodes(1).Child());
    window.ListView1.GotFocus();
    window.ListView1.SetSelectedItem(1);
    window.ListView1.CellClick(1, 2);
    window.txtListView.GotFocus();
    before = app.app().work;
    window.txtListView.SetText(QStringLiteral("day=\"7\""));
    window.txtListView.LostFocus();
    done = Since(before, app.app().work);
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Tag(), QStringLiteral("day=\"7\""));
    EXPECT_EQ(done.probes, 1);
    EXPECT_EQ(done.parses, 1);
    EXPECT_EQ(done.texts, 1);
    EXPECT_LE(done.listFills, 1);
    EXPECT_LE(done.menuStates, 1);
    EXPECT_LE(done.toolbars, 1);

    window.ListView1.GotFocus();
    before = app.app().work;
    app.ChooseMenu(QStringLiteral("mnuNewCNode"));
    done = Since(before, app.app().work);
    EXPECT_EQ(done.listFills, 1);
    EXPECT_LE(done.menuStates, 1);
}

// Whatever a command did before it failed would stand half done in the document.
TEST(Edit, ACommandThatFailsInItsMiddleLeavesTreeTextAndHistory) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("notes.xml"), kNotes);
    TreeNode notes = window.tvXML.Nodes(1).Child();
    app.ClickNode(notes);
    const Standing3 before = StandingOf(window);
    edit::Run(window, "Test", [&] {
        notes.Child().SetTag(QStringLiteral("day=\"9\""));
        window.tvXML.Nodes.Remove(notes.LastChild());
        window.tvXML.Nodes(QStringLiteral("no such key"));
    });
    EXPECT_EQ(StandingOf(window), before);
    EXPECT_FALSE(window.bond.bTreeChanged());

    // A step inside that fails takes the command along, which would stand half done else.
    edit::Run(window, "Test", [&] {
        notes.Child().SetTag(QStringLiteral("day=\"9\""));
        edit::Run(window, "Inner", [&] {
            window.tvXML.Nodes.Remove(notes.LastChild());
            throw text::Fault(text::kFaultBadCall, QStringLiteral("inner"));
        });
    });
    EXPECT_EQ(StandingOf(window), before);
    edit::Run(window, "Test", [&] { window.tvXML.Nodes.Remove(notes.LastChild()); });
    EXPECT_EQ(textview::StateOf(window).undoStack.size(), before.steps + 1)
        << "the next one isn't held by it";
}

// The text can't be written: the tree doesn't go ahead of it.
TEST(Edit, WhereTheTextCanNotFollowTheNodesAreAsTheyWere) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("notes.xml"), kNotes);
    TreeNode notes = window.tvXML.Nodes(1).Child();
    app.ClickNode(notes);
    const Standing3 before = StandingOf(window);
    bool full = true;
    window.rtxtXML.Change.connect([&] {
        if (full)
            throw std::bad_alloc();
    });
    EXPECT_THROW(edit::Run(window, "Test", [&] { window.tvXML.Nodes.Remove(notes.Child()); }),
                 std::bad_alloc);
    full = false;
    EXPECT_EQ(StandingOf(window).tree, before.tree);
    EXPECT_EQ(StandingOf(window).steps, before.steps);
    edit::Run(window, "Test", [&] { window.tvXML.Nodes.Remove(notes.Child()); });
    EXPECT_FALSE(window.rtxtXML.Text().contains(QStringLiteral("one")));
}

// A move is two steps. Where the second one fails the copy of the first doesn't stay, nor its text and step.
TEST(Edit, ASeriesWhoseSecondEditFailsLeavesNothing) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("notes.xml"), kNotes);
    app.ClickNode(window.tvXML.Nodes(1).Child().Child().Next());
    const Standing3 before = StandingOf(window);
    int changes = 0;
    bool outOfMemory = false, over = false;
    window.rtxtXML.Change.connect([&] {
        if (over || ++changes != 2)
            return;
        if (outOfMemory)
            throw std::bad_alloc();
        throw text::Fault(text::kFaultBadCall, QStringLiteral("second"));
    });
    app.ChooseMenu(QStringLiteral("mnuMoveUP"));
    EXPECT_GE(changes, 2);
    EXPECT_EQ(StandingOf(window), before);
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());

    changes = 0;
    outOfMemory = true;
    EXPECT_THROW(nodes::MoveUpDownOneNodeAtTree(window, true), std::bad_alloc);
    EXPECT_EQ(StandingOf(window), before);

    over = true;
    app.ChooseMenu(QStringLiteral("mnuMoveUP"));
    const Standing3 moved = StandingOf(window);
    EXPECT_NE(moved.text, before.text);
    EXPECT_EQ(moved.steps, before.steps + 2);
    app.ChooseMenu(QStringLiteral("mnuEditUndo"));
    app.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(window.rtxtXML.Text(), before.text);
}

// Text and history have the change already: the tree keeps it, too.
TEST(Edit, AViewThatFailsLeavesTreeAndTextTogether) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("notes.xml"), kNotes);
    TreeNode note = window.tvXML.Nodes(1).Child().Child();
    edit::Run(window, "Test", [&] {
        note.SetTag(QStringLiteral("day=\"9\""));
        edit::Then(window, [] { throw text::Fault(text::kFaultBadCall, QStringLiteral("view")); });
    });
    EXPECT_TRUE(window.rtxtXML.Text().contains(QStringLiteral("day=\"9\"")));
    EXPECT_EQ(note.Tag(), QStringLiteral("day=\"9\""));
    app.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Tag(), QStringLiteral("day=\"1\""));
}
