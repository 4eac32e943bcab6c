// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListCommit.h"
#include "core/model/Frame.h"
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"
#include "nodes/fill/ShowListView.h"
#include <QRegularExpression>

// What becomes of the text of the list's cell editor.

namespace {

using controls::TreeNode;

constexpr int kTextColumn = 2;

int EditedColumn(DocumentWindow& window) {
    return window.txtListView.Tag == QStringLiteral("2") ? kTextColumn : 1;
}

// The element that a row's attribute or text belongs to, as the checks name it.
QString OwnerName(TreeNode node) {
    const TreeNode owner = node ? node.Parent() : TreeNode();
    return owner && !m_tvXML::IsTreeRoot(owner) ? owner.Text() : QString();
}

} // namespace

QString CDataProbe(const QString& text) {
    return QStringLiteral("<temp><![CDATA[") + text + QStringLiteral("]]></temp>");
}

bool PassesProbe(Application& app, const QString& probe) {
    std::shared_ptr<xml::ParsedDocument> document;
    return mXMLEdit::LoadXMLDocFromString(app, probe, document, false);
}

QString PlainAttributes(const QString& typed) {
    static const QRegularExpression plain(QStringLiteral("^(?:[^\\s=\"']+=\"[^\"]*\"(?: |$))*$"));
    if (plain.match(typed).hasMatch())
        return typed;
    xml::ParsedDocument document;
    // The probe's own element carries no declarations, and none are needed to read attributes as written.
    if (!document.loadXML(QStringLiteral("<temp ") + typed + QStringLiteral(" />")))
        return typed;
    return m_tvXML::GenerateAttributeString(document.documentElement());
}

namespace {

// The children of the element change with its text; the list stays on the node it shows.
bool CommitElementText(DocumentWindow& window, int row, TreeNode element, const QString& newText) {
    QString key;
    GetFirstNodeText(element, key);
    TreeNode child = window.tvXML.Nodes.Find(key);
    const TreeNode shown = window.tvXML.SelectedItem();
    if (child && newText.isEmpty()) {
        DeleteTreeNode(window, child);
    } else {
        if (!m_tvXML::ValidateNodeText(window.app, newText, element.Text()))
            return false;
        if (child) {
            child.SetTag(newText);
            m_tvXML::SetTextNodeDisplay(window.app, child);
        } else {
            window.tvXML.SetSelectedItem(element);
            AddNewTreeNodeText(window, true, true, newText);
        }
    }
    window.tvXML.SetSelectedItem(shown);
    // Where a text went, the element's next one comes to show.
    window.ListView1.SetSubItem(row, 2, GetFirstNodeText(element, key));
    return true;
}

bool CommitValue(DocumentWindow& window, int row, TreeNode node, const QString& newText) {
    Application& app = window.app;
    controls::ListView& list = window.ListView1;
    const controls::ListItem item = list.Item(row);
    switch (item.SmallIcon) {
    case kRowElement: {
        if (!m_tvXML::ValidateNodeAttributes(app, newText, node.Text(), true))
            return false;
        const QString attributes = PlainAttributes(newText);
        node.SetTag(attributes);
        list.SetSubItem(row, 1, attributes);
        return true;
    }
    case kRowAttribute:
        if (!m_tvXML::ValidateNodeAttributeValue(app, newText, node.Text(), item.Text))
            return false;
        list.SetSubItem(row, 1, newText);
        node.SetTag(GetAttrsFromListViewAllItems(window));
        return true;
    case kRowText:
        if (!m_tvXML::ValidateNodeText(app, newText, OwnerName(node)))
            return false;
        node.SetTag(newText);
        m_tvXML::SetTextNodeDisplay(app, node);
        list.SetSubItem(row, 1, newText);
        return true;
    case kRowCData:
        if (!PassesProbe(app, CDataProbe(newText)))
            return false;
        break;
    default: // instructions and comments are taken as they are typed
        break;
    }
    node.SetTag(newText);
    list.SetSubItem(row, 1, newText);
    return true;
}

TreeNode NodeOfRow(DocumentWindow& window, const controls::ListItem& item) {
    return window.tvXML.Nodes.Find(item.SmallIcon == kRowAttribute ? item.Tag : item.Key);
}

} // namespace

QString ListCellProbe(DocumentWindow& window, const QString& text) {
    const int row = window.ListView1.IndexOf(window.msListEditKey);
    if (row == 0)
        return {};
    const controls::ListItem& item = window.ListView1.Item(row);
    const TreeNode node = NodeOfRow(window, item);
    if (!node)
        return {};
    if (EditedColumn(window) == kTextColumn)
        return m_tvXML::NodeTextProbe(text, node.Text());
    switch (item.SmallIcon) {
    case kRowElement:
        return m_tvXML::NodeAttributesProbe(text, node.Text());
    case kRowAttribute:
        return m_tvXML::NodeAttributeValueProbe(text, node.Text(), item.Text);
    case kRowText:
        return m_tvXML::NodeTextProbe(text, OwnerName(node));
    case kRowCData:
        return CDataProbe(text);
    default:
        return {};
    }
}

void txtListView_LostFocus(DocumentWindow& window) try {
    if (!window.mbIsEditValue)
        return;
    window.mbIsEditValue = false; // a message takes the focus away once more
    if (window.app.frame)
        window.app.frame->StatusBar1().SetPanel(1, {});
    const QString newText = window.txtListView.Text();
    const int column = EditedColumn(window);
    const int row = window.ListView1.IndexOf(window.msListEditKey);
    const TreeNode node = row > 0 ? NodeOfRow(window, window.ListView1.Item(row)) : TreeNode();
    bool written = false;
    if (node && window.ListView1.Item(row).Sub[static_cast<std::size_t>(column - 1)] != newText)
        written = column == kTextColumn ? CommitElementText(window, row, node, newText)
                                        : CommitValue(window, row, node, newText);
    if (written) {
        window.bTreeChanged = true;
        TreeChangeTextView(window, true); // also a text that was emptied
        DoTree(window);
    }
    CancelListViewTextBox(window);
} catch (const text::Fault& fault) {
    CancelListViewTextBox(window);
    ErrorReportBox(window.app, fault, QStringLiteral("frmXMLEdit.txtListView_LostFocus error."));
}
