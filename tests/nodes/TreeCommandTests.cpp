// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the nodes of the tree, chosen from the menu or by keys as a user does.
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include "textview/TreeText.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using services::Answer;
using test::TestApp;

constexpr char kBook[] = "<?xml version=\"1.0\"?>\n<book lang=\"de\"><title>Tee</title><chapter/><chapter "
                         "n=\"2\">x<b/></chapter></book>";

/// The nodes below a node, as "name(children)"; texts in quotes.
QString Shape(TreeNode node) {
    QStringList children;
    for (TreeNode child = node.Child(); child; child = child.Next()) {
        const int kind = m_tvXML::GetKeyType(child);
        QString one = kind == 3   ? u'\'' + child.Tag() + u'\''
                      : kind == 8 ? QStringLiteral("--") + child.Tag()
                                  : child.Text();
        if (child.Child())
            one += u'(' + Shape(child) + u')';
        children << one;
    }
    return children.join(u' ');
}

struct TreeCommand : testing::Test {
    TestApp t;
    DocumentWindow* w = nullptr;

    void Open(const char* text = kBook) { w = &t.OpenText(QStringLiteral("book.xml"), text); }
    TreeNode Root() { return w->tvXML.Nodes(1); }
    TreeNode Element() { return m_tvXML::FirstElement(Root().Child()); }
    std::string Nodes() { return Shape(Root()).toStdString(); }
    std::string Text() { return w->rtxtXML.Text().toStdString(); }
    void Key(int key, int modifiers = 0) {
        w->tvXML.KeyDown(key, modifiers);
        w->tvXML.KeyUp(key, modifiers);
    }
    /// Types a label into the open editor and ends it with Enter.
    void Name(const char* name) {
        ASSERT_TRUE(w->tvXML.LabelEditNode());
        w->tvXML.EndLabelEdit(QString::fromUtf8(name));
        Key(Qt::Key_Return);
    }
};

TEST_F(TreeCommand, ANewElementStandsBehindTheCurrentOneAndIsNamedAtOnce) {
    Open();
    t.ClickNode(Element().Child().Next());
    t.ChooseMenu(QStringLiteral("mnuNewNode"));
    EXPECT_EQ(Text().find("<>"), std::string::npos) << "a node without a name doesn't reach the text";
    Name("note");
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter note chapter('x' b))");
    EXPECT_EQ(w->tvXML.SelectedItem().Image(), QStringLiteral("element"));
    EXPECT_EQ(w->tvXML.SelectedItem().SelectedImage(), QStringLiteral("openelement"));
    EXPECT_NE(Text().find("<note></note>"), std::string::npos);
    EXPECT_EQ(w->txtXPath.Text(), QStringLiteral("/book[1]/note[1]"));
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 1);
}

TEST_F(TreeCommand, AnElementAtTheTopIsTheFirstAndOnlyOne) {
    Open();
    t.ClickNode(Root());
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNewNode")).Usable());
    t.prompts.Answer({Answer::Cancel, Answer::Ok});
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeP"));
    ASSERT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(t.prompts.boxes[0].text,
              QStringLiteral("You already have one root node! Do you want to create a child node?"));
    EXPECT_EQ(t.prompts.boxes[0].buttons, services::Buttons::OkCancel);
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter chapter('x' b))");
    // The document's first node was selected meanwhile: with OK it gets the child.
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeP"));
    Name("odd");
    EXPECT_EQ(Nodes(), "xml(odd) book(title('Tee') chapter chapter('x' b))");
}

TEST_F(TreeCommand, AnEmptyDocumentGetsItsRootElement) {
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    w = &t.window();
    t.ClickNode(Root());
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    Name("orders");
    EXPECT_EQ(Element().Text(), QStringLiteral("orders"));
    t.prompts.Answer(Answer::Ok);
    t.ClickNode(Root());
    t.frame().RunMenuCommand(QStringLiteral("mnuNewCNodeP"));
    EXPECT_EQ(t.prompts.Texts(), QStringList{QStringLiteral("You already have one root node!")});
}

TEST_F(TreeCommand, ANewChildComesLast) {
    Open();
    t.prompts.AllowAnyBox();
    t.ClickNode(Element());
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    Name("");
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter chapter('x' b) Unnamed)");
    EXPECT_TRUE(t.prompts.boxes.empty()) << "an empty name is replaced without a word";
    w->tvXML.SetSelectedItem(Element());
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    const std::string before = Text();
    const int steps = textview::StateOf(*w).UndoPos;
    w->tvXML.CancelLabelEdit();
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter chapter('x' b) Unnamed)") << "Esc takes it back";
    EXPECT_EQ(w->tvXML.SelectedItem(), Element());
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(textview::StateOf(*w).UndoPos, steps);
}

TEST_F(TreeCommand, TextsGoIntoElementsOnly) {
    Open();
    const std::string before = Nodes();
    t.ClickNode(Root().Child()); // the declaration
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeTextP"));
    EXPECT_EQ(Nodes(), before);
    t.ClickNode(Element()); // at the top a text goes into the root element
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeTextP"));
    EXPECT_EQ(Element().LastChild().Key().left(3), QStringLiteral("<3>"));
    ASSERT_TRUE(w->txtListView.Visible());
    w->txtListView.LostFocus();
    t.ClickNode(Element().Child()); // into an element that is selected
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeTextP"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee' '') chapter chapter('x' b) '')");
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    EXPECT_TRUE(edit::IsAddingNewNode(*w)) << "a text without content waits for it";
    w->txtListView.UserTyped(QStringLiteral("!"));
    w->txtListView.LostFocus();
    t.ClickNode(Element().Child().Child()); // behind a text, and its parent is selected
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeTextP"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee' '' '!') chapter chapter('x' b) '')");
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    int escape = Qt::Key_Escape;
    w->txtListView.KeyDown(escape, 0);
    EXPECT_EQ(Nodes(), "xml book(title('Tee' '!') chapter chapter('x' b) '')") << "given up";
    EXPECT_EQ(w->tvXML.SelectedItem().Tag(), QStringLiteral("Tee"));
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(TreeCommand, ACommentMayStandBesideTheRootElement) {
    Open();
    t.ClickNode(Root());
    t.ChooseMenu(QStringLiteral("mnuNewComment"));
    EXPECT_EQ(Nodes(), "xml -- book(title('Tee') chapter chapter('x' b))");
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("#comment"));
    w->txtListView.LostFocus();
    EXPECT_NE(Text().find("<!-- -->"), std::string::npos) << "colouring puts a blank behind the opener";
}

TEST_F(TreeCommand, AWrongNameBecomesUnnamed) {
    Open();
    t.prompts.AllowAnyBox();
    t.ClickNode(Element());
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    Name("1a");
    EXPECT_EQ(Element().Text(), QStringLiteral("Unnamed"));
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("XML node name fomula"));
    EXPECT_NE(Text().find("</Unnamed>"), std::string::npos);
    EXPECT_TRUE(w->tvXML.LabelKept()) << "what was typed stays in its editor";
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty()) << "with the reason";
    t.frame().RunMenuCommand(QStringLiteral("mnuNewCNodeP"));
    EXPECT_EQ(Element().Children(), 3) << "and holds up what would go past it";
    // Names that break markup, or are only odd, never reach the document.
    for (const QString& hostile :
         {QStringLiteral("a\r\nb"), QString(1'000'000, u'<'), QString(QChar(0xD800)), QString(QChar(u'\0')),
          QString::fromUtf8("\xE2\x80\x8F"
                            "a"),
          QStringLiteral("a><b")}) {
        w->tvXML.StartLabelEdit();
        w->tvXML.EndLabelEdit(QStringLiteral("good"));
        ASSERT_EQ(Element().Text(), QStringLiteral("good"));
        t.prompts.boxes.clear();
        w->tvXML.StartLabelEdit();
        w->tvXML.EndLabelEdit(hostile);
        EXPECT_EQ(Element().Text(), QStringLiteral("Unnamed"));
        EXPECT_EQ(t.prompts.boxes.size(), 1U);
    }
    // Two spellings of one letter are two names, and both are kept as typed.
    for (const char* name : {"caf\xC3\xA9", "cafe\xCC\x81"}) {
        w->tvXML.StartLabelEdit();
        w->tvXML.EndLabelEdit(QString::fromUtf8(name));
        EXPECT_EQ(Element().Text().toStdString(), name);
        EXPECT_NE(Text().find(name), std::string::npos);
    }
}

TEST_F(TreeCommand, LabelsOfTextsAndInstructionsCannotBeEdited) {
    Open();
    for (const TreeNode node : {Root().Child(), Element().Child().Child()}) {
        w->tvXML.SetSelectedItem(node);
        w->miPopupContext = kContextTree;
        t.frame().RunMenuCommand(QStringLiteral("mnuEditP"));
        EXPECT_FALSE(w->tvXML.LabelEditNode());
    }
}

// The next one, else the one before, else the parent: never one that the user wasn't at.
TEST_F(TreeCommand, DeletingAndCuttingSelectTheNeighbour) {
    for (const bool cut : {false, true}) {
        Open("<book><title>Tee</title><!--a--><chapter/><chapter n=\"2\">x<b/></chapter></book>");
        const auto go = [&] { cut ? Key(Qt::Key_X, Qt::ControlModifier) : Key(Qt::Key_Delete); };
        t.ClickNode(Element().Child().Next());
        go();
        EXPECT_EQ(Nodes(), "book(title('Tee') chapter chapter('x' b))");
        EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child().Next());
        EXPECT_EQ(textview::StateOf(*w).UndoPos, 1);
        go();
        EXPECT_EQ(w->tvXML.SelectedItem(), Element().LastChild());
        go();
        EXPECT_EQ(Nodes(), "book(title('Tee'))");
        EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
        EXPECT_EQ(Text(), "<book>\r\n\t<title>Tee</title>\r\n</book>");
        go();
        EXPECT_EQ(w->tvXML.SelectedItem(), Element());
        if (!cut) {
            t.ClickNode(Root());
            go();
            EXPECT_EQ(Nodes(), "book") << "the tree root stays";
        }
        t.prompts.Answer(Answer::No);
        t.frame().CloseForm(w);
    }
}

TEST_F(TreeCommand, EverythingCanBeDeletedAndAddedAnew) {
    Open();
    while (Root().Child()) {
        t.ClickNode(Root().LastChild());
        Key(Qt::Key_Delete);
    }
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(w->tvXML.SelectedItem(), Root());
    for (const char* entry : {"mnuNewNodeTextP", "mnuMoveUP", "mnuMoveDown", "mnuDeleteP"})
        t.frame().RunMenuCommand(QLatin1String(entry));
    EXPECT_EQ(Nodes(), "");
    t.frame().RunMenuCommand(QStringLiteral("mnuNewNodeP"));
    Name("again");
    EXPECT_EQ(Text(), "<again></again>");
}

// The tree as the delete command sees it isn't added to.
TEST_F(TreeCommand, CommandsWithoutASelectionOrForDeletingAloneAddNothing) {
    Open();
    w->tvXML.SetSelectedItem({});
    const std::string before = Nodes();
    const std::vector<const char*> adding{"mnuNewNodeP", "mnuNewCNodeP", "mnuNewNodeTextP", "mnuNewCommentP",
                                          "mnuNewAttrP", "mnuDeleteP",   "mnuEditP",        "mnuMoveUP"};
    for (const char* entry : adding) {
        w->miPopupContext = kContextTree;
        t.frame().RunMenuCommand(QLatin1String(entry));
    }
    EXPECT_EQ(Nodes(), before);
    EXPECT_TRUE(t.prompts.boxes.empty());
    t.ClickNode(Element().LastChild());
    for (std::size_t i = 0; i < 6; ++i) {
        w->miPopupContext = kContextTreeNode;
        t.frame().RunMenuCommand(QLatin1String(adding[i]));
    }
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter)");
}

TEST_F(TreeCommand, AMoveIsACopyWithNewKeysAndTwoStepsOfTheText) {
    Open();
    TreeNode chapter = Element().LastChild();
    const QString key = chapter.Key();
    chapter.SetExpanded(true);
    t.ClickNode(chapter);
    t.ChooseMenu(QStringLiteral("mnuMoveUP"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter('x' b) chapter)");
    const TreeNode moved = w->tvXML.SelectedItem();
    EXPECT_EQ(moved, Element().Child().Next());
    EXPECT_NE(moved.Key(), key);
    EXPECT_EQ(moved.Tag(), QStringLiteral("n=\"2\""));
    EXPECT_TRUE(moved.Expanded());
    EXPECT_EQ(moved.LastChild().SelectedImage(), QStringLiteral("openelement"));
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 2);
    EXPECT_EQ(w->miPopupContext, kContextTree);

    t.ClickNode(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuMoveUP"));
    t.ClickNode(Element().LastChild());
    t.ChooseMenu(QStringLiteral("mnuMoveDown"));
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 2) << "at the ends nothing moves";
    t.ClickNode(Element()); // nothing passes the declaration, nor does it leave its place
    t.ChooseMenu(QStringLiteral("mnuMoveUP"));
    t.ClickNode(Root().Child());
    t.ChooseMenu(QStringLiteral("mnuMoveDown"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter('x' b) chapter)");
}

// A moved node is a new one: its name is finished before, also where the button leaves the editor open.
TEST_F(TreeCommand, ANameThatIsBeingTypedGoesAlongWithAMove) {
    Open();
    w->tvXML.labelEditFinish.connect([this] { w->tvXML.EndLabelEdit(QStringLiteral("typed")); });
    t.ClickNode(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuNewNode"));
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("movedown"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter typed chapter('x' b))");
    w->tvXML.StartLabelEdit();
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("movedownlevel"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter(typed) chapter('x' b))");
    EXPECT_NE(Text().find("<typed></typed>"), std::string::npos);
}

TEST_F(TreeCommand, ANodeChangesItsLevel) {
    Open();
    t.ClickNode(Element().LastChild());
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("movedownlevel"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter(chapter('x' b)))");
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("moveuplevel"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter chapter('x' b))");
    t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("moveuplevel"));
    EXPECT_EQ(Nodes(), "xml book(title('Tee') chapter chapter('x' b))") << "no second root element";
}

// The views that show follow each command.
TEST_F(TreeCommand, ListTextAndBrowserFollow) {
    Open();
    t.ClickNode(Element());
    ASSERT_EQ(w->ListView1.Count(), 4);
    t.ClickNode(Element().LastChild());
    Key(Qt::Key_Delete);
    t.ClickNode(Element());
    EXPECT_EQ(w->ListView1.Count(), 3);

    w->tbsXML.Select(QStringLiteral("browserview"));
    int shown = 0;
    w->IE.navigated.connect([&shown] { ++shown; });
    t.ClickNode(Element().LastChild());
    const int before = shown;
    Key(Qt::Key_Delete);
    EXPECT_GT(shown, before);

    w->tbsXML.Select(QStringLiteral("textview"));
    t.ClickNode(Element());
    w->tvXML.StartLabelEdit();
    w->tvXML.EndLabelEdit(QStringLiteral("novel"));
    EXPECT_NE(w->rtxtXML.Text().indexOf(QStringLiteral("<novel lang=\"de\">")), -1);
    EXPECT_EQ(w->rtxtXML.Text(), w->rtxtXML2.Text());
}

TEST_F(TreeCommand, TheRootStaysOpen) {
    Open();
    Root().SetExpanded(false);
    w->tvXML.Collapse(Root());
    EXPECT_TRUE(Root().Expanded());
}

} // namespace
