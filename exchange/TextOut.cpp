// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/TextOut.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Escaping.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "table/GridCells.h"
#include "table/LoadTables.h"
#include "table/TableState.h"
#include <algorithm>
#include <string>

namespace exchange {

namespace {

using controls::TreeNode;
using table::Columns;
using table::ElementTable;

constexpr int kAllLevels = 1000;
constexpr qint64 kRowsPerStep = 1000;
constexpr std::size_t kPart = 1 << 16; // units that go on together

const QString kEnd = QStringLiteral("\r\n");

/// What a table gives: as the grid in use shows it, or as one would that isn't made for it.
struct Shown {
    const ElementTable& table;
    const controls::FlexGrid* grid = nullptr;

    int sourceRow(int row) const { return grid ? grid->SourceRow(row) : row; }
    bool hasElement(int row) const { return row >= 1 && row <= table.lastRow(); }
    std::vector<text::CompactView> values(int row, bool shown) const {
        return table.values(sourceRow(row), Columns::kFirst, table.textColumn(), shown);
    }
    /// The cells of another row. What was calculated stands in the grid alone.
    QStringList cells(int row) const {
        QStringList cells;
        for (int column = Columns::kFirst; column <= table.textColumn(); ++column)
            cells << (grid ? grid->TextMatrix(row, column) : table.text(row, column));
        return cells;
    }
};

/// Walks the levels and writes their tables.
class Writer {
public:
    Writer(const TextOutOptions& options, const edit::TextSink& sink, const edit::WaitStep& step)
        : options_(options), sink_(sink), step_(step) {}

    void Put(QStringView text) { part_.append(text.utf16(), static_cast<std::size_t>(text.size())); }
    /// What is left goes on. False where the text was given up.
    bool Finish() {
        PassOn();
        return goesOn_;
    }

    void GetOneTableResText(const Shown& shown) {
        if (!options_.i_bIsAttr)
            return Put(OnlyText(shown.table));
        const int first = options_.i_bIncludeNameFirst ? 0 : 1;
        for (int row = first; row < shown.table.rowCount() && goesOn_; ++row) {
            PutRow(shown, row);
            Put(kEnd);
            Count();
        }
        Put(kEnd);
    }

    /// The levels below a node, as many as `level` says. Without the cells there are the tables' names and
    /// their texts, each in a line of its own: the levels are walked twice, and nothing is kept for the
    /// second.
    void GetAllChildResText(TreeNode node, int level) {
        if (options_.i_bIsAttr) {
            EachTableBelow(node, level, [this](const ElementTable& table) {
                GetOneTableResText({table});
                Put(kEnd);
            });
        } else if (options_.i_bIncludeNameFirst) {
            PutLine(node, level, [](const ElementTable& table) { return table.name(); });
            PutLine(node, level, OnlyText);
        }
    }

private:
    // The first element; a text and nothing else ends the walk.
    static TreeNode FirstOfLevel(TreeNode node) {
        const TreeNode child = node.Child();
        return child ? m_tvXML::FirstElement(child) : TreeNode();
    }

    template <typename Visit> void EachTableBelow(TreeNode node, int level, const Visit& visit) {
        const TreeNode first = FirstOfLevel(node);
        if (level < 1 || !first || !goesOn_)
            return;
        for (const auto& table : table::TablesOfLevel(first, true)) {
            visit(*table);
            Count();
        }
        for (TreeNode child = first; level > 1 && child && goesOn_; child = child.Next()) {
            if (child.Children() > 0)
                EachTableBelow(child, level - 1, visit);
        }
    }

    /// One text of each table below a node, in a line behind a line end; delimiters come behind the first
    /// that isn't empty.
    template <typename Text> void PutLine(TreeNode node, int level, const Text& textOf) {
        Put(kEnd);
        bool any = false;
        EachTableBelow(node, level, [&](const ElementTable& table) {
            const QString text = textOf(table);
            if (any)
                Put(options_.i_sDelimiter);
            Put(text);
            any = any || !text.isEmpty();
        });
    }

    // The one text that a table of a single cell has (quirk 104).
    static QString OnlyText(const ElementTable& table) {
        return table.rowCount() < 3 ? table.text(1, table.textColumn()) : QString();
    }

    // A cell keeps its place only behind the first that isn't empty (quirk 103).
    void PutRow(const Shown& shown, int row) {
        if (options_.plain)
            return PutPlainRow(shown, row);
        bool any = false;
        const auto part = [&](bool empty) {
            if (any)
                Put(options_.i_sDelimiter);
            any = any || !empty;
        };
        if (!shown.hasElement(row)) {
            for (const QString& cell : shown.cells(row)) {
                part(cell.isEmpty());
                Put(cell);
            }
            return;
        }
        int column = Columns::kFirst;
        for (const text::CompactView value : shown.values(row, true)) {
            part(value.isEmpty());
            shown.table.appendShownText(part_, shown.sourceRow(row), column++, value);
        }
    }

    void PutPlainRow(const Shown& shown, int row) {
        bool any = false;
        const auto part = [&] {
            if (any)
                Put(options_.i_sDelimiter);
            any = true;
        };
        if (row == 0) {
            for (const QString& cell : shown.cells(row)) {
                part();
                Put(Quoted(cell));
            }
        } else if (shown.hasElement(row)) {
            for (const text::CompactView value : shown.values(row, false)) {
                part();
                PutPlain(value);
            }
        }
    }

    // Most values hold nothing that is written otherwise.
    void PutPlain(text::CompactView value) {
        const std::size_t at = part_.size();
        part_.resize(at + value.length);
        value.copyTo(part_.data() + at);
        const char16_t delimiter =
            options_.i_sDelimiter.isEmpty() ? u'"' : options_.i_sDelimiter[0].unicode();
        const auto isOdd = [delimiter](char16_t unit) {
            return unit == u'&' || unit == u'"' || unit == u'\n' || unit == u'\r' || unit == delimiter;
        };
        if (std::none_of(part_.begin() + static_cast<std::ptrdiff_t>(at), part_.end(), isOdd))
            return;
        part_.resize(at);
        Put(Quoted(mXMLEdit::WithoutReferences(value.toString())));
    }

    QString Quoted(QString cell) const {
        const bool needed = cell.contains(u'"') || cell.contains(u'\n') || cell.contains(u'\r') ||
                            (!options_.i_sDelimiter.isEmpty() && cell.contains(options_.i_sDelimiter));
        return needed ? u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"' : cell;
    }

    void Count() {
        if (++rows_ % kRowsPerStep == 0 && step_ && !step_(rows_, 0))
            goesOn_ = false;
        if (part_.size() > kPart)
            PassOn();
    }

    void PassOn() {
        goesOn_ = goesOn_ && sink_(part_);
        part_.clear(); // its room is kept
    }

    const TextOutOptions& options_;
    const edit::TextSink& sink_;
    const edit::WaitStep& step_;
    std::u16string part_;
    qint64 rows_ = 0;
    bool goesOn_ = true;
};

TreeNode StartNode(DocumentWindow& window, bool selected) {
    const TreeNode current = window.tvXML.SelectedItem();
    if (selected && current && !m_tvXML::IsTreeRoot(current))
        return current;
    return window.tvXML.Nodes(1).Child();
}

// What is typed in the text goes in with it. False where that doesn't parse: the tree is an old one then.
bool ShowTableView(DocumentWindow& window) {
    edit::ShowView(window, edit::kTableTab);
    return edit::Shows(window, edit::kTableTab) || !edit::HasView(window, edit::kTableTab);
}

/// The grid in use, once the table view is at the level of a node; null without one.
const controls::FlexGrid* GridAt(DocumentWindow& window, TreeNode start) {
    edit::Run(window, "GetTreeNodeResText", [&] { edit::SelectNode(window, start); });
    const table::TableState& state = table::TableOf(window);
    if (state.tables.empty())
        return nullptr;
    const auto last = static_cast<int>(state.tables.size()) - 1;
    return &window.hfgrdTableView(std::clamp(state.miTableViewIndex, 0, last));
}

} // namespace

bool GetTreeNodeResText(DocumentWindow& window, const TextOutOptions& options, const edit::TextSink& sink,
                        const edit::WaitStep& step) {
    if (!ShowTableView(window))
        return false;
    if (window.tvXML.Nodes.Count() < 2 || window.tvXML.Nodes(1).Children() == 0)
        return true;
    Writer writer(options, sink, step);
    if (const controls::FlexGrid* grid = GridAt(window, StartNode(window, options.i_bIsSelectedNode)))
        writer.GetOneTableResText({*table::TableIn(window, *grid), grid});
    if (options.i_iDepthType == 1 && options.i_iDepth < 2)
        return writer.Finish();
    const int levels = options.i_iDepthType == 0 ? kAllLevels : options.i_iDepth - 1;
    // The table view stands on an element, also where the document begins with its declaration (quirk 102).
    writer.GetAllChildResText(window.tvXML.SelectedItem(), levels);
    return writer.Finish();
}

} // namespace exchange
