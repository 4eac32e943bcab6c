// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/TreeCommands.h"

// The clipboard of the tree, and what tree and list share.

namespace {

using controls::TreeNode;

constexpr int kElement = 1;
constexpr int kText = 3;
constexpr int kInstruction = 7;
constexpr int kComment = 8;

} // namespace

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
