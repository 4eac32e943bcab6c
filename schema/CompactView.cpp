// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactView.h"
#include "core/edit/Transaction.h"
#include "schema/CompactBuild.h"
#include "schema/CompactCells.h"
#include "schema/CompactEvents.h"
#include "schema/CompactNavigation.h"
#include "schema/CompactState.h"

namespace schema {

namespace {

void Load(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    state.tvRes.ImageList = window.tvXML.ImageList;
    state.lvRes.ColumnHeaders = {QStringLiteral("Name"), QStringLiteral("Node Attributes / Attribute Value"),
                                 QStringLiteral("Node Text")};
    state.txtResLv.SetVisible(false);
    state.rtxtSeg.Locked = true;
    state.rtxtSeg.SetFont(window.app.options.TextName, window.app.options.TextSize);
    ConnectCompactView(window);
}

// The instance is built when it is looked at. Its root declaration is told to be missing when the view is
// chosen, and not again after each change. The document's current node stays: the instance goes to it.
void ShowTableView(DocumentWindow& window) {
    edit::Then(window, [&window] {
        BuildInstance(window, true);
        CompactState& state = CompactOf(window);
        state.pctCompactView.ZOrder();
        state.tvRes.SetFocus();
        edit::Attend(window, kContextCompact);
        ShowSegment(window);
        NavToRelatedCVNodes(window);
    });
}

// A build is followed to the schema: what was selected may have another declaration now.
void Refresh(DocumentWindow& window, bool) {
    CompactState& state = CompactOf(window);
    const controls::TreeNode current = window.tvXML.SelectedItem();
    const bool another = std::exchange(state.followedKey, current ? current.Key() : QString()) !=
                         (current ? current.Key() : QString());
    const bool stale = state.builtRevision && state.builtRevision != window.tvXML.Revision();
    if (stale)
        BuildInstance(window, false);
    if (stale && window.miPopupContext == kContextCompact)
        edit::Then(window, [&window] { NavToRelated(window); });
    else if (another && state.builtRevision)
        NavToRelatedCVNodes(window);
    else if (stale)
        ShowSegment(window);
}

bool Finish(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    state.tvRes.FinishLabelEdit();
    state.lvRes.FinishLabelEdit();
    txtResLv_LostFocus(window);
    return !state.tvRes.LabelKept() && !state.lvRes.LabelKept() && !state.refused;
}

controls::TextBox* OpenCell(DocumentWindow& window) {
    controls::TextBox& cell = CompactOf(window).txtResLv;
    return cell.Visible() ? &cell : nullptr;
}

bool Naming(DocumentWindow& window) {
    const CompactState& state = CompactOf(window);
    return state.tvRes.LabelEditNode() || state.lvRes.LabelEditRow() > 0;
}

MenuSituation Situation(DocumentWindow&) {
    return MenuSituation::CompactView;
}

} // namespace

const edit::View& CompactView() {
    static constexpr edit::View view{.key = edit::kCompactTab,
                                     .number = edit::kViewCompact,
                                     .caption = "Compact View",
                                     .entry = "mnuViewCompact",
                                     .load = Load,
                                     .show = ShowTableView,
                                     .refresh = Refresh,
                                     .finish = Finish,
                                     .openCell = OpenCell,
                                     .naming = Naming,
                                     .situation = Situation};
    return view;
}

} // namespace schema
