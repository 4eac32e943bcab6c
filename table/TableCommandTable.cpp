// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableCommandTable.h"
#include "core/edit/Guard.h"
#include "table/CellEditor.h"
#include "table/GridCells.h"
#include "table/TableClipboard.h"
#include "table/TableEvents.h"
#include "table/TableState.h"

namespace table {

namespace {

using edit::Target;

bool ShowsTable(const Target& target) {
    return target.view == edit::kViewTable;
}

void CopySelected(DocumentWindow& window) {
    CopyAtTableView(window);
}
void EditHeader(DocumentWindow& window) {
    if (controls::FlexGrid* grid = CurrentGrid(window))
        GridEditHeader(window, *grid, window.txtTViewHeader);
}
void EditValue(DocumentWindow& window) {
    TableOf(window).mbIsEditValue = true;
    if (controls::FlexGrid* grid = CurrentGrid(window))
        hfgrdTableView_DblClick(window, *grid);
    TableOf(window).mbIsEditValue = false; // nor is it for the next double click
}
/// The grid alone is ordered; the document is as it was.
template <int order> void SortRows(DocumentWindow& window) {
    edit::Guarded(window, order == controls::flexSortGenericAscending ? "Ascending" : "Descending", [&] {
        if (controls::FlexGrid* grid = CurrentGrid(window))
            grid->Sort(order);
    });
}

// clang-format off
//                             none tree   list   text   table  other
//                                 root node sel none sel none sel none
constexpr char kCells[] =     "D  D D  D D  D D  E -  D";
constexpr char kTableOnly[] = "D  k k  k k  k k  k k  k";
// clang-format on

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuCopyAsHTML"}}, .offered = kCells}, .forms = {{0, CopyTableAsHTMLText}}},
    {.offer = {.entries = {{"mnuSortAZ", ShowsTable}},
               .button = {"tbCommonEdit", "az"},
               .offered = kTableOnly},
     .forms = {{0, SortRows<controls::flexSortGenericAscending>}}},
    {.offer = {.entries = {{"mnuSortZA", ShowsTable}},
               .button = {"tbCommonEdit", "za"},
               .offered = kTableOnly},
     .forms = {{0, SortRows<controls::flexSortGenericDescending>}}},
};
static_assert(edit::AreComplete(kCommands));

constexpr edit::CommandForm kForms[] = {
    {"mnuEditCopy", {kContextTable, CopySelected}},
    {"mnuEditCut", {kContextTable, CutAtTableView}},
    {"mnuEditPaste", {kContextTable, PasteAtTableView}},
    {"mnuDelete", {kContextTable, DeleteAtTableView}},
    {"mnuSelectAll", {kContextTable, SelectAllAtTableView}},
    {"mnuEditName", {kContextTable, EditHeader}},
    {"mnuEditValue", {kContextTable, EditValue}},
};

} // namespace

std::span<const edit::Command> TableCommands() {
    return kCommands;
}

std::span<const edit::CommandForm> TableForms() {
    return kForms;
}

} // namespace table
