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

// The clipboard of the list.

namespace {

using controls::TreeNode;

QString JoinAttributes(const QStringList& names, const QStringList& values) {
    QStringList pairs;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty())
            pairs << names[i] + QStringLiteral("=\"") + values[i] + u'"';
    }
    return pairs.join(u' ');
}

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

void SayNothingFits(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(QStringLiteral("This type of data can not paste!"));
}

void Refresh(DocumentWindow& window) {
    window.bTreeChanged = true;
    TreeChangeTextView(window);
    ShowListView(window);
    DoTree(window);
}

} // namespace

namespace {

// Indentation and line break of a node's old place would run into a text that is copied beside it.
QString WrittenAlone(TreeNode node) {
    const QString xml = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    return m_tvXML::GetKeyType(node) == kRowText ? xml : xml.trimmed();
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

void CopyListViewItems(DocumentWindow& window) try {
    Application& app = window.app;
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(window, attributes);
    if (nodes.isEmpty() && attributes.isEmpty())
        return;
    app.clipboardSource = &window;
    app.ClipboardSourceView = kViewList;
    window.msNodeClip = GetCurrentListViewKey(window);
    // Attributes beside nodes can't be told in one text that other programs read; here they go along.
    app.copiedText = nodes.isEmpty() ? attributes : nodes;
    app.copiedAttributes = attributes;
    app.services.clipboard.Clear();
    app.services.clipboard.SetText(app.copiedText);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".CopyListViewItems"));
}

void CutListViewItems(DocumentWindow& window) {
    CopyListViewItems(window);
    DeleteListViewItems(window);
}

bool AddAttributes(DocumentWindow& window, TreeNode element, const QString& attributes) {
    xml::ParsedDocument document;
    if (!document.loadXML(m_tvXML::NodeAttributesProbe(attributes, QStringLiteral("temp"))))
        return false;
    QStringList names, values, newNames, newValues;
    m_tvXML::GetAllAttributesNameAndValue(element.Tag(), names, values);
    m_tvXML::GetAllAttributesNameAndValue(m_tvXML::GenerateAttributeString(document.documentElement()),
                                          newNames, newValues);
    for (const QString& name : newNames) {
        if (names.contains(name)) {
            window.app.services.prompts.MsgBox(
                QStringLiteral("Can not set same attribute name at XML attribute list!"));
            return false;
        }
    }
    element.SetTag(JoinAttributes(names + newNames, values + newValues));
    window.bTreeChanged = true;
    return true;
}

void PasteListViewItems(DocumentWindow& window) try {
    Application& app = window.app;
    const QString text = app.services.clipboard.GetText();
    const TreeNode shown = window.tvXML.SelectedItem();
    if (text.isEmpty() || !shown)
        return;
    if (app.ClipboardSourceView == kViewTree && SelectedRowKind(window) == kRowElement) {
        PasteTreeNodeToListView(window);
        return;
    }
    // A copied text may read like attributes, and is a text all the same.
    const bool ownCopy = text == app.copiedText;
    const bool ownNodes = ownCopy && app.copiedText != app.copiedAttributes;
    if (!ownNodes && IsAttributeList(text)) {
        const TreeNode element = ElementForAttributes(window);
        if (!element)
            SayNothingFits(window);
        else if (AddAttributes(window, element, text))
            Refresh(window);
        return;
    }
    const bool root = m_tvXML::IsTreeRoot(shown);
    if (!root && m_tvXML::GetKeyType(shown) != kRowElement) {
        SayNothingFits(window);
        return;
    }
    const bool added = PasteXMLText(window, text, shown, true);
    if (added && ownCopy && !app.copiedAttributes.isEmpty() && !root)
        AddAttributes(window, shown, app.copiedAttributes);
    if (added)
        Refresh(window);
    else if (!app.lastParseError) // else the parser's box has told it
        SayNothingFits(window);
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
    if (!window.app.clipboardSource)
        return;
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(*window.app.clipboardSource, attributes);
    window.TextInUse().SetSelText(nodes.isEmpty() ? attributes : nodes);
}
