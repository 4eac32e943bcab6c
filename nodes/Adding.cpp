// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/Adding.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "nodes/ListRows.h"
#include <utility>

namespace nodes {

namespace {

using controls::TreeNode;

struct Added {
    QString key, attribute;
    Origin origin;
    Bond bond; ///< as it was before
};

Added& AddedTo(DocumentWindow& window) {
    return window.rooms.of<Added>();
}

void Remove(DocumentWindow& window, TreeNode node, const QString& attribute) {
    if (attribute.isEmpty()) {
        window.tvXML.Nodes.Remove(node);
        return;
    }
    m_tvXML::Attributes all(node);
    all.remove(attribute);
    node.SetTag(all.tag());
}

} // namespace

Origin OriginOf(DocumentWindow& window) {
    const TreeNode node = window.tvXML.SelectedItem();
    const int row = window.ListView1.SelectedItem();
    return {node ? node.Key() : QString(), row > 0 ? window.ListView1.Item(row).Key : QString()};
}

void BeginAdding(DocumentWindow& window, const Origin& origin, const QString& key, const QString& attribute) {
    AddedTo(window) = {key, attribute, origin, window.bond};
    edit::HoldText(window, true);
}

bool IsAdding(DocumentWindow& window, const QString& key) {
    return !key.isEmpty() && AddedTo(window).key == key;
}

void EndAdding(DocumentWindow& window) {
    AddedTo(window) = {};
    edit::HoldText(window, false);
}

void TakeBackAdding(DocumentWindow& window) {
    const Added added = AddedTo(window);
    const TreeNode node = window.tvXML.Nodes.Find(added.key);
    EndAdding(window);
    if (!node)
        return;
    const bool unwritten = window.bond.bTreeChanged();
    edit::Run(window, "TakeBackAdding", [&] {
        Remove(window, node, added.attribute);
        if (unwritten) { // the text, which may be written in another way, says the same as the tree again
            window.bond.takeTreeBack(added.bond);
            window.bond.passTree(window.tvXML.Revision());
        }
        if (const TreeNode before = window.tvXML.Nodes.Find(added.origin.node))
            window.tvXML.SetSelectedItem(before);
        edit::Then(window, [&window, key = added.origin.row] {
            if (edit::Shows(window, edit::kListTab))
                SelectOnlyRow(window, key.isEmpty() ? 0 : window.ListView1.IndexOf(key));
        });
    });
}

} // namespace nodes
