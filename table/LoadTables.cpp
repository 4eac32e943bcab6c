// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/LoadTables.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/model/NodeKind.h"
#include "table/EditorPlace.h"
#include "table/TableState.h"
#include <unordered_map>

namespace table {

namespace {

using controls::FlexGrid;
using controls::TreeCursor;
using controls::TreeNode;

/// The tables of a level, made in one walk along it.
class LevelWalk {
public:
    explicit LevelWalk(bool calculates) : calculates_(calculates) {}

    /// A node and its siblings, or those so many levels below.
    void walk(TreeCursor node, int below = 0) {
        for (; node; node = node.next()) {
            if (node.kind() != m_tvXML::kElement)
                continue;
            if (below > 0)
                walk(node.firstChild(), below - 1);
            else
                tableOf(node).add(node);
        }
    }
    Tables take() { return std::move(tables_); }

private:
    // Elements that came from one document share the number of their name; a typed name has one of its own.
    ElementTable& tableOf(TreeCursor element) {
        if (last_ && element.textId() == lastId_)
            return *last_;
        lastId_ = element.textId();
        ElementTable*& known = byId_[lastId_];
        if (!known) {
            const QString name = element.text().toString();
            ElementTable*& named = byName_[name];
            if (!named)
                named = tables_.emplace_back(std::make_shared<ElementTable>(name, calculates_)).get();
            known = named;
        }
        return *(last_ = known);
    }

    bool calculates_;
    Tables tables_;
    std::unordered_map<text::StringPool::Ref, ElementTable*> byId_;
    QHash<QString, ElementTable*> byName_;
    text::StringPool::Ref lastId_ = 0;
    ElementTable* last_ = nullptr;
};

void SetWidths(DocumentWindow& window, FlexGrid& grid, const ElementTable& table) {
    grid.SetColWidth(0, 0); // the keys
    const auto& widths = TableOf(window).widths;
    for (auto width = widths.begin(); width != widths.end(); ++width) {
        const int column = width.key().first == table.name() ? table.columnOf(width.key().second) : -1;
        if (column > 0)
            grid.SetColWidth(column, *width);
    }
}

// The routine's name is spelled so.
QString LoadReport(const DocumentWindow& window) {
    return (window.kind.schema ? QStringLiteral("frmSXMlEdit") : window.kind.Name) +
           QStringLiteral(".LoadAllSameNameItemAtTableView error!");
}

// A grid that is there already is used again: who holds on to it meets a table, if another one.
void LoadAllSameNameItemAtTableView(DocumentWindow& window, const std::shared_ptr<ElementTable>& table) {
    edit::Guarded(window.app, LoadReport(window), [&] {
        controls::FlexGridArray& grids = window.hfgrdTableView;
        TableState& state = TableOf(window);
        const int index = static_cast<int>(state.tables.size());
        FlexGrid& grid = index <= grids.UBound() ? grids(index) : grids.Load();
        grid.SetSource(table);
        grid.SetTailRows(table->calculates() ? 1 : 0);
        grid.SetFrozenCols(Columns::kFirst);
        grid.SetRowHeight(state.rowHeight);
        SetWidths(window, grid, *table);
        grid.SetVisible(true);
        state.tables.push_back(table);
    });
}

bool IsTyping(DocumentWindow& window) {
    const controls::TextBox* editor = OpenTableCell(window);
    return editor && editor->Text() != TableOf(window).edited.text;
}

// What an editor was opened on, in the tables as they are now: another value stands for another cell.
bool FindEdited(DocumentWindow& window) {
    TableState& state = TableOf(window);
    const EditedCell& cell = state.edited;
    for (std::size_t i = 0; i < state.tables.size(); ++i) {
        const ElementTable& table = *state.tables[i];
        const FlexGrid& grid = window.hfgrdTableView(static_cast<int>(i));
        const TreeNode element = window.tvXML.Nodes.Find(cell.key);
        const int row = element ? table.rowOf(element) : 0, column = table.columnOf(cell.name);
        if (column < 0 || table.name() != cell.table ||
            (!cell.key.isEmpty() && (row == 0 || !(table.value(row, column) == QStringView(cell.text)))))
            continue;
        state.miEditTableIndex = grid.Index;
        state.miEditRow = cell.key.isEmpty() ? 0 : grid.RowOfSource(row);
        state.miEditCol = column;
        return true;
    }
    return false;
}

// What is being typed stays over its cell. Where that is gone it is told.
void KeepEditor(DocumentWindow& window) {
    constexpr qsizetype kLongestTold = 200;
    const controls::TextBox* editor = OpenTableCell(window);
    if (!editor)
        return;
    const bool typing = IsTyping(window);
    if (typing && FindEdited(window))
        return;
    if (typing)
        edit::Message(window.app, QStringLiteral("The document was changed, and the cell isn't there any "
                                                 "more. It was to hold: ") +
                                      editor->Text().left(kLongestTold));
    CloseTableEditors(window);
}

void ForgetTables(DocumentWindow& window) {
    if (window.chtAna.HasData())
        window.chtAna.Clear(); // what it would show is gone
    TableOf(window).charted.reset();
    window.cmbSum.SetVisible(false);
    TableOf(window).tables.clear();
    TableOf(window).mvFocusTableRow.reset();
}

// A level that is walked back to is shown at once.
void KeepTables(DocumentWindow& window) {
    constexpr std::size_t kLevels = 3;
    TableState& state = TableOf(window);
    const std::uint64_t revision = window.tvXML.Revision();
    std::erase_if(state.left, [&](const LeftLevel& level) {
        return level.revision != revision || level.key == state.levelKey;
    });
    if (state.tables.empty() || !GridsAreCurrent(window))
        return;
    if (state.left.size() == kLevels)
        state.left.erase(state.left.begin());
    state.left.push_back({state.levelKey, revision, state.tables});
}

Tables TablesOf(DocumentWindow& window, const QString& level, TreeNode node) {
    for (const LeftLevel& left : TableOf(window).left) {
        if (left.key == level)
            return left.tables;
    }
    ++window.app.work.tableFills;
    return TablesOfLevel(node.FirstSibling(), !window.kind.schema);
}

} // namespace

Tables TablesOfLevel(controls::TreeNode node, bool calculates) {
    LevelWalk level(calculates);
    level.walk(TreeCursor(node));
    return level.take();
}

Tables TablesOfDepth(controls::TreeNode node, int below) {
    LevelWalk level(false);
    level.walk(TreeCursor(node), below);
    return level.take();
}

void LoadLevelAtTableView(DocumentWindow& window, TreeNode node) {
    edit::Guarded(window, "LoadCurrentNodeAllItemsAtTableView", [&] {
        const controls::FlexGridUpdate quiet(window.hfgrdTableView);
        KeepTables(window);
        const QString level = node.Parent() ? node.Parent().Key() : QString();
        const Tables tables = TablesOf(window, level, node);
        if (tables.empty())
            return UnloadAllTable(window);
        ForgetTables(window);
        for (const auto& table : tables)
            LoadAllSameNameItemAtTableView(window, table);
        window.hfgrdTableView.UnloadFrom(static_cast<int>(tables.size()));
        KeepEditor(window);
        TableOf(window).levelKey = level;
        TableOf(window).level = m_tvXML::NodeAddress(node.Parent());
    });
}

void UnloadAllTable(DocumentWindow& window) {
    const controls::FlexGridUpdate quiet(window.hfgrdTableView);
    ForgetTables(window);
    KeepEditor(window);
    FlexGrid& first = window.hfgrdTableView(0);
    first.SetVisible(false);
    first.SetSource(nullptr);
    window.hfgrdTableView.UnloadFrom(1);
}

} // namespace table
