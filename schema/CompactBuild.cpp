// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactBuild.h"
#include "core/edit/Report.h"
#include "schema/CompactList.h"
#include "schema/CompactState.h"
#include "schema/KeptInstance.h"
#include "schema/SampleDocument.h"
#include "schema/SampleWalk.h"

namespace schema {

namespace {

using controls::TreeNode;

bool StandsFor(const QString& compactKey, const QString& declaration) {
    return GetRealKey(compactKey) == declaration;
}

/// The element of a declaration: below the selected one, as the same declaration may stand elsewhere, too.
TreeNode ElementOf(const controls::TreeView& tree, const QString& declaration) {
    const TreeNode selected = tree.SelectedItem();
    if (!selected || StandsFor(selected.Key(), declaration))
        return selected;
    TreeNode child = selected.Child();
    while (child && !StandsFor(child.Key(), declaration))
        child = child.Next();
    return child ? child : tree.Nodes.Find(declaration);
}

int RowOf(const controls::ListView& list, const QString& declaration) {
    int row = list.Count();
    while (row > 0 && !StandsFor(list.Item(row).Key, declaration))
        --row;
    return row;
}

// What an edit has made is selected where the user looks.
void SelectWanted(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const QString wanted = std::exchange(state.wantedKey, {});
    TreeNode found = wanted.isEmpty() ? TreeNode() : ElementOf(state.tvRes, wanted);
    if (!wanted.isEmpty() && !found)
        edit::Message(window.app, QStringLiteral("The schema has it; this sample doesn't show it."));
    if (found && !state.listInUse) {
        found.EnsureVisible();
        state.tvRes.SetSelectedItem(found);
    }
    FillResultList(window);
    if (const int row = found && state.listInUse ? RowOf(state.lvRes, wanted) : 0)
        SelectResultRow(window, row);
    SelectAttributeRow(window, std::exchange(state.wantedRow, {}));
}

} // namespace

void BuildInstance(DocumentWindow& window, bool tell) {
    CompactState& state = CompactOf(window);
    state.builtRevision = window.tvXML.Revision();
    state.adding = {};
    {
        const controls::TreeUpdate update(state.tvRes);
        const KeptInstance kept(state.tvRes);
        state.references = TreeToCompactTree(window, state.tvRes, tell);
        kept.restoreIn(state.tvRes);
    }
    SelectWanted(window);
}

} // namespace schema
