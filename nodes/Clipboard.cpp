// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/Clipboard.h"
#include "core/model/Serialise.h"
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/TreeCommands.h"

// The clipboard of the tree, and what tree and list share.

namespace {

using controls::TreeNode;

constexpr int kElement = 1;

// A leaf takes no children: the serialiser would leave them out.
TreeNode Container(TreeNode node) {
    while (node && !m_tvXML::IsTreeRoot(node) && m_tvXML::GetKeyType(node) != kElement)
        node = node.Parent();
    return node;
}

} // namespace

void CopyTreeNode(DocumentWindow& window) try {
    const TreeNode node = window.tvXML.SelectedItem();
    if (!node)
        return;
    Application& app = window.app;
    app.clipboardSource = &window;
    app.copiedText = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    app.copiedAttributes.clear();
    app.services.clipboard.Clear();
    app.services.clipboard.SetText(app.copiedText);
    app.ClipboardSourceView = kViewTree;
    window.msNodeClip = node.Key();
    DoMenu(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".CopyTreeNode"));
}

void CutTreeNode(DocumentWindow& window) {
    CopyTreeNode(window);
    DeleteTreeNode(window);
    TreeChangeTextView(window);
    DoTree(window);
}

void PasteTreeNode(DocumentWindow& window) try {
    constexpr int kPause = 10; // milliseconds
    if (window.app.services.clipboard.GetText().isEmpty())
        return;
    PasteXMLStringToTree(window, window.tvXML.SelectedItem());
    TreeChangeTextView(window);
    mXMLEdit::Delay(window.app, kPause);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".PasteTreeNode"));
}

void PasteXMLStringToTree(DocumentWindow& window, TreeNode node, bool asChild) {
    PasteXMLText(window, window.app.services.clipboard.GetText(), node, asChild);
}

bool PasteXMLText(DocumentWindow& window, const QString& text, TreeNode node, bool asChild) try {
    const TreeNode target = Container(node);
    if (!target)
        return false;
    std::shared_ptr<xml::ParsedDocument> document;
    const xml::Node temp = ConvertStringToXMLNode(
        window.app, QStringLiteral("<temp>") + text + QStringLiteral("</temp>"), document);
    if (!temp || (!asChild && m_tvXML::IsTreeRoot(target)))
        return false;
    const int before = window.tvXML.Nodes.Count();
    const TreeNode selected = window.tvXML.SelectedItem();
    m_tvXML::XMLChildNodesToTree(window.app, &window, temp, target.Key(), window.tvXML);
    if (selected)
        window.tvXML.SetSelectedItem(selected);
    window.bTreeChanged = true;
    DoTree(window);
    return window.tvXML.Nodes.Count() > before;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".PasteXMLStringToTree"));
    return false;
}

xml::Node ConvertStringToXMLNode(Application& app, const QString& text,
                                 std::shared_ptr<xml::ParsedDocument>& document) {
    if (!mXMLEdit::LoadXMLDocFromString(app, text, document, false))
        return {};
    return document->documentElement();
}

void PasteTreeNodeToTextView(DocumentWindow& window) try {
    const DocumentWindow* source = window.app.clipboardSource;
    if (!source || source->msNodeClip.isEmpty())
        return;
    QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty())
        text = m_tvXML::GetTreeNodesXML(source->tvXML.Nodes.Find(source->msNodeClip), QStringLiteral("\t"));
    window.TextInUse().SetSelText(text);
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
            window.TextInUse().SetSelText(clipboard.GetText());
    } else if (window.miPopupContext == kContextList) {
        PasteListViewItems(window);
    } else if (window.miPopupContext == kContextTree) {
        PasteTreeNode(window);
    }
}
