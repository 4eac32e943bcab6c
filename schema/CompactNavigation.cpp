// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactNavigation.h"
#include "core/edit/Guard.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "core/model/Serialise.h"
#include "schema/CompactList.h"
#include "schema/CompactState.h"
#include "schema/SampleAttributes.h"
#include "schema/SampleWalk.h"
#include "schema/SchemaState.h"
#include "textview/FillText.h"

namespace schema {

namespace {

using controls::TreeNode;

TreeNode NextInTree(TreeNode node) {
    if (node.Child())
        return node.Child();
    while (node && !node.Next())
        node = node.Parent();
    return node ? node.Next() : node;
}

/// The first node of the instance that a condition holds for.
template <typename Holds> TreeNode Find(const controls::TreeView& tree, Holds holds) {
    TreeNode node = tree.Nodes.Count() == 0 ? TreeNode() : tree.Nodes(1);
    while (node && !holds(node))
        node = NextInTree(node);
    return node;
}

/// The element of the instance that a node of the schema describes; of a named type the first one that has
/// it.
TreeNode NavToRelatedCVNode(DocumentWindow& window, TreeNode node) {
    const controls::TreeView& tree = CompactOf(window).tvRes;
    if (const TreeNode own = tree.Nodes.Find(node.Key()))
        return own;
    const QString key = node.Key();
    if (const TreeNode other = Find(tree, [&](TreeNode one) { return GetRealKey(one.Key()) == key; }))
        return other;
    const QString name = AttributeValue(node, QStringLiteral("name"));
    if (name.isEmpty() || !IsNamed(node.Parent(), "schema"))
        return {};
    return Find(tree, [&](TreeNode one) {
        const QString type = AttributeValue(RelatedMainTreeNode(window, one), QStringLiteral("type"));
        return !type.isEmpty() && LocalName(type) == name;
    });
}

void ShowText(DocumentWindow& window, TreeNode node) {
    controls::RichTextBox& segment = CompactOf(window).rtxtSeg;
    const QString text = m_tvXML::GetTreeNodesXML(node, QStringLiteral(" "));
    if (segment.Long() == text::LongText(text))
        return;
    segment.SetText(text);
    textview::ColourWhole(window.app, segment, textview::GetTextSizeLevel(text.size()));
}

// Both agree from here on, so what follows the document's current node leaves the instance alone.
void GoTo(DocumentWindow& window, TreeNode node) {
    ShowText(window, node);
    if (!node)
        return;
    edit::Run(window, kCompactRoutine, [&] {
        CompactOf(window).followedKey = node.Key();
        node.EnsureVisible();
        window.tvXML.SetSelectedItem(node);
    });
}

} // namespace

TreeNode RelatedMainTreeNode(DocumentWindow& window, TreeNode compactNode) {
    if (!compactNode)
        return {};
    const TreeNode related = window.tvXML.Nodes.Find(GetRealKey(compactNode.Key()));
    return !related && KindInInstance(compactNode) == m_tvXML::kText
               ? RelatedMainTreeNode(window, compactNode.Parent())
               : related;
}

TreeNode RelatedMainTreeRowNode(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const controls::ListItem row = CurrentRow(window);
    const TreeNode shown = RelatedMainTreeNode(window, state.tvRes.SelectedItem());
    if (row.SmallIcon != m_tvXML::kAttribute)
        return row.SmallIcon == 0 ? shown : RelatedMainTreeNode(window, state.tvRes.Nodes.Find(row.Key));
    const TreeNode declared = FindAttribute(shown, row.Text, GlobalDeclarations(window.tvXML)).declaration;
    return declared ? declared : shown;
}

void NavToRelatedMainTreeNode(DocumentWindow& window) {
    edit::Guarded(window, "NavToRelatedMainTreeNode", [&] {
        const TreeNode compactNode = CompactOf(window).tvRes.SelectedItem();
        const TreeNode node = RelatedMainTreeNode(window, compactNode);
        if (compactNode && !node)
            ErrorReportBox(window.app, {text::kFaultNotFound, QStringLiteral("Element not found")},
                           QStringLiteral("frmSXMLEdit.NavToRelatedMainTreeNode can not find node by "
                                          "destination tree!"));
        GoTo(window, node);
        FillResultList(window);
    });
}

void NavToRelatedMainTreeAttrNode(DocumentWindow& window) {
    edit::Guarded(window, "NavToRelatedMainTreeAttrNode",
                  [&] { GoTo(window, RelatedMainTreeRowNode(window)); });
}

void NavToRelated(DocumentWindow& window) {
    if (CompactOf(window).listInUse && CurrentRow(window).SmallIcon > 0)
        NavToRelatedMainTreeAttrNode(window);
    else
        NavToRelatedMainTreeNode(window);
}

void ShowSegment(DocumentWindow& window) {
    ShowText(window, RelatedMainTreeRowNode(window));
}

void NavToRelatedCVNodes(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const TreeNode current = window.tvXML.SelectedItem();
    if (!current || current == RelatedMainTreeRowNode(window) ||
        current == RelatedMainTreeNode(window, state.tvRes.SelectedItem()))
        return;
    QString attribute;
    for (TreeNode node = current; node && !m_tvXML::IsTreeRoot(node); node = node.Parent()) {
        if (IsNamed(node, "attribute") && attribute.isEmpty())
            attribute = AttributeValue(node, QStringLiteral("name"));
        const TreeNode found = NavToRelatedCVNode(window, node);
        if (!found)
            continue;
        state.tvRes.SetSelectedItem(found);
        FillResultList(window);
        SelectAttributeRow(window, attribute);
        ShowText(window, current);
        return;
    }
}

} // namespace schema
