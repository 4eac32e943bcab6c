// SPDX-License-Identifier: GPL-3.0-or-later
// Thousands of commands in no order in the table view, beside tree, text and history. After each of them the
// grids show what the rules make of the tree, and the text says what the tree does.
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "platform/text/Numbers.h"
#include "platform/text/TextTools.h"
#include "tests/support/DocumentChecks.h"
#include "tests/table/TableDesk.h"
#include "textview/TextState.h"
#include <numeric>
#include <random>

namespace {

using controls::FlexGrid;
using controls::TreeNode;
using test::TableDesk;

constexpr int kCommands = 6000;
constexpr int kLargest = 80; // nodes; beyond that the walk deletes

const QStringList kDocuments{
    "<shop><item id='1' name='Tea'>fine</item><item name='007'/><!--c--><note>x</note>"
    "<item id='2' size='3'><part n='1'/><part n='2' m='3'/></item>tail</shop>",
    "<r><a/><A x='1.50'/><a x='1'/><a x='1.50'/></r>",
    "<r><a surname='s' name='n'/><a name='m'/><a xmlns:x='u' x='1'/><a x='2' ax='3' x:n='4' "
    "xmlns:x='u'/></r>",
    "<r/>", "<r><a></r>"};
const QStringList kValues{"",      "1",     "007",  "1.50", "a\"b",      "<b/>t",      "a & b",
                          "x > y", "&amp;", "it's", "</a>", "1\" y=\"2", "two\nlines", "\u4e2d\u6587"};
const QStringList kNames{"id", "name", "surname", "x", "ax", "q:z",   "xmlns:x",
                         "n",  "max",  "a b",     "",  "1x", "\u00e4"};
const QStringList kClips{"5",
                         "1\t2\r\n3\t4\r\n",
                         "a & b\t\"q\"\"r\"",
                         "<item id=\"9\" name=\"n\">t</item>",
                         "<a x=\"1\" /><a x=\"2\" y=\"3\" />",
                         "<a ax=\"1\" x=\"2\" q:z=\"3\" /><a name=\"1\" surname=\"2\" />",
                         "<bad",
                         "<1\t2\r\n3\t4",
                         "",
                         "\t\t\t\t\t\t\t\t"};

/// The cells of a table as the rules tell them one by one, made without a thought of speed.
class Expected {
public:
    Expected(TreeNode parent, const QString& name, bool calculates) {
        for (TreeNode node = parent.Child(); node; node = node.Next()) {
            if (m_tvXML::IsElement(node) && node.Text() == name)
                addRow(node);
        }
        if (calculates)
            rows_.push_back({});
        header_ << QStringLiteral("Node Text");
    }
    int rows() const { return static_cast<int>(rows_.size()) + 1; }
    int columns() const { return static_cast<int>(header_.size()) + 2; }
    QString cell(int row, int column) const {
        if (row == 0)
            return header_[column - 2];
        const Row& at = rows_[static_cast<std::size_t>(row - 1)];
        return column == columns() - 1 ? at.text : at.cells.value(header_[column - 2]);
    }

private:
    struct Row {
        QHash<QString, QString> cells;
        QString text;
    };
    void addRow(TreeNode node) {
        Row row;
        const m_tvXML::Attributes pairs(node);
        bool broken = false;
        for (qsizetype i = 0; i < pairs.count() && !broken; ++i) {
            broken = !header_.contains(pairs.name(i)) && !rows_.empty();
            if (!header_.contains(pairs.name(i)))
                header_ << pairs.name(i);
            const QString value = pairs.value(i);
            if (!broken)
                row.cells[pairs.name(i)] = rows_.empty() ? value : text::PlainNumber(value).value_or(value);
        }
        row.text = broken ? QString() : m_tvXML::ContentOf(node).text;
        rows_.push_back(row);
    }
    QStringList header_;
    std::vector<Row> rows_;
};

class TableWalk : public TableDesk {
protected:
    using Command = void (TableWalk::*)();
    struct Choice {
        const char* name;
        Command run;
        int weight;
    };

    std::mt19937 random{20261122};
    QStringList past;

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    const QString& AnyOf(const QStringList& list) { return list[Below(static_cast<int>(list.size()))]; }
    bool ShowsTable() { return edit::Shows(*w, edit::kTableTab); }

    // --- in the tree, the text and elsewhere ---------------------------------------------------------------
    void ClickTree() { t.ClickNode(w->tvXML.Nodes(1 + Below(w->tvXML.Nodes.Count()))); }
    void InTree(const char* entry) {
        ClickTree();
        Menu(entry);
        if (w->tvXML.LabelEditNode())
            w->tvXML.EndLabelEdit(AnyOf(QStringList{"item", "a", "part", "note", "A"}));
    }
    void TreeNew() { InTree("mnuNewNodeP"); }
    void TreeNewChild() { InTree("mnuNewCNodeP"); }
    void TreeDelete() { InTree("mnuDeleteP"); }
    void TreeUp() { InTree("mnuMoveUP"); }
    void TreeCopy() { InTree("mnuCopyP"); }
    void TreePaste() { InTree("mnuPasteP"); }
    void TypeText() {
        t.EditText(AnyOf(kDocuments));
        ShowTable();
    }
    void UndoStep() { Undo(); }
    void RedoStep() { Redo(); }
    void OtherView() {
        static const QStringList tabs{"listview", "textview"};
        w->tbsXML.Select(AnyOf(tabs));
        ShowTable();
    }
    void ShowTable() { w->tbsXML.Select(QStringLiteral("tableview")); }

    // --- in the grids --------------------------------------------------------------------------------------
    /// Marks a block of a grid; false without a grid.
    bool Mark() {
        if (Grids() == 0)
            return false;
        const int index = Below(Grids());
        const FlexGrid& grid = Grid(index);
        const int row = Below(grid.Rows()), column = 1 + Below(grid.Cols() - 1);
        if (Below(3) == 0)
            Drag(row, 1, std::max(row, 1), grid.Cols() - 1, index); // a whole row
        else if (Below(4) == 0)
            Drag(1, column, grid.Rows() - 1, column, index); // a whole column
        else if (Below(2) == 0)
            Drag(row, column, std::max(Below(grid.Rows()), 1), 1 + Below(grid.Cols() - 1), index);
        else
            Click(row, column, index);
        return true;
    }
    FlexGrid& Marked() { return Grid(table::TableOf(*w).miTableViewIndex); }
    void MarkOnly() { Mark(); }
    void DoubleClick() {
        if (Mark())
            Marked().events().DblClick(Marked());
        TypeCell();
    }
    void PressKey() {
        if (Mark())
            Key(Qt::Key_A);
        TypeCell();
    }
    void TypeCell() {
        for (int cells = 0; OpenEditor() && cells < 4; ++cells) {
            controls::TextBox& editor = *OpenEditor();
            editor.GotFocus();
            if (Below(3) > 0)
                editor.UserTyped(AnyOf(&editor == &w->txtTView ? kValues : kNames));
            static constexpr int kKeys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Tab,   Qt::Key_Up,
                                            Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape};
            if (!EditorKey(editor, kKeys[Below(std::size(kKeys))], Below(2) == 0 ? 0 : editor.Text().size()))
                editor.LostFocus();
        }
        if (controls::TextBox* editor = OpenEditor())
            editor->LostFocus();
        if (controls::TextBox* editor = OpenEditor()) // refused
            EditorKey(*editor, Qt::Key_Escape);
        if (w->cmbSum.Visible()) {
            w->cmbSum.DropDown();
            w->cmbSum.UserChose(Below(9));
            w->cmbSum.LostFocus();
        }
    }
    controls::TextBox* OpenEditor() { return edit::OpenCell(*w); }
    void InTable(const char* entry) {
        if (Mark())
            Menu(entry);
        TypeCell();
    }
    void Rename() {
        if (Mark() && Marked().Cols() > 3)
            DblClick(0, 2 + Below(Marked().Cols() - 3), Marked().Index);
        TypeCell();
    }
    void Copy() { InTable("mnuEditCopy"); }
    void Cut() { InTable("mnuEditCut"); }
    void Paste() { InTable("mnuEditPaste"); }
    void PasteClip() {
        t.clipboard.SetText(AnyOf(kClips));
        InTable("mnuEditPaste");
    }
    void Delete() { InTable("mnuDelete"); }
    void EditValue() { InTable("mnuEditValue"); }
    void SortUp() { InTable("mnuSortAZ"); }
    void SortDown() { InTable("mnuSortZA"); }
    void NewText() { InTable("mnuNewNodeText"); }

    const Choice& Choose() {
        static const std::vector<Choice> choices{{"tree: click", &TableWalk::ClickTree, 6},
                                                 {"tree: new", &TableWalk::TreeNew, 3},
                                                 {"tree: new child", &TableWalk::TreeNewChild, 3},
                                                 {"tree: delete", &TableWalk::TreeDelete, 1},
                                                 {"tree: up", &TableWalk::TreeUp, 2},
                                                 {"tree: copy", &TableWalk::TreeCopy, 2},
                                                 {"tree: paste", &TableWalk::TreePaste, 2},
                                                 {"text", &TableWalk::TypeText, 1},
                                                 {"undo", &TableWalk::UndoStep, 6},
                                                 {"redo", &TableWalk::RedoStep, 3},
                                                 {"other view", &TableWalk::OtherView, 2},
                                                 {"mark", &TableWalk::MarkOnly, 4},
                                                 {"double click", &TableWalk::DoubleClick, 12},
                                                 {"key", &TableWalk::PressKey, 10},
                                                 {"rename", &TableWalk::Rename, 4},
                                                 {"copy", &TableWalk::Copy, 3},
                                                 {"cut", &TableWalk::Cut, 2},
                                                 {"paste", &TableWalk::Paste, 4},
                                                 {"paste clip", &TableWalk::PasteClip, 4},
                                                 {"delete", &TableWalk::Delete, 2},
                                                 {"edit value", &TableWalk::EditValue, 2},
                                                 {"sort up", &TableWalk::SortUp, 2},
                                                 {"sort down", &TableWalk::SortDown, 2},
                                                 {"new text", &TableWalk::NewText, 1}};
        static const int sum = std::accumulate(choices.begin(), choices.end(), 0,
                                               [](int all, const Choice& one) { return all + one.weight; });
        int place = Below(sum);
        for (const Choice& one : choices) {
            place -= one.weight;
            if (place < 0)
                return one;
        }
        return choices.front();
    }

    // --- what must hold ------------------------------------------------------------------------------------
    void ExpectGrid(const FlexGrid& grid, TreeNode parent) {
        const QString name = grid.TextMatrix(0, 1).chopped(1).sliced(1);
        const Expected expected(parent, name, !w->kind.schema);
        ASSERT_EQ(grid.Rows(), expected.rows()) << name.toStdString();
        ASSERT_EQ(grid.Cols(), expected.columns()) << name.toStdString();
        for (int row = 0; row < grid.Rows(); ++row) {
            const bool calc = row > 0 && grid.TextMatrix(row, 1) == QStringLiteral("(Calc)");
            EXPECT_TRUE(calc || row == 0 || w->tvXML.Nodes.Find(grid.TextMatrix(row, 0)));
            for (int column = 2; column < grid.Cols() && !calc; ++column)
                EXPECT_EQ(grid.TextMatrix(row, column).toStdString(),
                          expected.cell(grid.SourceRow(row), column).toStdString())
                    << name.toStdString() << ' ' << row << ' ' << column;
        }
    }
    void ExpectGrids() {
        const TreeNode parent = w->tvXML.Nodes.Find(table::TableOf(*w).levelKey);
        QStringList names;
        for (int i = 0; i < Grids(); ++i) {
            ASSERT_TRUE(parent);
            names << Grid(i).TextMatrix(0, 1);
            ExpectGrid(Grid(i), parent);
        }
        EXPECT_EQ(names.removeDuplicates(), 0);
    }
    void ExpectText() {
        if (w->bond.refused() || edit::IsAddingNewNode(*w))
            return;
        const auto plain = [](QString text) {
            return text.replace(QStringLiteral("<!-- "), QStringLiteral("<!--")).toStdString();
        };
        const std::string written = plain(test::Written(w->tvXML));
        const QString text = w->rtxtXML.Text();
        if (!w->bond.bTextChanged() && plain(text) != written) { // as it was opened, or typed
            EXPECT_EQ(plain(test::Rewritten(*w, text)), written);
        }
        EXPECT_EQ(w->rtxtXML.Text(), w->rtxtXML2.Text());
    }
    void ExpectSelection() {
        const TreeNode node = w->tvXML.SelectedItem();
        EXPECT_TRUE(!ShowsTable() || !node || m_tvXML::GetKeyType(node) != m_tvXML::kText);
        EXPECT_EQ(w->txtTView.Visible() || w->txtTViewHeader.Visible(), false);
    }

    void Walk(int commands) {
        const Choice deleting{"delete", &TableWalk::TreeDelete, 0};
        for (int i = 0; i < commands; ++i) {
            const Choice& choice = w->tvXML.Nodes.Count() > kLargest ? deleting : Choose();
            past << QString::number(i) + u' ' + QLatin1String(choice.name);
            (this->*choice.run)();
            if (ShowsTable())
                ExpectGrids();
            ExpectText();
            ExpectSelection();
            if (HasFailure())
                FAIL() << past.mid(std::max<qsizetype>(past.size() - 6, 0)).join(", ").toStdString() << '\n'
                       << Xml();
            t.prompts.boxes.clear();
        }
    }
};

TEST_F(TableWalk, GridsTreeAndTextAgreeAfterEachCommand) {
    Open(kDocuments[0].toUtf8());
    t.prompts.AllowAnyBox(services::Answer::Ok);
    Walk(kCommands);
}

TEST_F(TableWalk, TheSameInASchemaWindow) {
    t.prompts.AllowAnyBox(services::Answer::Ok); // it is no schema, which is told each time
    Open("<r><item id='1'/><item id='2' name='x'/><note/></r>", QStringLiteral("s.xsd"));
    Walk(kCommands / 4);
}

} // namespace
