// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextCommands.h"
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/sync/Views.h"
#include "textview/fill/FillText.h"

namespace {

bool ShowsTab(const DocumentWindow& window, const char* key) {
    return window.tbsXML.SelectedKey() == QLatin1String(key);
}

void InsertIntoPane(DocumentWindow& window, const QString& text) {
    controls::RichTextBox& pane = window.TextInUse();
    const qsizetype start = pane.SelStart();
    pane.SetSelText(text);
    ColourInserted(window, pane, start, pane.SelStart() - start);
}

} // namespace

void InsertString(DocumentWindow& window, const QString& text) try {
    if (ShowsTab(window, "textview"))
        InsertIntoPane(window, text);
    else if (ShowsTab(window, "listview") && window.txtListView.Visible())
        window.txtListView.SetSelText(text);
    else if (ShowsTab(window, "schema"))
        window.txtSchema.SetSelText(text);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".InsertString"));
}

void SelectAllAtTextView(DocumentWindow& window) {
    window.TextInUse().SelectAll();
    ShowSelection(window);
}

void ShowSelection(DocumentWindow& window) {
    Frame* frame = window.app.frame;
    if (!frame || frame->ActiveForm() != &window || !ShowsTab(window, "textview"))
        return;
    const bool selected = window.TextInUse().SelLength() > 0;
    frame->SetMenuSituation(selected ? MenuSituation::TextSelected : MenuSituation::TextUnselected);
    ShowCursorPosition(window);
}

void RFind(DocumentWindow& window) {
    if (!ShowsTab(window, "textview"))
        return;
    window.app.findWindow = &window;
    window.app.findTarget = &window.TextInUse();
    if (window.app.frame)
        window.app.frame->ShowFind();
}

void Validate(DocumentWindow& window, bool quiet, bool& result) try {
    BringPanesTogether(window);
    std::shared_ptr<xml::ParsedDocument> document;
    result = mXMLEdit::LoadXMLDocFromString(window.app, window.rtxtXML.Long(), document, quiet);
    if (result && !quiet)
        window.app.services.prompts.MsgBox(QStringLiteral("It is valid XML!"));
} catch (const text::Fault& fault) {
    result = false;
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".Validate"));
}

void SplitText(DocumentWindow& window) {
    // The new pane begins where the user is, and the place stays when it goes.
    if (!window.pctSplitText.Visible()) {
        window.rtxtXML2.SetSelStart(window.rtxtXML.SelStart());
        window.rtxtXML2.SetSelLength(window.rtxtXML.SelLength());
    }
    SplitTextViewHalf(window);
    if (window.pctSplitText.Visible() || !window.brtxtXML2Focus)
        return;
    window.rtxtXML.SetSelStart(window.rtxtXML2.SelStart());
    window.rtxtXML.SetSelLength(window.rtxtXML2.SelLength());
    window.brtxtXML2Focus = false;
    window.rtxtXML.SetFocus();
}

qsizetype rtGetCharFromPos(const controls::RichTextBox& richText, double x, double y) {
    const qsizetype position = richText.charFromPos ? richText.charFromPos(x, y) : -1;
    return position < 0 ? richText.SelStart() : position;
}
