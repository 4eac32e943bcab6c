// SPDX-License-Identifier: GPL-3.0-or-later
// Ten thousand commands in no order over tree, list and text. After each of them the views tell the same
// document; a text that doesn't parse got there by a rule that lets it through, and only so.
#include "core/model/Serialise.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "platform/text/TextTools.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::ListItem;
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
const QStringList kClipboard{"plain", "<i/><j k=\"1\">u</j>", "n=\"7\"", "<!--c--><k/>", "<bad", ""};

struct Row {
    QString key, text;
    int kind;
    QString first, second;
};

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
    std::mt19937 random{20260917};
    QString badText; ///< what was typed last, where it doesn't parse
    QStringList past;

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    const QString& AnyOf(const QStringList& list) { return list[Below(static_cast<int>(list.size()))]; }
    controls::ListView& List() { return w->ListView1; }
    bool ShowsList() { return w->tbsXML.SelectedKey() == QStringLiteral("listview"); }
    void Menu(const char* entry) { t.frame().RunMenuCommand(QLatin1String(entry)); }

    // --- what a user does in the tree ------------------------------------------------------------------
    void Click() { t.ClickNode(w->tvXML.Nodes(1 + Below(w->tvXML.Nodes.Count()))); }
    void EndLabel() {
        if (w->tvXML.LabelEditNode()) {
            if (Below(8) == 0)
                w->tvXML.CancelLabelEdit();
            else
                w->tvXML.EndLabelEdit(AnyOf(kNames));
        }
        if (List().LabelEditRow() > 0) {
            if (Below(8) == 0)
                List().CancelLabelEdit();
            else
                List().EndLabelEdit(AnyOf(kNames));
        }
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
    void ForeignCopy() { t.clipboard.SetText(AnyOf(kClipboard)); }

    // --- in the list ---------------------------------------------------------------------------------------
    bool GoToList() {
        if (!ShowsList())
            w->tbsXML.Select(QStringLiteral("listview"));
        List().GotFocus();
        if (List().Count() == 0)
            return false;
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
        if (!w->mbIsEditValue)
            return;
        w->txtListView.GotFocus();
        const bool attributes = List().Item(w->msListEditKey).SmallIcon == 1 && w->txtListView.Tag == "1";
        w->txtListView.UserTyped(AnyOf(attributes ? kAttributes : kValues));
        w->txtListView.LostFocus();
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
        if (GoToList())
            List().DblClick();
    }
    void CellEdit() {
        if (!GoToList())
            return;
        List().CellClick(List().SelectedItem(), 2 + Below(2));
        TypeCell();
    }

    // --- in the text, and elsewhere --------------------------------------------------------------------
    void TypeText() {
        const QString text = AnyOf(kDocuments);
        t.EditText(text);
        badText = text.isEmpty() || xml::ParsedDocument().loadXML(text) ? QString() : text;
    }
    void SwitchTab() {
        static const QStringList tabs{"listview", "textview", "browserview", "listview"};
        w->tbsXML.Select(AnyOf(tabs));
    }
    void Save() {
        Menu("mnuFileSave");
        const QString written = QString::fromUtf8(t.folder.Read(QStringLiteral("book.xml")));
        EXPECT_EQ(text::ToCrLf(written), w->rtxtXML.Text());
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
            {"text: typed and left", &RandomWalk::TypeText, 2},
            {"tab", &RandomWalk::SwitchTab, 5},
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
    static QString Written(const controls::TreeView& tree) {
        return text::ToCrLf(m_tvXML::GetTreeNodesXML(tree.Nodes(1), QStringLiteral("\t")));
    }

    /// The text as a tree of its own would write it; nothing where it doesn't parse.
    QString Rewritten(const QString& text) {
        xml::ParsedDocument document;
        if (!document.loadXML(text))
            return {};
        controls::TreeView tree;
        tree.ImageList = w->tvXML.ImageList;
        tree.Nodes.Add({}, 0, QStringLiteral("root"), QStringLiteral("root"));
        m_tvXML::XMLChildNodesToTree(t.app(), nullptr, document.document(), QStringLiteral("root"), tree);
        return Written(tree);
    }

    static std::vector<Row> RowsOf(TreeNode node) {
        std::vector<Row> rows;
        const int kind = m_tvXML::GetKeyType(node);
        const bool root = m_tvXML::IsTreeRoot(node);
        for (TreeNode child = node.Child(); child && (root || kind == 1); child = child.Next()) {
            TreeNode text = child.Child();
            while (text && m_tvXML::GetKeyType(text) != 3)
                text = text.Next();
            const int type = m_tvXML::GetKeyType(child);
            rows.push_back({child.Key(), type == 3 ? QStringLiteral("Node Text") : child.Text(), type,
                            child.Tag(), text ? text.Tag() : QString()});
        }
        if (kind == 1) {
            const QStringList pieces = node.Tag().split(u'"');
            for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
                const QString name = pieces[i].trimmed().chopped(1);
                rows.push_back({node.Key() + u'/' + name, name, 2, pieces[i + 1], {}});
            }
        } else if (!root && kind != 10) {
            static const QHash<int, QString> captions{
                {3, "Node Text"}, {4, "CDATA"}, {7, "xml version"}, {8, "comment"}};
            rows.push_back({node.Key(), captions.value(kind), kind, node.Tag(), {}});
        }
        return rows;
    }

    std::vector<Row> Shown() {
        std::vector<Row> rows;
        for (int i = 1; i <= List().Count(); ++i) {
            const ListItem& item = List().Item(i);
            rows.push_back({item.Key, item.Text, item.SmallIcon, item.Sub[0], item.Sub[1]});
        }
        return rows;
    }

    static std::string Lines(const std::vector<Row>& rows) {
        QStringList lines;
        for (const Row& row : rows)
            lines << QStringList{row.key, row.text, QString::number(row.kind), row.first, row.second}.join(
                QStringLiteral(" | "));
        return lines.join(u'\n').toStdString();
    }

    /// The rules that let something into the tree that can't be a document.
    QStringList Leniencies() {
        QStringList rules;
        int elements = 0;
        for (TreeNode child = w->tvXML.Nodes(1).Child(); child; child = child.Next()) {
            const int kind = m_tvXML::GetKeyType(child);
            elements += kind == 1 ? 1 : 0;
            if (kind == 3)
                rules << QStringLiteral("of what is pasted at the top only one node is looked at");
        }
        if (elements == 0)
            rules << QStringLiteral("the root element can be deleted, or isn't there yet");
        if (elements > 1)
            rules << QStringLiteral("of what is pasted at the top only one node is looked at");
        for (int i = 2; i <= w->tvXML.Nodes.Count(); ++i)
            LenienciesOf(w->tvXML.Nodes(i), rules);
        return rules;
    }

    static bool Parses(const QString& text) { return xml::ParsedDocument().loadXML(text); }

    static void LenienciesOf(TreeNode node, QStringList& rules) {
        const QString tag = node.Tag();
        switch (m_tvXML::GetKeyType(node)) {
        case 1:
            if (!Parses(u'<' + node.Text() + u' ' + tag + QStringLiteral("/>")))
                rules << QStringLiteral("a name's prefix isn't checked");
            break;
        case 3:
            if (tag.contains(QStringLiteral("</")))
                rules << QStringLiteral("a text may close its element and open it again");
            break;
        case 7:
            if (!Parses(QStringLiteral("<?xml ") + tag + QStringLiteral("?><r/>")))
                rules << QStringLiteral("instructions are taken as they are typed");
            break;
        case 8:
            if (!Parses(QStringLiteral("<!--") + tag + QStringLiteral("--><r/>")))
                rules << QStringLiteral("comments are taken as they are typed");
            break;
        default:
            break;
        }
    }

    void Check() {
        if (ShowsList()) {
            const TreeNode node = w->tvXML.SelectedItem();
            EXPECT_EQ(List().Tag, node ? node.Key() : QString());
            EXPECT_EQ(Lines(Shown()), Lines(node ? RowsOf(node) : std::vector<Row>()));
        }
        const QString text = w->rtxtXML.Text();
        EXPECT_EQ(text, w->rtxtXML2.Text());
        if (IsAddingNewNode(*w) || (!badText.isEmpty() && text == badText))
            return;
        badText.clear();
        const QString written = Written(w->tvXML);
        const QString rewritten = Rewritten(text);
        // Colouring puts a blank behind the opener of a comment that has none.
        const auto plain = [](QString one) {
            return one.replace(QStringLiteral("<!-- "), QStringLiteral("<!--"));
        };
        EXPECT_TRUE(plain(text) == plain(written) || plain(rewritten) == plain(written))
            << "tree: " << written.toStdString() << "\ntext: " << text.toStdString();
        if (!written.isEmpty() && !xml::ParsedDocument().loadXML(written)) {
            EXPECT_FALSE(Leniencies().isEmpty()) << "nothing lets this through: " << written.toStdString();
        }
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
    w = &t.OpenText(QStringLiteral("book.xml"), kDocuments[0].toUtf8());
    t.prompts.AllowAnyBox(services::Answer::Ok);
    Walk(kCommands);
}

} // namespace
