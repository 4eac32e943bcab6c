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
constexpr int kText = 3;
constexpr int kInstruction = 7;
constexpr int kComment = 8;

// Beside the root element there is room for comments and instructions alone.
bool FitsAtTheTop(DocumentWindow& window, xml::Node fragment) {
    int elements = m_tvXML::HaveElementNodeAtXMLRootLevel(window) ? 1 : 0;
    for (xml::Node node = fragment.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == xml::TEXT || node.nodeType() == xml::CDATA_SECTION)
            return false;
        elements += node.nodeType() == xml::ELEMENT ? 1 : 0;
    }
    return elements <= 1;
}

} // namespace

// The serialiser would leave out what is below a leaf.
TreeNode Container(TreeNode node) {
    while (node && !m_tvXML::IsTreeRoot(node) && m_tvXML::GetKeyType(node) != kElement)
        node = node.Parent();
    return node;
}

bool CopyTreeNode(DocumentWindow& window) try {
    const TreeNode node = window.tvXML.SelectedItem();
    if (!node)
        return false;
    Application& app = window.app;
    const QString text = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    if (text.isEmpty() || !HasTextForm(node)) {
        SayNothingCopied(app);
        return false;
    }
    app.clipboardSource = &window;
    app.copiedText = text;
    app.copiedAttributes.clear();
    app.services.clipboard.Clear();
    app.services.clipboard.SetText(app.copiedText);
    app.ClipboardSourceView = kViewTree;
    window.msNodeClip = node.Key();
    DoMenu(window);
    return true;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".CopyTreeNode"));
    return false;
}

bool HasTextForm(TreeNode node) {
    switch (m_tvXML::GetKeyType(node)) {
    case kElement:
    case kText:
    case kInstruction:
    case kComment:
        return true;
    default:
        return m_tvXML::IsTreeRoot(node);
    }
}

bool IsLastCopy(const Application& app, const QString& text) {
    if (app.copiedText.isEmpty() || text.isEmpty())
        return false;
    const auto plain = [](QString one) { return one.remove(u'\r'); };
    return text == app.copiedText || plain(text) == plain(app.copiedText);
}

void SayNothingCopied(Application& app) {
    app.services.prompts.MsgBox(QStringLiteral("This type of data can not copy!"));
}

void CutTreeNode(DocumentWindow& window) {
    if (!CopyTreeNode(window))
        return;
    DeleteTreeNode(window);
    DoTree(window);
}

namespace {

// Rows that were copied may have attributes, which go into an element; beside nodes the clipboard's text
// can't hold them.
void PasteIntoTree(DocumentWindow& window, TreeNode node, const QString& text) {
    const Application& app = window.app;
    const TreeNode target = Container(node);
    if (!target || app.copiedAttributes.isEmpty() || !IsLastCopy(app, text)) {
        PasteXMLStringToTree(window, node);
        return;
    }
    const bool nodes = app.copiedText != app.copiedAttributes;
    if (PasteNodesAndAttributes(window, target, nodes ? text : QString(), app.copiedAttributes, false))
        DoTree(window);
}

} // namespace

void PasteTreeNode(DocumentWindow& window) try {
    constexpr int kPause = 10; // milliseconds
    const QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty())
        return;
    PasteIntoTree(window, window.tvXML.SelectedItem(), text);
    if (window.bTreeChanged) // else a text that doesn't parse would give way to an old tree
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
    if (!temp || (m_tvXML::IsTreeRoot(target) && !(asChild && FitsAtTheTop(window, temp))))
        return false;
    const int before = window.tvXML.Nodes.Count();
    const TreeNode selected = window.tvXML.SelectedItem();
    window.bTreeChanged = true; // also if only a part gets there
    m_tvXML::XMLChildNodesToTree(window.app, &window, temp, target.Key(), window.tvXML);
    if (selected)
        window.tvXML.SetSelectedItem(selected);
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
