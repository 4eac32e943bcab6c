// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListView.h"
#include "nodes/ListCommit.h"
#include "nodes/ListEvents.h"
#include "nodes/ListState.h"
#include "nodes/ShowListView.h"

namespace nodes {

namespace {

// The rows carry keys that are gone, also where the root's own key comes back. A document that was emptied
// has no current node, and so nothing would tell the list.
void tvXML_Reset(DocumentWindow& window) {
    window.ListView1.Tag.clear();
    ListOf(window).shownRevision.reset();
    if (!window.tvXML.SelectedItem())
        window.ListView1.Clear();
}

void Load(DocumentWindow& window) {
    window.ListView1.ColumnHeaders = {QStringLiteral("Name"),
                                      QStringLiteral("Node Attributes / Attribute Value"),
                                      QStringLiteral("Node Text")};
    window.txtListView.SetVisible(false);
    window.cmdPop.SetVisible(false);
    ConnectList(window);
    window.tvXML.reset.connect([&window] { tvXML_Reset(window); });
}

// Its rows are made anew always; that waits for the end of the edit.
void Show(DocumentWindow& window) {
    window.rtxtXML.TabStop = false;
    window.rtxtXML2.TabStop = false;
    ListOf(window).shownRevision.reset();
    window.ListView1.SetFocus();
}

void Refresh(DocumentWindow& window, bool) {
    const bool empty = !window.tvXML.SelectedItem() && window.ListView1.Count() == 0;
    if (!empty && !RowsAreCurrent(window))
        ShowListView(window);
}

bool Finish(DocumentWindow& window) {
    txtListView_LostFocus(window);
    return !ListOf(window).bRefused;
}

controls::TextBox* OpenCell(DocumentWindow& window) {
    return window.txtListView.Visible() ? &window.txtListView : nullptr;
}

MenuSituation Situation(DocumentWindow& window) {
    const bool selected = window.ListView1.SelectedItem() > 0 || ListOf(window).mbIsEditValue;
    return selected ? MenuSituation::ListSelected : MenuSituation::ListUnselected;
}

} // namespace

const edit::View& ListView() {
    static constexpr edit::View view{.key = edit::kListTab,
                                     .number = edit::kViewList,
                                     .caption = "List View",
                                     .entry = "mnuViewList",
                                     .load = Load,
                                     .show = Show,
                                     .refresh = Refresh,
                                     .finish = Finish,
                                     .openCell = OpenCell,
                                     .situation = Situation};
    return view;
}

} // namespace nodes
