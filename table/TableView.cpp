// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableView.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "table/CellCommit.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/LoadTables.h"
#include "table/ShowTable.h"
#include "table/TableEvents.h"

namespace table {

namespace {

void Load(DocumentWindow& window) {
    UnloadAllTable(window);
    window.vsTableView.SetVisible(false);
    ConnectTables(window);
}

void Show(DocumentWindow& window) {
    window.chtAna.SetVisible(!window.kind.schema); // what designs schemas has no chart
    window.pctLHSplit.SetVisible(!window.kind.schema);
    window.pctTableView.ZOrder();
    const controls::TreeNode selected = window.tvXML.SelectedItem();
    if (m_tvXML::IsTreeRoot(selected) && selected.Child())
        window.tvXML.SetSelectedItem(selected.Child());
    edit::Then(window, [&window] {
        if (controls::FlexGrid* grid = CurrentGrid(window))
            grid->SetFocus();
    });
}

void Hide(DocumentWindow& window) {
    window.chtAna.SetVisible(false);
    window.pctLHSplit.SetVisible(false);
}

MenuSituation Situation(DocumentWindow& window) {
    const controls::FlexGrid* grid = CurrentGrid(window);
    return grid && HaveCellSelected(*grid) ? MenuSituation::TableSelected : MenuSituation::TableUnselected;
}

} // namespace

const edit::View& TableView() {
    static constexpr edit::View view{.key = edit::kTableTab,
                                     .number = edit::kViewTable,
                                     .caption = "Table View",
                                     .entry = "mnuViewAtTableV",
                                     .load = Load,
                                     .show = Show,
                                     .refresh = [](DocumentWindow& window, bool) { RefreshTables(window); },
                                     .hide = Hide,
                                     .finish = FinishTableEdits,
                                     .openCell = OpenTableCell,
                                     .situation = Situation};
    return view;
}

} // namespace table
