// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextCommands.h"
#include "core/edit/NodePath.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "textview/FillText.h"
#include "textview/FindSlot.h"

namespace textview {

namespace {

void InsertIntoPane(DocumentWindow& window, const QString& text) {
    controls::RichTextBox& pane = window.TextInUse();
    pane.EndMark();
    const qsizetype start = pane.SelStart();
    pane.SetSelText(text);
    ColourInserted(window, pane, start, pane.SelStart() - start);
}

} // namespace

void InsertString(DocumentWindow& window, const QString& text) {
    edit::Guarded(window, "InsertString", [&] {
        if (edit::Shows(window, edit::kTextTab))
            InsertIntoPane(window, text);
        else if (edit::Shows(window, edit::kListTab) && window.txtListView.Visible())
            window.txtListView.SetSelText(text);
        else if (edit::Shows(window, edit::kTableTab) && window.txtTView.Visible())
            window.txtTView.SetSelText(text);
        else if (edit::Shows(window, edit::kSchemaTab))
            window.txtSchema.SetSelText(text);
    });
}

void SelectAllAtTextView(DocumentWindow& window) {
    window.TextInUse().SelectAll();
    ShowSelection(window);
}

void ShowSelection(DocumentWindow& window) {
    if (window.app.frame().ActiveForm() != &window || !edit::Shows(window, edit::kTextTab))
        return;
    edit::Run(window, "ShowSelection", [&] { window.menuSide = MenuSide::View; });
    edit::ShowCursorPosition(window);
}

void RFind(DocumentWindow& window) {
    if (!edit::Shows(window, edit::kTextTab))
        return;
    FindSlot& slot = Finding(window.app);
    slot.findWindow = &window;
    slot.findTarget = &window.TextInUse();
    window.app.frame().ShowFind();
}

bool Validate(DocumentWindow& window, bool quiet) {
    return edit::Guarded(window, "Validate", [&] {
        BringPanesTogether(window);
        const edit::Tone tone = quiet ? edit::Tone::Quiet : edit::Tone::Box;
        const bool valid = edit::ValidateXML(window.app, window.rtxtXML.Long(), tone);
        if (quiet)
            return valid;
        const bool passed = window.kind.check ? window.kind.check(window, valid) : valid;
        if (passed)
            window.app.services.prompts.MsgBox(QStringLiteral("It is valid XML!"));
        return passed;
    });
}

void SplitText(DocumentWindow& window) {
    // The new pane begins where the user is, and the place stays when it goes.
    if (!window.pctSplitText.Visible())
        Select(window.rtxtXML2, SelectionOf(window.rtxtXML));
    SplitTextViewHalf(window);
    if (window.pctSplitText.Visible() || !window.brtxtXML2Focus)
        return;
    Select(window.rtxtXML, SelectionOf(window.rtxtXML2));
    window.brtxtXML2Focus = false;
    window.rtxtXML.SetFocus();
}

void SplitTextViewHalf(DocumentWindow& window) {
    window.pctSplitText.SetVisible(!window.pctSplitText.Visible());
}

qsizetype rtGetCharFromPos(const controls::RichTextBox& richText, double x, double y) {
    const qsizetype position = richText.charFromPos ? richText.charFromPos(x, y) : -1;
    return position < 0 ? richText.SelStart() : position;
}

} // namespace textview
