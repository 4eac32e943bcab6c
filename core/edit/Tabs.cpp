// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Tabs.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"

namespace edit {

namespace {

void tbsXML_BeforeClick(DocumentWindow& window, bool& cancel) {
    const View* view = ViewOnShow(window);
    cancel = cancel || (view && view->leave && !view->leave(window));
}

void tbsXML_Click(DocumentWindow& window) {
    Run(window, "tbsXML_Click", [&] {
        window.app.frame().StatusBar1().SetPanel(2, {});
        window.chtAna.SetVisible(false);
        window.pctLHSplit.SetVisible(false);
        window.menuSide = MenuSide::View;
        if (const View* view = ViewOnShow(window); view && view->show)
            view->show(window);
    });
}

} // namespace

void LoadViews(DocumentWindow& window) {
    window.views = window.kind.views;
    window.tbsXML.BeforeClick.connect([&window](bool& cancel) { tbsXML_BeforeClick(window, cancel); });
    window.tbsXML.Click.connect([&window] { tbsXML_Click(window); });
    for (const View* view : window.views) {
        if (view->load)
            view->load(window);
    }
}

void UnloadViews(DocumentWindow& window) {
    for (const View* view : window.views) {
        if (view->unload)
            view->unload(window);
    }
}

} // namespace edit
