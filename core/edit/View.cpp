// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/View.h"
#include "core/model/NodeKind.h"
#include <algorithm>

namespace edit {

namespace {

const View* ViewOf(const DocumentWindow& window, const QString& key) {
    for (const View* view : window.views) {
        if (key == QLatin1String(view->key))
            return view;
    }
    return nullptr;
}

} // namespace

const View* ViewOnShow(const DocumentWindow& window) {
    return ViewOf(window, window.tbsXML.SelectedKey());
}

int miCurrentView(const DocumentWindow& window) {
    const View* view = ViewOnShow(window);
    return view ? view->number : kViewTree;
}

bool Shows(const DocumentWindow& window, const char* key) {
    return window.tbsXML.SelectedKey() == QLatin1String(key);
}

bool HasView(const DocumentWindow& window, const char* key) {
    return ViewOf(window, QLatin1String(key)) != nullptr;
}

void ShowView(DocumentWindow& window, const char* key) {
    if (HasView(window, key))
        window.tbsXML.Select(QLatin1String(key));
}

bool FinishCells(DocumentWindow& window) {
    bool done = true;
    for (const View* view : window.views)
        done = (!view->finish || view->finish(window)) && done;
    return done;
}

controls::TextBox* OpenCell(DocumentWindow& window) {
    for (const View* view : window.views) {
        if (controls::TextBox* cell = view->openCell ? view->openCell(window) : nullptr)
            return cell;
    }
    return nullptr;
}

bool IsNamingInView(DocumentWindow& window) {
    return std::any_of(window.views.begin(), window.views.end(),
                       [&](const View* view) { return view->naming && view->naming(window); });
}

MenuSituation SituationOf(DocumentWindow& window) {
    const View* view = ViewOnShow(window);
    if (view && view->situation && window.menuSide == MenuSide::View)
        return view->situation(window);
    return m_tvXML::IsTreeRoot(window.tvXML.SelectedItem()) ? MenuSituation::TreeRoot
                                                            : MenuSituation::TreeNode;
}

} // namespace edit
