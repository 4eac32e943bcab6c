// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/Clipboard.h"
#include "core/model/Serialise.h"

// Copy, cut and paste in the view that has the user's attention.

void PasteTreeNodeToTextView(DocumentWindow& window) try {
    const DocumentWindow* source = window.app.clipboardSource;
    if (!source || source->msNodeClip.isEmpty())
        return;
    QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty())
        text = m_tvXML::GetTreeNodesXML(source->tvXML.Nodes.Find(source->msNodeClip), QStringLiteral("\t"));
    window.TextInUse().Paste(text);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".PasteTreeNodeToTextView"));
}

// --- by view ---------------------------------------------------------------------------------------------

void Copy(DocumentWindow& window) {
    if (window.miPopupContext == kContextText) {
        if (window.TextInUse().SelLength() > 0)
            window.app.services.clipboard.SetText(window.TextInUse().SelText());
    } else if (window.miPopupContext == kContextList) {
        CopyListViewItems(window);
    } else if (window.miPopupContext == kContextTree) {
        CopyTreeNode(window);
    }
}

void Cut(DocumentWindow& window) {
    if (window.miPopupContext == kContextText) {
        Copy(window);
        window.TextInUse().SetSelText({});
    } else if (window.miPopupContext == kContextList) {
        CutListViewItems(window);
    } else if (window.miPopupContext == kContextTree) {
        CutTreeNode(window);
    }
}

void Paste(DocumentWindow& window) {
    services::Clipboard& clipboard = window.app.services.clipboard;
    if (window.miPopupContext == kContextText) {
        if (clipboard.GetText().isEmpty() && window.app.ClipboardSourceView == kViewList)
            PasteListViewItemsToTextView(window);
        else
            window.TextInUse().Paste(clipboard.GetText());
    } else if (window.miPopupContext == kContextList) {
        PasteListViewItems(window);
    } else if (window.miPopupContext == kContextTree) {
        PasteTreeNode(window);
    }
}
