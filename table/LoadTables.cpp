// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/LoadTables.h"
#include "core/edit/Guard.h"
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

    Tables walk(TreeCursor node) {
        for (; node; node = node.next()) {
            if (node.kind() == m_tvXML::kElement)
                tableOf(node).add(node);
        }
        return std::move(tables_);
    }

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

void ForgetTables(DocumentWindow& window) {
    CloseTableEditors(window);
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
    return LevelWalk(calculates).walk(TreeCursor(node));
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
        TableOf(window).levelKey = level;
        TableOf(window).level = m_tvXML::NodeAddress(node.Parent());
    });
}

void UnloadAllTable(DocumentWindow& window) {
    const controls::FlexGridUpdate quiet(window.hfgrdTableView);
    ForgetTables(window);
    FlexGrid& first = window.hfgrdTableView(0);
    first.SetVisible(false);
    first.SetSource(nullptr);
    window.hfgrdTableView.UnloadFrom(1);
}

} // namespace table
