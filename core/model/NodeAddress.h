// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <vector>

namespace m_tvXML {

/// Where a node stands in its document, from the tree root down. A tree that is built anew has new keys; the
/// address leads to the node all the same.
class NodeAddress {
public:
    NodeAddress() = default;
    explicit NodeAddress(controls::TreeNode node); ///< nothing: that of the tree root
    explicit NodeAddress(xml::Node node);          ///< likewise, of a parsed document's node

    /// The node there; nothing when there is none.
    controls::TreeNode findIn(const controls::TreeView& tree) const;
    /// The same, or the nearest node above the place; nothing in an empty tree.
    controls::TreeNode nearestIn(const controls::TreeView& tree) const;

private:
    /// One step down: kind and name, and the 1-based place among the siblings that agree in both. Texts agree
    /// whatever they say.
    struct Step {
        int kind;
        QString name;
        int place;
    };
    static bool agrees(controls::TreeNode node, const Step& step);
    static controls::TreeNode childAt(controls::TreeNode parent, const Step& step);
    std::vector<Step> steps_;
};

} // namespace m_tvXML
