// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/TextOut.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Escaping.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "table/LoadTables.h"
#include "table/TableState.h"
#include <algorithm>

namespace exchange {

namespace {

using controls::TreeNode;
using table::Columns;
using table::ElementTable;
using table::Tables;

constexpr int kAllLevels = 1000;
constexpr qint64 kRowsPerStep = 1000;
constexpr qsizetype kRoom = 1 << 20;

const QString kEnd = QStringLiteral("\r\n");

/// Walks the levels and writes their tables.
class Writer {
public:
    Writer(const TextOutOptions& options, const edit::WaitStep& step) : options_(options), step_(step) {}

    bool goesOn() const { return !out_.cut && !out_.cancelled; }
    TextOut take() { return std::move(out_); }
    QString& text() { return out_.text; }

    /// One table: its rows, or the one text that a table of a single cell has.
    void GetOneTableResText(const ElementTable& table) {
        const int first = options_.i_bIncludeNameFirst ? 0 : 1;
        if (!options_.i_bIsAttr) {
            if (table.rowCount() < 3) // quirk 97
                out_.text += table.text(1, table.textColumn());
            return;
        }
        for (int row = first; row < table.rowCount() && goesOn(); ++row) {
            AppendRow(table, row);
            out_.text += kEnd;
            Count();
        }
        out_.text += kEnd;
    }

    /// The levels below a node, as many as `level` says.
    void GetAllChildResText(TreeNode node, int level, QString& header, QString& line) {
        const TreeNode first = FirstOfLevel(node);
        if (level < 1 || !first || !goesOn())
            return;
        for (const auto& table : table::TablesOfLevel(first, true)) {
            if (options_.i_bIsAttr) {
                GetOneTableResText(*table);
                out_.text += kEnd;
            } else if (options_.i_bIncludeNameFirst) {
                header += (header.isEmpty() ? QString() : options_.i_sDelimiter) + table->name();
                const qsizetype from = out_.text.size();
                GetOneTableResText(*table);
                line += (line.isEmpty() ? QString() : options_.i_sDelimiter) + out_.text.mid(from);
                out_.text.truncate(from);
            }
        }
        for (TreeNode child = first; level > 1 && child && goesOn(); child = child.Next()) {
            if (child.Children() > 0)
                GetAllChildResText(child, level - 1, header, line);
        }
    }

private:
    // The first element; a text and nothing else ends the walk.
    static TreeNode FirstOfLevel(TreeNode node) {
        const TreeNode child = node.Child();
        return child ? m_tvXML::FirstElement(child) : TreeNode();
    }

    // A cell keeps its place only behind the first that isn't empty (quirk 96).
    void AppendRow(const ElementTable& table, int row) {
        const qsizetype from = out_.text.size();
        const int last = table.columnCount() - 1;
        const auto join = [&](QStringView cell) {
            if (out_.text.size() > from)
                out_.text += options_.i_sDelimiter;
            out_.text += cell;
        };
        if (options_.plain)
            return AppendPlainRow(table, row);
        for (const QString& cell : table.texts(row, Columns::kFirst, last))
            join(cell);
    }

    void AppendPlainRow(const ElementTable& table, int row) {
        const int last = table.columnCount() - 1;
        std::vector<QString> cells;
        if (row == 0)
            cells = table.texts(row, Columns::kFirst, last);
        else if (row <= table.lastRow())
            for (const text::CompactView value : table.values(row, Columns::kFirst, last))
                cells.push_back(mXMLEdit::WithoutReferences(value.toString()));
        for (std::size_t i = 0; i < cells.size(); ++i)
            out_.text += (i > 0 ? options_.i_sDelimiter : QString()) + Quoted(cells[i]);
    }

    QString Quoted(QString cell) const {
        const bool needed = cell.contains(u'"') || cell.contains(u'\n') || cell.contains(u'\r') ||
                            (!options_.i_sDelimiter.isEmpty() && cell.contains(options_.i_sDelimiter));
        return needed ? u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"' : cell;
    }

    void Count() {
        out_.cut = options_.most > 0 && out_.text.size() > options_.most;
        if (++rows_ % kRowsPerStep == 0 && step_ && !step_(rows_, 0))
            out_.cancelled = true;
        if (out_.text.capacity() - out_.text.size() < kRoom) // ahead of the growth row by row
            out_.text.reserve(out_.text.size() * 2 + kRoom);
    }

    const TextOutOptions& options_;
    const edit::WaitStep& step_;
    TextOut out_;
    qint64 rows_ = 0;
};

TreeNode StartNode(DocumentWindow& window, bool selected) {
    const TreeNode current = window.tvXML.SelectedItem();
    if (selected && current && !m_tvXML::IsTreeRoot(current))
        return current;
    return window.tvXML.Nodes(1).Child();
}

/// The table in use, once the table view shows the level of a node.
std::shared_ptr<ElementTable> ShowTables(DocumentWindow& window, TreeNode start) {
    edit::Run(window, "GetTreeNodeResText", [&] {
        edit::SelectNode(window, start);
        edit::ShowView(window, edit::kTableTab);
    });
    const table::TableState& state = table::TableOf(window);
    if (state.tables.empty())
        return nullptr;
    const auto last = static_cast<int>(state.tables.size()) - 1;
    return state.tables[static_cast<std::size_t>(std::clamp(state.miTableViewIndex, 0, last))];
}

} // namespace

TextOut GetTreeNodeResText(DocumentWindow& window, const TextOutOptions& options,
                           const edit::WaitStep& step) {
    Writer writer(options, step);
    if (window.tvXML.Nodes.Count() < 2 || window.tvXML.Nodes(1).Children() == 0)
        return writer.take();
    if (const auto table = ShowTables(window, StartNode(window, options.i_bIsSelectedNode)))
        writer.GetOneTableResText(*table);
    if (options.i_iDepthType == 1 && options.i_iDepth < 2)
        return writer.take();
    const int levels = options.i_iDepthType == 0 ? kAllLevels : options.i_iDepth - 1;
    QString header, line;
    // The table view stands on an element, also where the document begins with its declaration (quirk 95).
    writer.GetAllChildResText(window.tvXML.SelectedItem(), levels, header, line);
    if (!options.i_bIsAttr && options.i_bIncludeNameFirst)
        writer.text() += kEnd + header + kEnd + line;
    return writer.take();
}

} // namespace exchange
