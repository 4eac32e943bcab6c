// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactLabels.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/NodeKind.h"
#include "schema/CompactAttributes.h"
#include "schema/CompactContent.h"
#include "schema/CompactList.h"
#include "schema/CompactNavigation.h"
#include "schema/CompactState.h"
#include "schema/SampleAttributes.h"
#include "schema/SampleWalk.h"

namespace schema {

namespace {

using controls::TreeNode;

// --- whether a name can be taken ---------------------------------------------------------------------------

bool HasNoPrefix(DocumentWindow& window, const QString& name) {
    if (name.contains(u':'))
        edit::Message(window.app, QStringLiteral("A name that is declared has no prefix."));
    return !name.contains(u':');
}

bool HaveSameNameAttributeAtListView(DocumentWindow& window, int row, const QString& name) {
    const controls::ListView& list = CompactOf(window).lvRes;
    for (int at = 1; at <= list.Count(); ++at) {
        if (at != row && list.Item(at).SmallIcon == m_tvXML::kAttribute && list.Item(at).Text == name)
            return true;
    }
    return false;
}

bool TakesElementName(DocumentWindow& window, QString& name, bool added) {
    if (name.isEmpty() && added)
        name = QStringLiteral("Unnamed");
    return HasNoPrefix(window, name) && edit::ValidateNodeName(window.app, name);
}

bool TakesAttributeName(DocumentWindow& window, int row, const QString& name) {
    const TreeNode element = CompactOf(window).tvRes.SelectedItem();
    if (!HasNoPrefix(window, name) || !edit::ValidateNodeAttributeName(window.app, name, element.Text()))
        return false;
    const bool twice = HaveSameNameAttributeAtListView(window, row, name);
    if (twice)
        SayAttributeIsThere(window);
    return !twice;
}

bool IsAdded(DocumentWindow& window, const QString& key) {
    return CompactOf(window).adding.kind != NewInstanceNode::Nothing && CompactOf(window).adding.key == key;
}

// It is written when the label has closed: then the instance is built anew.
void Accept(DocumentWindow& window, const QString& key, const QString& name) {
    CompactOf(window).namedKey = key;
    CompactOf(window).newName = name;
}

// --- what a name does --------------------------------------------------------------------------------------

void WriteAdded(DocumentWindow& window, const NewInstanceNode& added, const QString& name) {
    CompactState& state = CompactOf(window);
    const TreeNode declaration = RelatedMainTreeNode(window, state.tvRes.Nodes.Find(added.under));
    TreeNode made;
    if (added.under.isEmpty())
        made = AddNewNodeToMainTreeFromCVTree(window, name);
    else if (declaration && added.kind == NewInstanceNode::Attribute)
        AddNewAttrAtMainTree(window, declaration, name);
    else if (declaration)
        made = AddNewElementAtMainTree(window, declaration, name);
    state.wantedKey = made ? made.Key() : QString();
    state.wantedRow = added.kind == NewInstanceNode::Attribute ? name : QString();
}

void ChangeMainTreeElementByName(DocumentWindow& window, TreeNode compactNode, const QString& name) {
    if (const TreeNode declaration = RelatedMainTreeNode(window, compactNode))
        RenameDeclaration(window, declaration, name);
}

void ChangeMainTreeAttributeByAttrName(DocumentWindow& window, const QString& before, const QString& name) {
    const TreeNode element = RelatedMainTreeNode(window, CompactOf(window).tvRes.SelectedItem());
    const TreeNode declaration = FindAttribute(element, before, GlobalDeclarations(window.tvXML)).declaration;
    if (declaration && RenameDeclaration(window, declaration, name))
        CompactOf(window).wantedRow = name;
}

/// Runs what writes a name. The keys stay where the label was.
template <typename Control, typename Act>
void Write(DocumentWindow& window, Control& control, const char* routine, Act act) {
    CompactState& state = CompactOf(window);
    const QString key = std::exchange(state.namedKey, {}), name = std::exchange(state.newName, {});
    if (key.isEmpty())
        return;
    edit::Run(window, routine, [&] {
        edit::Message(window.app, {});
        BuildInstanceAnew(window);
        const NewInstanceNode added = std::exchange(state.adding, {});
        if (added.kind != NewInstanceNode::Nothing)
            WriteAdded(window, added, name);
        else
            act(key, name);
        edit::Then(window, [&control] { control.SetFocus(); });
    });
}

// What was being added stands in the view alone.
template <typename Control> void GiveUp(DocumentWindow& window, Control& control) {
    if (CompactOf(window).adding.kind == NewInstanceNode::Nothing)
        return;
    edit::Run(window, kCompactRoutine, [&] {
        BuildInstanceAnew(window);
        edit::Then(window, [&control] { control.SetFocus(); });
    });
}

// --- the tree ----------------------------------------------------------------------------------------------

void tvRes_AfterLabelEdit(DocumentWindow& window, TreeNode node, bool& cancel, QString& name) {
    const bool added = IsAdded(window, node.Key());
    cancel = (name.isEmpty() && !added) || !TakesElementName(window, name, added);
    if (!cancel)
        Accept(window, node.Key(), name);
    else if (!name.isEmpty())
        CompactOf(window).tvRes.KeepLabelEdit();
}

void ConnectTreeLabels(DocumentWindow& window) {
    controls::TreeView& tree = CompactOf(window).tvRes;
    tree.BeforeLabelEdit.connect([&tree](bool& cancel) {
        cancel = cancel || KindInInstance(tree.SelectedItem()) != m_tvXML::kElement;
    });
    tree.LabelTyped.connect([&window](const QString& text) {
        edit::ComplainWhileTyping(window.app, text.isEmpty() ? QString() : m_tvXML::NodeNameProbe(text), 0);
    });
    tree.AfterLabelEdit.connect([&window](TreeNode node, bool& cancel, QString& name) {
        edit::Guarded(window, "tvRes_AfterLabelEdit",
                      [&] { tvRes_AfterLabelEdit(window, node, cancel, name); });
    });
    tree.LabelEdited.connect([&window, &tree] {
        Write(window, tree, "tvRes_AfterLabelEdit", [&](const QString& key, const QString& name) {
            ChangeMainTreeElementByName(window, tree.Nodes.Find(key), name);
        });
    });
    tree.LabelGivenUp.connect([&window, &tree](TreeNode) { GiveUp(window, tree); });
}

// --- the list ----------------------------------------------------------------------------------------------

void lvres_BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    const controls::ListItem row = CurrentRow(window);
    if (row.SmallIcon == m_tvXML::kAttribute && IsAboutTheInstance(row.Text)) {
        edit::Message(window.app, QStringLiteral("The schema doesn't declare this attribute."));
        cancel = true;
    }
    cancel = cancel || (row.SmallIcon != m_tvXML::kAttribute && row.SmallIcon != m_tvXML::kElement);
}

void lvres_AfterLabelEdit(DocumentWindow& window, int row, bool& cancel, QString& name) {
    CompactState& state = CompactOf(window);
    const controls::ListItem item = state.lvRes.Item(row);
    const bool added = IsAdded(window, item.Key), attribute = item.SmallIcon == m_tvXML::kAttribute;
    const bool givenUp = name.isEmpty() && !added;
    cancel = givenUp ||
             !(attribute ? TakesAttributeName(window, row, name) : TakesElementName(window, name, added));
    if (!cancel)
        Accept(window, item.Key, name);
    else if (!givenUp)
        state.lvRes.KeepLabelEdit();
}

void ConnectListLabels(DocumentWindow& window) {
    controls::ListView& list = CompactOf(window).lvRes;
    list.BeforeLabelEdit.connect([&window](bool& cancel) { lvres_BeforeLabelEdit(window, cancel); });
    list.LabelTyped.connect([&window](const QString& text) {
        edit::ComplainWhileTyping(window.app, text.isEmpty() ? QString() : m_tvXML::NodeNameProbe(text), 0);
    });
    list.AfterLabelEdit.connect([&window](int row, bool& cancel, QString& name) {
        edit::Guarded(window, "lvres_AfterLabelEdit",
                      [&] { lvres_AfterLabelEdit(window, row, cancel, name); });
    });
    list.LabelEdited.connect([&window, &list] {
        // A new name that is the one it was given needn't be accepted.
        const CompactState& state = CompactOf(window);
        if (state.namedKey.isEmpty() && state.adding.kind == NewInstanceNode::Attribute)
            Accept(window, state.adding.key, list.Item(state.adding.key).Text);
        const controls::ListItem row = CurrentRow(window);
        const QString before = row.Key.section(u'/', 1);
        Write(window, list, "lvres_AfterLabelEdit", [&](const QString& key, const QString& name) {
            if (row.SmallIcon == m_tvXML::kAttribute)
                ChangeMainTreeAttributeByAttrName(window, before, name);
            else
                ChangeMainTreeElementByName(window, CompactOf(window).tvRes.Nodes.Find(key), name);
        });
    });
    list.LabelGivenUp.connect([&window, &list](int) { GiveUp(window, list); });
}

} // namespace

void ConnectCompactLabels(DocumentWindow& window) {
    ConnectTreeLabels(window);
    ConnectListLabels(window);
}

} // namespace schema
