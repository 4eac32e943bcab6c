// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DragDrop.h"
#include "core/model/Serialise.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/ListRows.h"
#include "nodes/fill/ShowListView.h"
#include "textview/fill/Colour.h"
#include <algorithm>

namespace {

using controls::TreeNode;

bool FromTree(const QString& source) {
    return source == QStringLiteral("tvXML");
}

// The rows may be other nodes' by the time of the drop: their texts and the keys tell what is dragged.
bool IsDragged(DocumentWindow& window, const QString& source, TreeNode target) {
    if (FromTree(source))
        return window.tvXML.SelectedItem() == target;
    const QString key = target.Key();
    const std::vector<int> rows = window.ListView1.SelectedRows();
    return std::any_of(rows.begin(), rows.end(), [&](int row) {
        const controls::ListItem& item = window.ListView1.Item(row);
        return (item.SmallIcon == kRowAttribute ? item.Tag : item.Key) == key;
    });
}

void Refresh(DocumentWindow& window) {
    window.bTreeChanged = true;
    TreeChangeTextView(window);
    ShowListView(window);
    DoTree(window);
}

void SayNothingFits(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(QStringLiteral("This type of data can not paste!"));
}

// Either all of it goes in or the user is told why nothing did.
void DropRows(DocumentWindow& window, TreeNode target, bool onRoot) {
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(window, attributes);
    const bool element = m_tvXML::GetKeyType(target) == kRowElement;
    if (nodes.isEmpty() && attributes.isEmpty())
        return;
    if (!attributes.isEmpty() && !element) {
        SayNothingFits(window);
        return;
    }
    CopyListViewItems(window);
    if (!attributes.isEmpty() && !AddAttributes(window, target, attributes))
        return;
    if (!nodes.isEmpty())
        PasteXMLText(window, nodes, target, onRoot);
    Refresh(window);
}

void DropOn(DocumentWindow& window, const QString& source, TreeNode target, bool onRoot) {
    if (!target || IsDragged(window, source, target))
        return;
    if (!FromTree(source)) {
        DropRows(window, target, onRoot);
        return;
    }
    if (m_tvXML::IsTreeRoot(window.tvXML.SelectedItem())) // a document doesn't go into a part of itself
        return;
    CopyTreeNode(window);
    if (PasteXMLText(window, window.app.copiedText, target, onRoot))
        Refresh(window);
}

void DropOnPane(DocumentWindow& window, controls::RichTextBox& pane, const QString& text,
                qsizetype position) {
    if (text.isEmpty())
        return;
    const qsizetype at = std::clamp<qsizetype>(position, 0, pane.Long().size());
    pane.SetSelStart(at);
    pane.SetSelLength(0);
    pane.SetSelText(text);
    pane.SetSelStart(at);
    pane.SetSelLength(text.size());
    mXMLEdit::SetSeltextColor(window.app, pane);
}

} // namespace

QString DraggedText(DocumentWindow& window, const QString& source) {
    if (FromTree(source)) {
        const TreeNode node = window.tvXML.SelectedItem();
        if (!node || m_tvXML::IsTreeRoot(node))
            return {};
        return m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
    }
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(window, attributes);
    return nodes.isEmpty() ? attributes : nodes;
}

void tvXML_DragDrop(DocumentWindow& window, const QString& source, TreeNode target) try {
    DropOn(window, source, target, false);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_DragDrop"));
}

void ListView1_DragDrop(DocumentWindow& window, const QString& source, int row) try {
    TreeNode target = window.tvXML.SelectedItem();
    if (row > 0 && row <= window.ListView1.Count() && window.ListView1.Item(row).SmallIcon == kRowElement)
        target = window.tvXML.Nodes.Find(window.ListView1.Item(row).Key);
    DropOn(window, source, target, true);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".ListView1_DragDrop"));
}

void tvXML_OLEDragDrop(DocumentWindow& window, const QString& text, TreeNode target) try {
    if (!target || text.isEmpty())
        return;
    switch (m_tvXML::GetSelTextType(window.app, text)) {
    case m_tvXML::kSelTextDocument:
    case m_tvXML::kSelTextFragment:
        PasteXMLText(window, text, target, false);
        break;
    case m_tvXML::kSelTextAttributes:
        if (m_tvXML::GetKeyType(target) == kRowElement)
            AddAttributes(window, target, text);
        break;
    default:
        break;
    }
    DoTree(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_OLEDragDrop"));
}

void rtxtXML_DragDrop(DocumentWindow& window, const QString& text, qsizetype position) {
    DropOnPane(window, window.rtxtXML, text, position);
}

void rtxtXML2_DragDrop(DocumentWindow& window, const QString& text, qsizetype position) {
    DropOnPane(window, window.rtxtXML2, text, position);
}
