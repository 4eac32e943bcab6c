// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/textview/TextDesk.h"
#include "textview/dialogs/frmFind.h"

namespace test {

/// A document in the text view, and the find dialog over it.
class FindDesk : public TextDesk {
public:
    explicit FindDesk(const QByteArray& document = "<a>ab abc 1ab AB ab</a>") : TextDesk(document) {
        app.prompts.AllowAnyBox();
        app.frame().findShown.connect([this](textview::frmFind& shown) { form_ = &shown; });
        Select(0);
        app.ChooseMenu(QStringLiteral("mnuFindReplace"));
    }
    textview::frmFind& form() { return *form_; }

    void Up() { form().optDU.UserChose(); }
    void Look(const QString& text, const QString& replacement = {}) {
        form().cmbFind.UserTyped(text);
        form().cmbReplace.UserTyped(replacement);
    }
    /// Places that pressing Find leads to, until the box comes.
    QString Finds() {
        QString places;
        for (app.prompts.boxes.clear(); app.prompts.boxes.empty() && places.size() < 200;) {
            form().cmdFind.Click();
            if (app.prompts.boxes.empty())
                places += QString::number(pane().SelStart()) + u' ';
        }
        return places.trimmed();
    }

private:
    textview::frmFind* form_ = nullptr;
};

} // namespace test
