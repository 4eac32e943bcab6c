// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <vector>

namespace m_tvXML {

/// Which nodes of a tree are open. In a tree that is built anew they are found by their places: kind and
/// name, and the place among the siblings that agree in both.
class OpenNodes {
public:
    explicit OpenNodes(const controls::TreeView& tree);
    /// Opens what stands at the same places in a tree, as far as the way down to it is there.
    void openIn(controls::TreeView& tree) const;

private:
    /// Kind and name as one number, the same in both trees.
    using Sort = std::uint64_t;
    /// An open node. The first is the root; those below a node stand together.
    struct Open {
        std::size_t parent; ///< place in the list
        Sort sort;
        int place; ///< 1-based, among the siblings of that sort
    };
    class Sorts;
    void collectBelow(controls::TreeNode node, std::size_t number, Sorts& sorts,
                      std::vector<controls::TreeNode>& nodes);

    std::vector<Open> open_;
    QHash<QString, int> names_;
};

} // namespace m_tvXML
