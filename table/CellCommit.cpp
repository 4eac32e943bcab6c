// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/CellCommit.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "table/CellValue.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/Prefixes.h"
#include "table/TableState.h"
#include "table/TagText.h"
#include "table/WriteCells.h"
#include <QScopedValueRollback>

namespace table {

namespace {

using controls::FlexGrid;

// The place of what was edited, in the grid as it is now: it may have been made anew since.
struct Place {
    FlexGrid* grid = nullptr;
    std::shared_ptr<ElementTable> table;
    int row = 0, column = -1; ///< the table's
};

Place PlaceOf(DocumentWindow& window, const EditedCell& cell) {
    const int index = TableOf(window).miEditTableIndex;
    if (index > window.hfgrdTableView.UBound())
        return {};
    FlexGrid& grid = window.hfgrdTableView(index);
    const auto table = TableIn(window, grid);
    if (!table)
        return {};
    return {&grid, table, table->rowOf(window.tvXML.Nodes.Find(cell.key)), table->columnOf(cell.name)};
}

bool CommitCell(DocumentWindow& window, const EditedCell& cell, const QString& typed) {
    const Place at = PlaceOf(window, cell);
    if (at.row == 0 || at.column < 0) { // there is nowhere to try again
        edit::Message(window.app,
                      QStringLiteral("The document was changed, and the cell isn't there any more."));
        return true;
    }
    const bool text = at.column == at.table->textColumn();
    const auto value = text ? TextValue(window.app, typed) : AttributeValue(window.app, typed);
    if (!value) {
        SayNoValue(window.app);
        return false;
    }
    CellWriter writer(window, *at.grid, 1);
    const NewCell written{cell.name, *value};
    SetCells(writer, *at.table, at.row, {&written, 1});
    return true;
}

/// The Tags that change where all rows get the new name whose value is what their cell shows; `visit` tells
/// whether to go on.
template <typename Visit>
void VisitRenamed(const FlexGrid& grid, const ElementTable& table, const QString& oldName,
                  const QString& newName, Visit visit) {
    const int column = table.columnOf(oldName);
    for (int i = 1; i <= table.lastRow(); ++i) {
        const int row = grid.SourceRow(i);
        const controls::TreeNode element = table.element(row);
        if (!element)
            continue;
        const QString tag = element.Tag();
        const QString renamed = WithName(tag, oldName, newName, grid.TextMatrix(i, column));
        if (renamed != tag && !visit(row, renamed))
            return;
    }
}

// What was refused stays as it was typed, and the box has the keys again (quirk 59). A message takes the
// focus away once more meanwhile.
template <typename Commit>
void Leave(DocumentWindow& window, controls::TextBox& editor, const char* routine, Commit commit) {
    TableState& state = TableOf(window);
    if (!editor.Visible() || state.bLeaving)
        return;
    const QScopedValueRollback leaving(state.bLeaving, true);
    edit::Run(window, AtRoutine(window, routine), [&] {
        edit::Attend(window, kContextTable);
        const QString typed = editor.Text();
        if (typed == state.edited.text || commit(state.edited, typed))
            CloseTableEditors(window);
    });
    if (editor.Visible())
        editor.SetFocus();
}

} // namespace

void txtTView_LostFocus(DocumentWindow& window) {
    Leave(window, window.txtTView, "txtTView_LostFocus",
          [&](const EditedCell& cell, const QString& typed) { return CommitCell(window, cell, typed); });
}

void txtTViewHeader_LostFocus(DocumentWindow& window) {
    Leave(window, window.txtTViewHeader, "txtTViewHeader_LostFocus",
          [&](const EditedCell& cell, const QString& typed) {
              const Place at = PlaceOf(window, cell);
              return at.column < 0 || SetTreeAllPropNameByTableView(window, *at.grid, cell.name, typed);
          });
}

bool FinishTableEdits(DocumentWindow& window) {
    txtTView_LostFocus(window);
    txtTViewHeader_LostFocus(window);
    return !OpenTableCell(window);
}

bool SetTreeAllPropNameByTableView(DocumentWindow& window, FlexGrid& grid, const QString& oldName,
                                   const QString& newName) {
    const auto table = TableIn(window, grid);
    if (!table || !edit::ValidateNodeAttributeName(window.app, newName, table->name()))
        return false;
    int rows = 0;
    bool twice = false, stands = true;
    VisitRenamed(grid, *table, oldName, newName, [&](int row, const QString& tag) {
        ++rows;
        twice = HasNameTwice(tag);
        stands = twice || PrefixesStand(table->element(row), tag);
        return !twice && stands;
    });
    if (!stands) {
        SayNoDeclaration(window.app);
        return false;
    }
    if (twice) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
        return false;
    }
    edit::Run(window, AtRoutine(window, "SetTreeAllPropNameByTableView"), [&] {
        CellWriter writer(window, grid, rows);
        VisitRenamed(grid, *table, oldName, newName, [&](int row, const QString& tag) {
            writer.setTag(row, tag);
            return true;
        });
    });
    return true;
}

} // namespace table
