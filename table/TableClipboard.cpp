// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableClipboard.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/NodeKind.h"
#include "nodes/KeepCopy.h"
#include "nodes/PasteNodes.h"
#include "table/DeleteCells.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/PasteCells.h"
#include "table/TableText.h"

namespace table {

namespace {

using controls::FlexGrid;
using controls::TreeNode;

// Programs that take tables take no more cells than these; the text is there all the same.
constexpr qint64 kMostHtmlCells = 1'000'000;

bool IsTooLargeForHtml(DocumentWindow& window, const FlexGrid& grid) {
    const controls::GridRange range = SelectedData(window, grid);
    return qint64(range.height()) * range.width() > kMostHtmlCells;
}

// Beside the root element there is no room for another row.
TreeNode TakesRows(TreeNode row) {
    const TreeNode parent = row.Parent();
    return m_tvXML::IsTreeRoot(parent) ? row : parent;
}

// Where whole rows are selected nodes become rows, and a word a text of the row: one value is never written
// over all cells of it.
void PasteInto(DocumentWindow& window, FlexGrid& grid, const QString& text) {
    const TreeNode current = ElementAt(window, grid, grid.Row());
    const TreeNode row = HaveLinesSelected(grid) ? current : TreeNode();
    if (row && IsXml(text)) {
        nodes::PasteXMLText(window, text, TakesRows(row), false);
    } else if (!HaveCellSelected(grid) && IsCalcRow(window, grid, grid.Row())) {
        nodes::SayNothingFits(window);
    } else if (!HaveCellSelected(grid)) {
        nodes::PasteXMLText(window, text, current ? current : window.tvXML.SelectedItem(), false);
    } else if (const PastedBlock block = BlockOf(text); row && block.isOneValue()) {
        nodes::PasteXMLText(window, text, row, false);
    } else {
        PasteCellAtTableView(window, grid, block);
    }
}

} // namespace

bool CopyAtTableView(DocumentWindow& window) {
    return edit::Guarded(window, "CopyAtTableView", [&] {
        if (const controls::TextBox* cell = OpenTableCell(window)) {
            if (cell->SelLength() > 0)
                window.app.services.clipboard.SetText(cell->Text().mid(cell->SelStart(), cell->SelLength()));
            return false; // the letters were meant, not the cell
        }
        FlexGrid* grid = CurrentGrid(window);
        const QString text = grid ? GetTableViewText(window, *grid) : QString();
        if (text.isEmpty()) {
            nodes::SayNothingCopied(window.app);
            return false;
        }
        const bool large = IsTooLargeForHtml(window, *grid);
        const QString html = large ? QString() : CopyTableAsHTML(window, *grid);
        nodes::KeepCopy(window, edit::kViewTable, GetTableViewLineKey(*grid),
                        {.text = text, .html = html, .xml = text});
        edit::DoTree(window);
        if (large)
            edit::Message(window.app, QStringLiteral("Copied as XML alone: there are too many cells for a "
                                                     "spreadsheet."));
        return true;
    });
}

void CutAtTableView(DocumentWindow& window) {
    if (CopyAtTableView(window))
        DeleteAtTableView(window);
}

void PasteAtTableView(DocumentWindow& window) {
    const QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty())
        return;
    if (controls::TextBox* cell = OpenTableCell(window))
        cell->SetSelText(text);
    else if (FlexGrid* grid = CurrentGrid(window))
        edit::Run(window, "PasteAtTableView", [&] { PasteInto(window, *grid, text); });
}

void DeleteAtTableView(DocumentWindow& window) {
    FlexGrid* grid = CurrentGrid(window);
    if (!grid)
        return;
    if (HaveLinesSelected(*grid))
        DeleteLinesAtTableView(window, *grid);
    else if (HaveColsSelected(*grid))
        DeleteColsAtTableView(window, *grid);
    else
        DeleteCellsAtTableView(window, *grid);
}

void SelectAllAtTableView(DocumentWindow& window) {
    FlexGrid* grid = CurrentGrid(window);
    const auto table = grid ? TableIn(window, *grid) : nullptr;
    if (table)
        grid->Select(1, Columns::kFirst, table->lastRow(), table->textColumn());
}

void CopyTableAsHTMLText(DocumentWindow& window) {
    edit::Guarded(window, "CopyTableAsHTML", [&] {
        if (const FlexGrid* grid = CurrentGrid(window)) {
            const QString html = CopyTableAsHTML(window, *grid);
            if (html.isEmpty())
                return nodes::SayNothingCopied(window.app);
            window.app.services.clipboard.SetContents({.text = html, .html = html});
        }
    });
}

} // namespace table
