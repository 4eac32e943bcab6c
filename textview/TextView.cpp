// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextView.h"
#include "core/edit/Transaction.h"
#include "textview/TextEvents.h"
#include "textview/TextLink.h"
#include "textview/Undo.h"

namespace textview {

namespace {

void SetTextTabStops(DocumentWindow& window, bool stop) {
    window.rtxtXML.TabStop = stop;
    window.rtxtXML2.TabStop = stop;
}

void Load(DocumentWindow& window) {
    const Options& options = window.app.options;
    window.rtxtXML.SetFont(options.TextName, options.TextSize);
    window.rtxtXML2.SetFont(options.TextName, options.TextSize);
    window.pctSplitText.SetVisible(false);
    window.tmText.Tick.connect([&window] { FollowSteps(window); });
    ConnectPane(window, window.rtxtXML, false);
    ConnectPane(window, window.rtxtXML2, true);
}

void Show(DocumentWindow& window) {
    SetTextTabStops(window, true);
    window.TextInUse().SetFocus();
    BringTextUpToDate(window);
    edit::Then(window, [&window] { NavToNodeRelatedText(window); }); // in the text as it is then
    window.pctText.ZOrder();
}

void FollowNode(DocumentWindow& window, bool treeChanged) {
    if (window.miPopupContext != kContextTree)
        return;
    const controls::TreeNode node = window.tvXML.SelectedItem();
    if (node && (treeChanged || node.Key() != window.TextInUse().Tag))
        NavToNodeRelatedText(window);
}

// A tab strip may be clicked without taking the focus from the text.
bool Leave(DocumentWindow& window) {
    if (!ReadEditedText(window))
        return false;
    SetTextTabStops(window, false);
    return true;
}

MenuSituation Situation(DocumentWindow& window) {
    return window.TextInUse().SelLength() > 0 ? MenuSituation::TextSelected : MenuSituation::TextUnselected;
}

} // namespace

const edit::View& TextView() {
    static constexpr edit::View view{.key = edit::kTextTab,
                                     .number = edit::kViewText,
                                     .caption = "Text View",
                                     .entry = "mnuViewText",
                                     .load = Load,
                                     .show = Show,
                                     .refresh = FollowNode,
                                     .leave = Leave,
                                     .situation = Situation};
    return view;
}

} // namespace textview
