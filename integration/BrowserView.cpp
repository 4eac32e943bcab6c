// SPDX-License-Identifier: GPL-3.0-or-later
#include "integration/BrowserView.h"
#include "core/edit/Guard.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "platform/text/TextTools.h"

namespace integration {

namespace {

struct BrowserState {
    QString msTempFile; ///< the preview's file, deleted on closing
};

void Display(DocumentWindow& window) {
    DisplayAtIE(window.app, window.way->text(window).toString(), window.rooms.of<BrowserState>().msTempFile,
                window.IE);
}

// The page shows the text, which is brought up to date at the end of the edit.
void Show(DocumentWindow& window) {
    window.IE.SetFocus();
    edit::Then(window, [&window] { Display(window); });
}

// Without the focus (quirk 8).
void Refresh(DocumentWindow& window, bool treeChanged) {
    if (treeChanged)
        Display(window);
}

void Unload(DocumentWindow& window) {
    edit::DeleteFileIfExists(window.app, window.rooms.of<BrowserState>().msTempFile);
}

MenuSituation Situation(DocumentWindow&) {
    return MenuSituation::ViewWithoutEditing;
}

} // namespace

const edit::View& BrowserView() {
    static constexpr edit::View view{.key = edit::kBrowserTab,
                                     .number = edit::kViewBrowser,
                                     .caption = "Browser View",
                                     .entry = "mnuViewWebBrowser",
                                     .show = Show,
                                     .refresh = Refresh,
                                     .situation = Situation,
                                     .unload = Unload};
    return view;
}

void DisplayAtIE(Application& app, const QString& text, QString& tempFile, controls::WebBrowser& ie) {
    edit::Guarded(app, QStringLiteral("m_tvXML@DisplayAtIE"), [&] {
        // One name serves all windows: a later preview overwrites an earlier one.
        tempFile = app.services.files.TemporaryFolder() + QStringLiteral("/tempbv_forVantrel.xml");
        // A preview is written in an encoding that holds every character, halves of surrogate pairs give way
        // to the sign for what can't be shown, and no question is asked.
        QString page = text.isEmpty() ? QStringLiteral("<html><body></body></html>")
                                      : text::WithDeclaredEncoding(text::WithoutLoneHalves(text),
                                                                   QStringLiteral("UTF-8"));
        if (edit::SaveStringToFile(app, page, tempFile))
            ie.Navigate(tempFile);
    });
}

} // namespace integration
