// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableView.h"
#include "core/model/NodeKind.h"
#include "table/Sheet.h"

namespace table {

namespace {

void Load(DocumentWindow& window) {
    window.hfgrdTableView(0).SetVisible(false);
    window.txtTView.SetVisible(false);
    window.txtTViewHeader.SetVisible(false);
    window.cmbSum.SetVisible(false);
    window.vsTableView.SetVisible(false);
    window.vsTableView.Change.connect([&window] { vsTableView_Change(window); });
}

void Show(DocumentWindow& window) {
    window.chtAna.SetVisible(true);
    window.pctLHSplit.SetVisible(true);
    window.pctTableView.ZOrder();
    const controls::TreeNode selected = window.tvXML.SelectedItem();
    if (m_tvXML::IsTreeRoot(selected) && selected.Child())
        window.tvXML.SetSelectedItem(selected.Child());
}

void Hide(DocumentWindow& window) {
    window.chtAna.SetVisible(false);
    window.pctLHSplit.SetVisible(false);
}

MenuSituation Situation(DocumentWindow&) {
    return MenuSituation::TableUnselected;
}

} // namespace

const edit::View& TableView() {
    static constexpr edit::View view{.key = edit::kTableTab,
                                     .number = edit::kViewTable,
                                     .caption = "Table View",
                                     .entry = "mnuViewAtTableV",
                                     .load = Load,
                                     .show = Show,
                                     .hide = Hide,
                                     .situation = Situation};
    return view;
}

} // namespace table
