// SPDX-License-Identifier: GPL-3.0-or-later
// Ten thousand commands in no order over two documents: tree, list, text, clipboard, history and the
// one-by-one editor. After each of them the views tell the same document, and the menus what can be done; a
// text that doesn't parse got there by a rule that lets it through, and only so.
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "nodes/ListState.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "platform/text/LineEnds.h"
#include "tests/support/DocumentChecks.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include "textview/TreeText.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::TreeNode;
using test::TestApp;

constexpr int kCommands = 10'000;
constexpr int kLargest = 60; // nodes; beyond that the walk deletes

const QStringList kNames{"note", "para", "x:y",  "Tee",   "1a", "",     "caf\u00e9",
                         "note", "list", "item", "i",     "j",  "para", "part",
                         "page", "line", "word", "title", "b",  "a b:c"};
const QStringList kValues{"",      "1",     "two words", "a'b", "say \"x\"",     "a & b", "&amp;",
                          "x > y", "<b/>t", "</b>",      "--",  "</note><note>", "?>",    "a=\"1\""};
const QStringList kAttributes{"", "a=\"1\" b=\"2\"", "a='x' b = \"y\"", "a", "a=\"1\" a=\"2\"", "x:k=\"v\""};
const QStringList kDocuments{
    "<?xml version=\"1.0\"?>\r\n<book lang=\"de\"><title>Tee</title><note/><note "
    "n=\"2\">x<b/>y</note></book>",
    "<list><!-- two --><item>1</item><item>2</item></list><!-- end -->",
    "<note a=\"1\" b='say \"x\"'>a &amp; b<![CDATA[c < d]]></note>",
    "<open><item></open>",
    "",
};
const QStringList kTyped{"x", "<i/>", " ", "&", "<!-- typed -->", "</", "\r\n"};
const QStringList kClipboard{"plain", "<i/><j k=\"1\">u</j>", "n=\"7\"", "<!--c--><k/>", "<bad", ""};

class RandomWalk : public testing::Test {
protected:
    using Command = void (RandomWalk::*)();
    struct Choice {
        const char* name;
        Command run;
        int weight;
    };

    TestApp t;
    DocumentWindow* w = nullptr;
    nodes::frmEditNodes* dialog = nullptr;
    std::mt19937 random{20260917};
    QStringList past;
    QHash<QString, int> met; ///< how often a rule let something through

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    const QString& AnyOf(const QStringList& list) { return list[Below(static_cast<int>(list.size()))]; }
    controls::ListView& List() { return w->ListView1; }
    bool ShowsList() { return w->tbsXML.SelectedKey() == QStringLiteral("listview"); }
    void Menu(const char* entry) { t.frame().RunMenuCommand(QLatin1String(entry)); }

    // --- what a user does in the tree ------------------------------------------------------------------
    void Click() { t.ClickNode(w->tvXML.Nodes(1 + Below(w->tvXML.Nodes.Count()))); }
    // A name that is refused stays in its editor until it is given up.
    template <typename Control> void EndLabelOf(Control& control) {
        if (Below(8) > 0)
            control.EndLabelEdit(AnyOf(kNames));
        if (IsEditing(control))
            control.CancelLabelEdit();
    }
    static bool IsEditing(const controls::TreeView& tree) { return static_cast<bool>(tree.LabelEditNode()); }
    static bool IsEditing(const controls::ListView& list) { return list.LabelEditRow() > 0; }
    void EndLabel() {
        if (IsEditing(w->tvXML))
            EndLabelOf(w->tvXML);
        if (IsEditing(List()))
            EndLabelOf(List());
    }
    void InTree(const char* entry) {
        Click();
        Menu(entry);
        EndLabel();
        TypeCell();
    }
    void TreeNew() { InTree("mnuNewNodeP"); }
    void TreeNewChild() { InTree("mnuNewCNodeP"); }
    void TreeNewComment() { InTree("mnuNewCommentP"); }
    void TreeNewText() { InTree("mnuNewNodeTextP"); }
    void TreeNewAttribute() { InTree("mnuNewAttrP"); }
    void TreeRename() {
        Click();
        if (!m_tvXML::IsTreeRoot(w->tvXML.SelectedItem())) // that is the file's name
            Menu("mnuEditP");
        EndLabel();
    }
    void TreeDelete() { InTree("mnuDeleteP"); }
    void TreeUp() { InTree("mnuMoveUP"); }
    void TreeDown() { InTree("mnuMoveDown"); }
    void TreeCopy() { InTree("mnuCopyP"); }
    void TreeCut() { InTree("mnuCutP"); }
    void TreePaste() { InTree("mnuPasteP"); }
    void Button(const char* key) {
        Click();
        controls::ToolButton& button = t.frame().ToolbarByName("tbListEdit").Button(QLatin1String(key));
        if (button.Usable())
            button.Click();
    }
    void LevelUp() { Button("moveuplevel"); }
    void LevelDown() { Button("movedownlevel"); }
    void ForeignCopy() {
        t.clipboard.SetText(AnyOf(kClipboard));
        t.frame().RefreshMenu(); // the desktop tells of it
    }

    // --- in the list ---------------------------------------------------------------------------------------
    bool GoToList() {
        if (!ShowsList())
            w->tbsXML.Select(QStringLiteral("listview"));
        List().GotFocus();
        if (List().Count() == 0)
            return false;
        List().MouseDown();
        List().ClearSelected();
        List().SetSelectedItem(1 + Below(List().Count()));
        if (Below(3) == 0)
            List().SetSelected(1 + Below(List().Count()), true);
        List().Click();
        return true;
    }
    void InList(const char* entry) {
        GoToList();
        Menu(entry);
        EndLabel();
        TypeCell();
    }
    void TypeCell() {
        if (!nodes::ListOf(*w).mbIsEditValue)
            return;
        w->txtListView.GotFocus();
        const bool attributes =
            List().Item(nodes::ListOf(*w).msListEditKey).SmallIcon == 1 && w->txtListView.Tag == "1";
        w->txtListView.UserTyped(AnyOf(attributes ? kAttributes : kValues));
        int escape = Qt::Key_Escape;
        if (Below(8) > 0)
            w->txtListView.LostFocus();
        if (nodes::ListOf(*w).mbIsEditValue)
            w->txtListView.KeyDown(escape, 0);
    }
    void ListNew() { InList("mnuNewNodeP"); }
    void ListNewChild() { InList("mnuNewCNodeP"); }
    void ListNewText() { InList("mnuNewNodeTextP"); }
    void ListNewComment() { InList("mnuNewCommentP"); }
    void ListNewAttribute() { InList("mnuNewAttrP"); }
    void ListRename() { InList("mnuEditP"); }
    void ListDelete() { InList("mnuDeleteP"); }
    void ListUp() { InList("mnuMoveUP"); }
    void ListDown() { InList("mnuMoveDown"); }
    void ListCopy() { InList("mnuCopyP"); }
    void ListCut() { InList("mnuCutP"); }
    void ListPaste() { InList("mnuPasteP"); }
    void ListWalkDown() {
        if (GoToList()) {
            List().DblClick(); // an attribute's value opens
            TypeCell();
            List().Click();
        }
    }
    void CellEdit() {
        if (!GoToList())
            return;
        List().CellClick(List().SelectedItem(), 2 + Below(2));
        TypeCell();
    }

    // --- in the text, and elsewhere --------------------------------------------------------------------
    void TypeText() { t.EditText(AnyOf(kDocuments)); }
    /// Goes to a place in the text with up to five characters selected.
    void GoToText() {
        w->tbsXML.Select(QStringLiteral("textview"));
        w->rtxtXML.GotFocus();
        ExpectTextIsTree(); // what is typed now is read back into the tree
        const int size = static_cast<int>(w->rtxtXML.Text().size());
        const int start = Below(size + 1);
        w->rtxtXML.UserSelected(start, std::min(size - start, Below(6)));
    }
    void TypeIntoText() {
        GoToText();
        w->rtxtXML.Type(AnyOf(kTyped));
        w->rtxtXML.LostFocus();
    }
    void InText(const char* entry) {
        GoToText();
        Menu(entry);
        w->rtxtXML.LostFocus();
    }
    void TextCut() { InText("mnuEditCut"); }
    void TextCopy() { InText("mnuEditCopy"); }
    void TextPaste() { InText("mnuEditPaste"); }
    void TextDelete() { InText("mnuDelete"); }
    void Undo() { Menu("mnuEditUndo"); }
    void Redo() { Menu("mnuRedo"); }
    void UndoAndRedo() {
        for (int waiting = 0; waiting < 2; ++waiting) { // a change that waited becomes a step first
            const QString before = w->rtxtXML.Text();
            const int place = textview::StateOf(*w).UndoPos;
            if (place == 0)
                return;
            Undo();
            Redo();
            if (waiting == 1) {
                EXPECT_EQ(w->rtxtXML.Text(), before);
                EXPECT_EQ(textview::StateOf(*w).UndoPos, place);
            }
        }
    }
    void SwitchTab() {
        static const QStringList tabs{"listview", "textview", "browserview", "listview"};
        w->tbsXML.Select(AnyOf(tabs));
    }
    void OtherWindow() {
        t.frame().NextWindow();
        w = &t.window();
    }
    void OneByOne() {
        Below(2) == 0 ? Click() : static_cast<void>(GoToList());
        Menu("mnuEditPopupEditNode");
        if (!dialog || !dialog->Window())
            return; // the text doesn't parse
        for (int steps = Below(4); steps > 0; --steps) {
            if (dialog->txtNodeName.Enabled() && !m_tvXML::IsTreeRoot(w->tvXML.SelectedItem()) &&
                Below(3) == 0)
                dialog->txtNodeName.UserTyped(AnyOf(kNames));
            if (Below(2) == 0)
                dialog->txtNodeAttrs.UserTyped(AnyOf(Below(2) == 0 ? kAttributes : kValues));
            if (dialog->txtNodeText.Visible() && Below(3) == 0)
                dialog->txtNodeText.UserTyped(AnyOf(kValues));
            controls::CommandButton* const moves[] = {&dialog->cmdUp, &dialog->cmdDown, &dialog->cmdLeft,
                                                      &dialog->cmdRight};
            if (controls::CommandButton& move = *moves[Below(4)]; move.Enabled())
                move.Click();
        }
        if (Below(3) > 0)
            dialog->cmdOk.Click();
        if (dialog->Window()) // or it was refused
            dialog->cmdCancel.Click();
    }
    void Save() {
        Menu("mnuFileSave");
        const QString written = QString::fromUtf8(t.folder.Read(w->Caption.section(u'/', -1)));
        ExpectTextIsTree();
        // With a word on a declared encoding that can't be written the file stays as it was.
        EXPECT_TRUE(!t.prompts.boxes.empty() || text::ToCrLf(written) == w->rtxtXML.Plain().toString());
    }

    const Choice& Choose() {
        static const std::vector<Choice> choices{
            {"click", &RandomWalk::Click, 8},
            {"tree: new element", &RandomWalk::TreeNew, 4},
            {"tree: new child", &RandomWalk::TreeNewChild, 6},
            {"tree: new comment", &RandomWalk::TreeNewComment, 2},
            {"tree: new text", &RandomWalk::TreeNewText, 4},
            {"tree: new attribute", &RandomWalk::TreeNewAttribute, 3},
            {"tree: rename", &RandomWalk::TreeRename, 3},
            {"tree: delete", &RandomWalk::TreeDelete, 3},
            {"tree: up", &RandomWalk::TreeUp, 3},
            {"tree: down", &RandomWalk::TreeDown, 3},
            {"tree: level up", &RandomWalk::LevelUp, 2},
            {"tree: level down", &RandomWalk::LevelDown, 2},
            {"tree: copy", &RandomWalk::TreeCopy, 3},
            {"tree: cut", &RandomWalk::TreeCut, 2},
            {"tree: paste", &RandomWalk::TreePaste, 2},
            {"other program copies", &RandomWalk::ForeignCopy, 2},
            {"list: new element", &RandomWalk::ListNew, 4},
            {"list: new child", &RandomWalk::ListNewChild, 4},
            {"list: new text", &RandomWalk::ListNewText, 4},
            {"list: new comment", &RandomWalk::ListNewComment, 2},
            {"list: new attribute", &RandomWalk::ListNewAttribute, 4},
            {"list: rename", &RandomWalk::ListRename, 4},
            {"list: delete", &RandomWalk::ListDelete, 3},
            {"list: up", &RandomWalk::ListUp, 3},
            {"list: down", &RandomWalk::ListDown, 3},
            {"list: copy", &RandomWalk::ListCopy, 3},
            {"list: cut", &RandomWalk::ListCut, 2},
            {"list: paste", &RandomWalk::ListPaste, 3},
            {"list: walk down", &RandomWalk::ListWalkDown, 3},
            {"list: cell", &RandomWalk::CellEdit, 12},
            {"text: replaced", &RandomWalk::TypeText, 2},
            {"text: typed", &RandomWalk::TypeIntoText, 3},
            {"text: cut", &RandomWalk::TextCut, 1},
            {"text: copy", &RandomWalk::TextCopy, 1},
            {"text: paste", &RandomWalk::TextPaste, 2},
            {"text: delete", &RandomWalk::TextDelete, 1},
            {"undo", &RandomWalk::Undo, 8},
            {"redo", &RandomWalk::Redo, 4},
            {"undo and redo", &RandomWalk::UndoAndRedo, 3},
            {"one by one", &RandomWalk::OneByOne, 6},
            {"tab", &RandomWalk::SwitchTab, 5},
            {"other window", &RandomWalk::OtherWindow, 2},
            {"save", &RandomWalk::Save, 1},
        };
        static const int sum = [] {
            int weights = 0;
            for (const Choice& one : choices)
                weights += one.weight;
            return weights;
        }();
        int place = Below(sum);
        for (const Choice& one : choices) {
            place -= one.weight;
            if (place < 0)
                return one;
        }
        return choices.front();
    }

    // --- what must hold -----------------------------------------------------------------------------------
    // A text that was typed and can't be read stays beside the tree as it was.
    void ExpectTextIsTree() {
        if (w->bond.refused())
            return;
        const QString text = w->rtxtXML.Plain().toString();
        const QString written = test::Written(w->tvXML);
        EXPECT_TRUE(text == written || test::Rewritten(*w, text) == written)
            << "tree: " << written.toStdString() << "\ntext: " << text.toStdString();
    }

    void ExpectDocument() {
        QStringList rules;
        const QString tamed = test::WrittenWithoutLiberties(*w, rules);
        EXPECT_TRUE(test::Parses(tamed)) << "nothing lets this through: " << tamed.toStdString();
        EXPECT_TRUE(!rules.isEmpty() || test::Parses(test::Written(w->tvXML)));
        for (const QString& rule : rules)
            ++met[rule];
    }

    void ExpectCaption(TreeNode node) {
        const int kind = m_tvXML::GetKeyType(node);
        const int length = t.app().options.TreeNodeTextShowLength;
        EXPECT_TRUE(kind != 1 || !node.Text().isEmpty());
        EXPECT_TRUE(kind != 3 || node.Text() == m_tvXML::Truncate(node.Tag(), length));
    }

    // Looked at anew, the menus say what they say already.
    void ExpectMenu() {
        const auto states = [this] {
            QStringList enabled;
            for (const controls::MenuItem* item : t.frame().MenuEntries())
                if (item->Enabled())
                    enabled << item->Name;
            return enabled.join(u' ').toStdString();
        };
        const std::string before = states();
        t.frame().RefreshMenu();
        EXPECT_EQ(before, states());
    }

    void Check() {
        EXPECT_EQ(w, t.frame().ActiveForm());
        if (ShowsList()) {
            const TreeNode node = w->tvXML.SelectedItem();
            EXPECT_EQ(List().Tag, node ? node.Key() : QString());
            EXPECT_EQ(test::RowsShown(List()), node ? test::RowsOf(node) : std::string());
        }
        EXPECT_EQ(w->rtxtXML.Text(), w->rtxtXML2.Text());
        for (int i = 2; i <= w->tvXML.Nodes.Count(); ++i)
            ExpectCaption(w->tvXML.Nodes(i));
        if (!edit::IsAddingNewNode(*w)) // else an empty text waits to be filled
            ExpectTextIsTree();
        ExpectDocument();
        ExpectMenu();
    }

public:
    void Walk(int commands) {
        const Choice deleting{"tree: delete", &RandomWalk::TreeDelete, 0};
        for (int i = 0; i < commands; ++i) {
            const Choice& choice = w->tvXML.Nodes.Count() > kLargest ? deleting : Choose();
            past << QString::number(i) + u' ' + QLatin1String(choice.name);
            (this->*choice.run)();
            Check();
            if (HasFailure())
                FAIL() << past.mid(std::max<qsizetype>(past.size() - 8, 0)).join(", ").toStdString();
            t.prompts.boxes.clear();
        }
    }
};

TEST_F(RandomWalk, TreeListAndTextAgreeAfterEachCommand) {
    t.frame().editNodesShown.connect([this](nodes::frmEditNodes& form) { dialog = &form; });
    t.OpenText(QStringLiteral("list.xml"), kDocuments[1].toUtf8());
    w = &t.OpenText(QStringLiteral("book.xml"), kDocuments[0].toUtf8());
    t.prompts.AllowAnyBox(services::Answer::Ok);
    Walk(kCommands);
    EXPECT_GE(met.size(), 3) << "rules that the walk has met";
}

} // namespace
