// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/KeptInstance.h"
#include "schema/SampleWalk.h"

namespace schema {

using controls::TreeNode;

namespace {

TreeNode Top(const controls::TreeView& tree) {
    return tree.Nodes.Count() == 0 ? TreeNode() : tree.Nodes(1);
}

TreeNode NextBelow(TreeNode node, TreeNode top) {
    if (node.Child())
        return node.Child();
    while (node != top && !node.Next())
        node = node.Parent();
    return node == top ? TreeNode() : node.Next();
}

} // namespace

// Of siblings that agree each has a number of its own.
KeptInstance::Places KeptInstance::placesOf(const controls::TreeView& tree) {
    Places places;
    QHash<std::size_t, std::size_t> counts;
    const TreeNode top = Top(tree);
    for (TreeNode node = top; node; node = NextBelow(node, top)) {
        const Place parent = node == top ? Place{0, 0} : places.value(node.Parent().Data());
        const auto numbered = [&](std::size_t above, const QString& name) {
            const std::size_t sort = qHashMulti(1, above, name);
            return qHashMulti(2, sort, counts[sort]++);
        };
        places.insert(node.Data(),
                      {numbered(parent.byKey, GetRealKey(node.Key())), numbered(parent.byName, node.Text())});
    }
    return places;
}

KeptInstance::KeptInstance(const controls::TreeView& tree) : empty_(tree.Nodes.Count() == 0) {
    const Places places = placesOf(tree);
    const TreeNode top = Top(tree);
    for (TreeNode node = top; node; node = NextBelow(node, top)) {
        if (!node.Expanded())
            continue;
        openByKey_.insert(places[node.Data()].byKey);
        openByName_.insert(places[node.Data()].byName);
    }
    for (TreeNode node = tree.SelectedItem(); node; node = node.Parent())
        selected_.push_back(places[node.Data()]);
    if (selected_.size() > 1) {
        row_ = tree.SelectedItem().Row();
        siblings_ = tree.SelectedItem().Parent().Children();
    }
}

TreeNode KeptInstance::selectedIn(const controls::TreeView& tree, const Places& places) const {
    for (std::size_t i = 0; i < selected_.size(); ++i) {
        const TreeNode found = nodeAt(tree, places, selected_[i]);
        const bool renamed = found && i == 1 && found.Children() == siblings_;
        if (found)
            return renamed ? tree.ChildAt(found, row_) : found;
    }
    return Top(tree);
}

TreeNode KeptInstance::nodeAt(const controls::TreeView& tree, const Places& places, const Place& wanted) {
    const TreeNode top = Top(tree);
    TreeNode byName;
    for (TreeNode node = top; node; node = NextBelow(node, top)) {
        const Place place = places[node.Data()];
        if (place.byKey == wanted.byKey)
            return node;
        if (place.byName == wanted.byName)
            byName = node;
    }
    return byName;
}

void KeptInstance::restoreIn(controls::TreeView& tree) const {
    const Places places = placesOf(tree);
    TreeNode top = Top(tree);
    for (TreeNode node = top; node; node = NextBelow(node, top)) {
        const Place place = places[node.Data()];
        if (openByKey_.contains(place.byKey) || openByName_.contains(place.byName))
            node.SetExpanded(true);
    }
    if (top && empty_)
        top.SetExpanded(true);
    tree.SetSelectedItem(selectedIn(tree, places));
}

} // namespace schema
