// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListClipboard.h"
#include "core/edit/CopySlot.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "core/model/Serialise.h"
#include "nodes/KeepCopy.h"
#include "nodes/ListCommands.h"
#include "nodes/ListRows.h"
#include "nodes/PasteNodes.h"
#include "nodes/TreeClipboard.h"
#include <algorithm>

namespace nodes {

namespace {

using controls::TreeNode;

bool IsAttributeRow(const controls::ListItem& item) {
    return item.SmallIcon == m_tvXML::kAttribute;
}

// Indentation and line break of a node's old place would run into a text that is copied beside it.
QString WrittenAlone(TreeNode node) {
    const QString xml = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    return m_tvXML::GetKeyType(node) == m_tvXML::kText ? xml : xml.trimmed();
}

// An empty text is copied in full by leaving it out.
bool CanCopyRows(DocumentWindow& window) {
    const std::vector<int> rows = window.ListView1.SelectedRows();
    return std::all_of(rows.begin(), rows.end(), [&](int row) {
        const controls::ListItem& item = window.ListView1.Item(row);
        return IsAttributeRow(item) || m_tvXML::HasTextForm(window.tvXML.Nodes.Find(item.Key));
    });
}

} // namespace

RowsXML GetCopiedListViewItemsXML(DocumentWindow& window) {
    QStringList nodes, pairs;
    for (const int row : window.ListView1.SelectedRows()) {
        const controls::ListItem& item = window.ListView1.Item(row);
        if (IsAttributeRow(item))
            pairs << m_tvXML::Attributes::pair(item.Text, item.Sub[0]);
        else if (const TreeNode node = window.tvXML.Nodes.Find(item.Key))
            nodes << WrittenAlone(node);
    }
    return {nodes.join(QString()), pairs.join(u' ')};
}

bool CopyListViewItems(DocumentWindow& window) {
    return edit::Run(window, "CopyListViewItems", [&] {
        if (window.ListView1.SelectedRows().empty())
            return false;
        const RowsXML rows = GetCopiedListViewItemsXML(window);
        if (rows.text().isEmpty() || !CanCopyRows(window)) {
            SayNothingCopied(window.app);
            return false;
        }
        KeepCopy(window, edit::kViewList, GetCurrentListViewKey(window), rows.text(), rows.attributes);
        return true;
    });
}

void CutListViewItems(DocumentWindow& window) {
    if (CopyListViewItems(window))
        DeleteListViewItems(window);
}

// --- pasting: a text of the node on show that stays empty holds nothing up
// ----------------------------------

namespace {

// The element that pasted attributes are for; nothing where there is none.
TreeNode ElementForAttributes(DocumentWindow& window) {
    const bool elementRow = SelectedRowKind(window) == m_tvXML::kElement;
    TreeNode node = elementRow ? CurrentListNode(window) : TreeNode();
    if (!node)
        node = window.tvXML.SelectedItem();
    return m_tvXML::IsElement(node) ? node : TreeNode();
}

bool IsAttributeList(const QString& text) {
    return !text.contains(u'<') && !text.trimmed().isEmpty() && AttributesOf(text);
}

void PasteAttributes(DocumentWindow& window, const QString& attributes) {
    const TreeNode element = ElementForAttributes(window);
    if (!element)
        SayNothingFits(window);
    else if (AddAttributes(window, element, attributes))
        edit::WriteUnnamed(window);
}

void PasteUnderNodeOnShow(DocumentWindow& window, const QString& nodes, const QString& attributes) {
    const TreeNode shown = window.tvXML.SelectedItem();
    if (!m_tvXML::IsTreeRoot(shown) && !m_tvXML::IsElement(shown))
        SayNothingFits(window);
    else if (PasteNodesAndAttributes(window, shown, nodes, attributes, true))
        edit::WriteUnnamed(window);
}

void PasteText(DocumentWindow& window, const QString& text) {
    const edit::CopySlot& copy = edit::LastCopy(window.app);
    const bool ownCopy = edit::IsLastCopy(window.app, text);
    // A copied text may read like attributes, and is a text all the same.
    const bool ownNodes = ownCopy && copy.copiedText != copy.copiedAttributes;
    if (ownCopy && copy.ClipboardSourceView == edit::kViewTree &&
        SelectedRowKind(window) == m_tvXML::kElement)
        PasteTreeNodeToListView(window);
    else if (!ownNodes && IsAttributeList(text))
        PasteAttributes(window, text);
    else
        PasteUnderNodeOnShow(window, text, ownCopy ? copy.copiedAttributes : QString());
}

} // namespace

void PasteListViewItems(DocumentWindow& window) {
    const QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty() || !window.tvXML.SelectedItem())
        return;
    edit::Run(window, "PasteListViewItems", [&] { PasteText(window, text); });
}

void PasteTreeNodeToListView(DocumentWindow& window) try {
    const TreeNode node = CurrentListNode(window), shown = window.tvXML.SelectedItem();
    if (!m_tvXML::IsElement(node))
        return;
    edit::RunEdit(window, [&] {
        window.tvXML.SetSelectedItem(node);
        PasteTreeNode(window);
        window.tvXML.SetSelectedItem(shown);
    });
} catch (const text::Fault& fault) {
    // The node may be gone: there is nothing to paste under then.
    if (fault.Number != text::kFaultNotFound)
        ErrorReportBox(window.app, fault, QStringLiteral("PasteTreeNodeToListView"));
}

} // namespace nodes
