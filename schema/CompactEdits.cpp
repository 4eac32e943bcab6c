// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactEdits.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "nodes/KeepCopy.h"
#include "schema/CompactAttributes.h"
#include "schema/CompactCells.h"
#include "schema/CompactContent.h"
#include "schema/CompactList.h"
#include "schema/CompactNavigation.h"
#include "schema/CompactState.h"
#include "schema/SampleDocument.h"
#include "schema/SampleWalk.h"

namespace schema {

namespace {

using controls::TreeNode;
using m_tvXML::Attributes;

void Tell(DocumentWindow& window, const char* text) {
    edit::Message(window.app, QLatin1String(text));
}

/// The element that the list shows, or that a row of it stands for where the list is in use.
TreeNode SelectedElement(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const controls::ListItem row = state.listInUse ? CurrentRow(window) : controls::ListItem();
    TreeNode node = state.tvRes.SelectedItem();
    if (row.SmallIcon == m_tvXML::kElement)
        node = state.tvRes.Nodes.Find(row.Key);
    return node && KindInInstance(node) == m_tvXML::kText ? node.Parent() : node;
}

/// The node that is selected where the attention is; nothing for an attribute, and in a list without a
/// current row: the node beside it isn't meant.
TreeNode SelectedNode(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    return state.listInUse ? state.tvRes.Nodes.Find(CurrentRow(window).Key) : state.tvRes.SelectedItem();
}

/// The attribute's row that is selected; one of kind 0 without it.
controls::ListItem SelectedAttribute(DocumentWindow& window) {
    const controls::ListItem row = CurrentRow(window);
    const bool meant = CompactOf(window).listInUse && row.SmallIcon == m_tvXML::kAttribute;
    return meant ? row : controls::ListItem();
}

/// What takes an element into the schema at its place: the reference, or the declaration itself.
TreeNode ParticleOf(DocumentWindow& window, TreeNode compactNode) {
    const QString reference = CompactOf(window).references.value(compactNode.Key());
    return reference.isEmpty() ? RelatedMainTreeNode(window, compactNode)
                               : window.tvXML.Nodes.Find(reference);
}

// The neighbour is selected in the instance as it is now, and stays so when it is built anew.
void DeleteResNodeAndMainTreeNode(DocumentWindow& window, TreeNode compactNode) {
    if (const TreeNode particle = ParticleOf(window, compactNode))
        window.tvXML.Nodes.Remove(particle);
    CompactOf(window).tvRes.Nodes.Remove(compactNode);
    BuildInstanceAnew(window);
}

// Below what is open already, so that the new label can be seen.
TreeNode AddResNode(DocumentWindow& window, TreeNode parent) {
    CompactState& state = CompactOf(window);
    const QString picture = parent ? QStringLiteral("element") : QStringLiteral("xmlrootelement");
    TreeNode added = state.tvRes.Nodes.Add(parent, parent ? controls::tvwChild : 0,
                                           m_tvXML::GetDistinctElementKey(window.app, m_tvXML::kElement), {},
                                           picture, QStringLiteral("open") + picture);
    state.adding = {NewInstanceNode::Node, added.Key(), parent ? parent.Key() : QString()};
    added.EnsureVisible();
    state.tvRes.SetSelectedItem(added);
    return added;
}

void NameInTree(DocumentWindow& window, TreeNode parent) {
    AddResNode(window, parent);
    controls::TreeView& tree = CompactOf(window).tvRes;
    tree.SetFocus();
    tree.StartLabelEdit();
}

void NameInList(DocumentWindow& window, NewInstanceNode::Kind kind, const QString& name) {
    CompactState& state = CompactOf(window);
    const TreeNode element = state.tvRes.SelectedItem();
    const bool attribute = kind == NewInstanceNode::Attribute;
    const QString key = m_tvXML::GetDistinctElementKey(window.app, m_tvXML::kElement);
    const int row = state.lvRes.Add(key, name, attribute ? m_tvXML::kAttribute : m_tvXML::kElement);
    state.adding = {kind, key, element.Key()};
    SelectResultRow(window, row);
    state.lvRes.SetFocus();
    state.lvRes.EnsureVisible(row);
    state.lvRes.StartLabelEdit();
}

/// The list shows the element that is to be added to. Nothing without one.
TreeNode ShowSelectedElement(DocumentWindow& window) {
    const TreeNode element = SelectedElement(window);
    if (element && element != CompactOf(window).tvRes.SelectedItem()) {
        CompactOf(window).tvRes.SetSelectedItem(element);
        FillResultList(window);
    }
    return element;
}

QString FreeAttributeName(DocumentWindow& window) {
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("attr") + QString::number(number);
        if (FindAttributeAtListView(window, name) == 0)
            return name;
    }
}

bool WantsChildInstead(DocumentWindow& window) {
    return window.app.services.prompts.MsgBox(
               QStringLiteral("You already have one root node! Do you want to create a child node?"),
               services::Buttons::OkCancel) == services::Answer::Ok;
}

} // namespace

void AddNewNodeAtCV(DocumentWindow& window) {
    edit::Guarded(window, "AddNewNodeAtCV", [&] {
        CompactState& state = CompactOf(window);
        if (state.tvRes.Nodes.Count() > 0 && !state.tvRes.SelectedItem()) {
            if (!WantsChildInstead(window))
                return;
            state.tvRes.SetSelectedItem(state.tvRes.Nodes(1));
            FillResultList(window);
        }
        const TreeNode element = ShowSelectedElement(window);
        if (state.listInUse && element)
            NameInList(window, NewInstanceNode::Row, {});
        else
            NameInTree(window, element);
    });
}

void AddNewAttrAtCV(DocumentWindow& window) {
    edit::Guarded(window, "AddNewAttrAtCV", [&] {
        if (ShowSelectedElement(window))
            NameInList(window, NewInstanceNode::Attribute, FreeAttributeName(window));
    });
}

void AddNewNodeTextAtCV(DocumentWindow& window) {
    edit::Run(window, "AddNewNodeTextAtCV", [&] {
        if (const TreeNode declaration = RelatedMainTreeNode(window, SelectedElement(window)))
            GiveText(window, declaration);
    });
}

void EditAtCompactView(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    if (!state.listInUse)
        state.tvRes.StartLabelEdit();
    else if (state.lvRes.SelectedItem() > 0)
        state.lvRes.StartLabelEdit();
}

void EditValueAtCompactView(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    int row = state.lvRes.SelectedItem();
    for (int at = 1; row == 0 && at <= state.lvRes.Count(); ++at)
        row = state.lvRes.Item(at).SmallIcon == m_tvXML::kAttribute ? at : 0;
    if (row > 0)
        OpenResultCell(window, row, 1);
    else
        Tell(window, "The element has no attributes.");
}

void DeleteAtCompactView(DocumentWindow& window) {
    if (CompactOf(window).segmentInUse)
        return Tell(window, "The declaration can be read here, and copied.");
    edit::Run(window, "DeleteAtCompactView", [&] {
        const TreeNode node = SelectedNode(window);
        if (const controls::ListItem row = SelectedAttribute(window); row.SmallIcon > 0)
            DeletePropNameValueByKeyAtCV(window, CompactOf(window).tvRes.SelectedItem(), row.Text);
        else if (node && KindInInstance(node) == m_tvXML::kText)
            SayItIsASample(window);
        else if (node)
            DeleteResNodeAndMainTreeNode(window, node);
    });
}

void CopyAtCompactView(DocumentWindow& window) {
    edit::Guarded(window, "CopyAtCompactView", [&] {
        if (CompactOf(window).segmentInUse)
            return window.app.services.clipboard.SetText(CompactOf(window).rtxtSeg.SelText());
        if (const controls::ListItem row = SelectedAttribute(window); row.SmallIcon > 0) {
            const QString pair = Attributes::pair(row.Text, row.Sub[0]);
            return nodes::KeepCopy(window, edit::kViewCompact, row.Tag, pair, pair);
        }
        const TreeNode node = SelectedNode(window);
        if (node)
            nodes::KeepCopy(window, edit::kViewCompact, node.Key(), InstanceText(window.app, node), {});
    });
}

void CutAtCompactView(DocumentWindow& window) {
    CopyAtCompactView(window);
    DeleteAtCompactView(window);
}

} // namespace schema
