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

void HideOthers(DocumentWindow& window, const View* shown) {
    for (const View* view : window.views) {
        if (view != shown && view->hide)
            view->hide(window);
    }
}

void tbsXML_Click(DocumentWindow& window) {
    Run(window, "tbsXML_Click", [&] {
        window.app.frame().StatusBar1().SetPanel(2, {});
        window.menuSide = MenuSide::View;
        const View* shown = ViewOnShow(window);
        HideOthers(window, shown);
        if (shown && shown->show)
            shown->show(window);
    });
}

} // namespace

void LoadViews(DocumentWindow& window) {
    window.views = window.kind.views;
    std::vector<controls::TabStrip::Tab> tabs;
    for (const View* view : window.views)
        tabs.push_back({QLatin1String(view->key), QLatin1String(view->caption)});
    window.tbsXML.SetTabs(tabs);
    window.tbsXML.BeforeClick.connect([&window](bool& cancel) { tbsXML_BeforeClick(window, cancel); });
    window.tbsXML.Click.connect([&window] { tbsXML_Click(window); });
    for (const View* view : window.views) {
        if (view->load)
            view->load(window);
    }
    HideOthers(window, ViewOnShow(window));
}

void UnloadViews(DocumentWindow& window) {
    for (const View* view : window.views) {
        if (view->unload)
            view->unload(window);
    }
}

} // namespace edit
