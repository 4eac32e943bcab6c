// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextClipboard.h"
#include "core/edit/CopySlot.h"
#include "core/edit/Guard.h"
#include "core/edit/View.h"
#include "core/model/Serialise.h"

namespace textview {

void RichTextCopy(DocumentWindow& window) {
    if (window.TextInUse().SelLength() > 0)
        window.app.services.clipboard.SetText(window.TextInUse().SelText());
}

// What is marked wasn't selected by the user, and stays (quirk 48).
void RichTextCut(DocumentWindow& window) {
    if (window.TextInUse().EndMark())
        return;
    RichTextCopy(window);
    RichTextDelete(window);
}

void RichTextDelete(DocumentWindow& window) {
    if (!window.TextInUse().EndMark() && window.TextInUse().SelLength() > 0)
        window.TextInUse().SetSelText({});
}

void RichTextPaste(DocumentWindow& window) {
    const QString text = window.app.services.clipboard.GetText();
    if (!text.isEmpty())
        window.TextInUse().Paste(text);
    else if (edit::LastCopy(window.app).ClipboardSourceView == edit::kViewList)
        PasteListViewItemsToTextView(window);
    else
        PasteTreeNodeToTextView(window);
}

void PasteListViewItemsToTextView(DocumentWindow& window) {
    const edit::CopySlot& last = edit::LastCopy(window.app);
    window.TextInUse().EndMark();
    if (last.ClipboardSourceView == edit::kViewList)
        window.TextInUse().SetSelText(last.copiedText);
}

void PasteTreeNodeToTextView(DocumentWindow& window) {
    edit::Guarded(window, "PasteTreeNodeToTextView", [&] {
        const edit::CopySlot& last = edit::LastCopy(window.app);
        if (!last.clipboardSource || last.msNodeClip.isEmpty())
            return;
        QString text = window.app.services.clipboard.GetText();
        if (text.isEmpty())
            text = m_tvXML::GetTreeNodesXML(last.clipboardSource->tvXML.Nodes.Find(last.msNodeClip),
                                            QStringLiteral("\t"));
        window.TextInUse().Paste(text);
    });
}

} // namespace textview
