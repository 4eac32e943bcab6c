// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/OpenNodes.h"
#include "core/model/NodeKind.h"
#include <utility>

namespace m_tvXML {

using controls::TreeNode;

// A tree's nodes share the storage of a name, so each is looked up once.
class OpenNodes::Sorts {
public:
    explicit Sorts(QHash<QString, int>& names) : names_(names) {}
    Sort of(TreeNode node) {
        const int kind = GetKeyType(node);
        const auto type = static_cast<Sort>(static_cast<std::uint32_t>(kind)) << 32;
        return kind == kText ? type : type | static_cast<std::uint32_t>(numberOf(node));
    }

private:
    int numberOf(TreeNode node) {
        const auto known = numbers_.constFind(node.TextId());
        if (known != numbers_.constEnd())
            return *known;
        const QString name = node.Text();
        if (!names_.contains(name))
            names_.insert(name, static_cast<int>(names_.size()));
        return *numbers_.insert(node.TextId(), names_.value(name));
    }

    QHash<QString, int>& names_;
    QHash<text::StringPool::Ref, int> numbers_;
};

OpenNodes::OpenNodes(const controls::TreeView& tree) {
    const TreeNode root = tree.Nodes.Count() > 0 ? tree.Nodes(1) : TreeNode();
    if (!root || !root.Expanded())
        return;
    Sorts sorts(names_);
    std::vector<TreeNode> nodes{root};
    open_.push_back({0, 0, 1});
    for (std::size_t i = 0; i < nodes.size(); ++i)
        collectBelow(nodes[i], i, sorts, nodes);
}

void OpenNodes::collectBelow(TreeNode node, std::size_t number, Sorts& sorts, std::vector<TreeNode>& nodes) {
    QHash<Sort, int> places;
    for (TreeNode child = node.Child(); child; child = child.Next()) {
        const Sort sort = sorts.of(child);
        const int place = ++places[sort];
        if (!child.Expanded())
            continue;
        nodes.push_back(child);
        open_.push_back({number, sort, place});
    }
}

void OpenNodes::openIn(controls::TreeView& tree) const {
    if (open_.empty() || tree.Nodes.Count() == 0)
        return;
    QHash<QString, int> names = names_;
    Sorts sorts(names);
    std::vector<TreeNode> found(open_.size());
    found.front() = tree.Nodes(1);
    std::size_t next = 1;
    for (std::size_t i = 0; i < found.size(); ++i) {
        QHash<std::pair<Sort, int>, std::size_t> wanted;
        for (; next < open_.size() && open_[next].parent == i; ++next)
            wanted.insert({open_[next].sort, open_[next].place}, next);
        if (!found[i])
            continue;
        found[i].SetExpanded(true);
        QHash<Sort, int> places;
        for (TreeNode child = found[i].Child(); child && !wanted.isEmpty(); child = child.Next()) {
            const Sort sort = sorts.of(child);
            const auto match = wanted.constFind({sort, ++places[sort]});
            if (match == wanted.constEnd())
                continue;
            found[*match] = child;
            wanted.erase(match);
        }
    }
}

} // namespace m_tvXML
