// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/ListCommands.h"
#include "nodes/ListRows.h"
#include "nodes/fill/ShowListView.h"
#include <QSet>
#include <algorithm>

// The clipboard of the list.

namespace {

using controls::TreeNode;

// The element that pasted attributes are for; nothing where there is none.
TreeNode ElementForAttributes(DocumentWindow& window) {
    TreeNode node = SelectedRowKind(window) == kRowElement ? CurrentListNode(window) : TreeNode();
    if (!node)
        node = window.tvXML.SelectedItem();
    return node && m_tvXML::GetKeyType(node) == kRowElement ? node : TreeNode();
}

bool IsAttributeList(const QString& text) {
    return !text.contains(u'<') && !text.trimmed().isEmpty() &&
           xml::ParsedDocument().loadXML(m_tvXML::NodeAttributesProbe(text, QStringLiteral("temp")));
}

void Refresh(DocumentWindow& window) {
    window.bTreeChanged = true;
    TreeChangeTextView(window, true);
    ShowListView(window);
    DoTree(window);
}

// Indentation and line break of a node's old place would run into a text that is copied beside it.
QString WrittenAlone(TreeNode node) {
    const QString xml = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    return m_tvXML::GetKeyType(node) == kRowText ? xml : xml.trimmed();
}

// An empty text is copied in full by leaving it out.
bool CanCopyRows(DocumentWindow& window) {
    const std::vector<int> rows = window.ListView1.SelectedRows();
    return std::all_of(rows.begin(), rows.end(), [&](int row) {
        const controls::ListItem& item = window.ListView1.Item(row);
        return item.SmallIcon == kRowAttribute || HasTextForm(window.tvXML.Nodes.Find(item.Key));
    });
}

} // namespace

QString GetCopiedListViewItemsXML(DocumentWindow& window, QString& attributes) {
    QStringList nodes, pairs;
    for (const int row : window.ListView1.SelectedRows()) {
        const controls::ListItem& item = window.ListView1.Item(row);
        if (item.SmallIcon == kRowAttribute)
            pairs << item.Text + QStringLiteral("=\"") + item.Sub[0] + u'"';
        else if (const TreeNode node = window.tvXML.Nodes.Find(item.Key))
            nodes << WrittenAlone(node);
    }
    attributes = pairs.join(u' ');
    return nodes.join(QString());
}

bool CopyListViewItems(DocumentWindow& window) try {
    Application& app = window.app;
    if (window.ListView1.SelectedRows().empty())
        return false;
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(window, attributes);
    if ((nodes.isEmpty() && attributes.isEmpty()) || !CanCopyRows(window)) {
        SayNothingCopied(app);
        return false;
    }
    app.clipboardSource = &window;
    app.ClipboardSourceView = kViewList;
    window.msNodeClip = GetCurrentListViewKey(window);
    // Attributes beside nodes can't be told in one text that other programs read; here they go along.
    app.copiedText = nodes.isEmpty() ? attributes : nodes;
    app.copiedAttributes = attributes;
    app.services.clipboard.Clear();
    app.services.clipboard.SetText(app.copiedText);
    return true;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".CopyListViewItems"));
    return false;
}

void CutListViewItems(DocumentWindow& window) {
    if (CopyListViewItems(window))
        DeleteListViewItems(window);
}

namespace {

void PasteAttributes(DocumentWindow& window, const QString& attributes) {
    const TreeNode element = ElementForAttributes(window);
    if (!element)
        SayNothingFits(window);
    else if (AddAttributes(window, element, attributes))
        Refresh(window);
}

} // namespace

void PasteListViewItems(DocumentWindow& window) try {
    Application& app = window.app;
    const QString text = app.services.clipboard.GetText();
    const TreeNode shown = window.tvXML.SelectedItem();
    if (text.isEmpty() || !shown)
        return;
    const bool ownCopy = IsLastCopy(app, text);
    if (ownCopy && app.ClipboardSourceView == kViewTree && SelectedRowKind(window) == kRowElement) {
        PasteTreeNodeToListView(window);
        return;
    }
    // A copied text may read like attributes, and is a text all the same.
    const bool ownNodes = ownCopy && app.copiedText != app.copiedAttributes;
    if (!ownNodes && IsAttributeList(text)) {
        PasteAttributes(window, text);
        return;
    }
    const bool root = m_tvXML::IsTreeRoot(shown);
    if (!root && m_tvXML::GetKeyType(shown) != kRowElement) {
        SayNothingFits(window);
        return;
    }
    if (PasteNodesAndAttributes(window, shown, text, ownCopy ? app.copiedAttributes : QString(), true))
        Refresh(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".PasteListViewItems"));
}

void PasteTreeNodeToListView(DocumentWindow& window) try {
    const TreeNode node = CurrentListNode(window), shown = window.tvXML.SelectedItem();
    if (!node || m_tvXML::GetKeyType(node) != kRowElement)
        return;
    window.tvXML.SetSelectedItem(node);
    PasteTreeNode(window);
    window.tvXML.SetSelectedItem(shown);
    ShowListView(window);
    DoTree(window);
} catch (const text::Fault& fault) {
    // The node may be gone: there is nothing to paste under then.
    if (fault.Number != text::kFaultNotFound)
        ErrorReportBox(window.app, fault, QStringLiteral("PasteTreeNodeToListView"));
}

void PasteListViewItemsToTextView(DocumentWindow& window) {
    if (window.app.ClipboardSourceView == kViewList)
        window.TextInUse().SetSelText(window.app.copiedText);
}
