// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/CopyNodes.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "platform/controls/TreeCursor.h"
#include <optional>
#include <vector>

namespace nodes {

namespace {

using controls::TreeNode;

// Copies of more nodes are announced as a whole: a widget would follow them one by one.
constexpr int kAnnouncedOneByOne = 2000;

bool IsLarge(TreeNode source) {
    const controls::TreeCursor top(source);
    int count = 0;
    for (controls::TreeCursor below = top.firstChild(); below; below = below.nextBelow(top)) {
        if (++count > kAnnouncedOneByOne)
            return true;
    }
    return false;
}

TreeNode CopyOne(DocumentWindow& window, TreeNode source, TreeNode relative, int relationship) {
    TreeNode copy = window.tvXML.Nodes.Add(
        relative, relationship, m_tvXML::GetDistinctElementKey(window.app, m_tvXML::GetKeyType(source)),
        source.Text(), source.Image(), source.SelectedImage());
    copy.SetTag(source.Tag());
    return copy;
}

// Without recursion: a document may be deeper than the stack. What is below the source is listed first, since
// the copy may stand in there itself.
TreeNode CopyBranch(DocumentWindow& window, TreeNode source, TreeNode relative, int relationship) {
    struct Step {
        TreeNode node;
        std::size_t parent; ///< place of the parent in the list
    };
    std::vector<Step> branch{{source, 0}};
    for (std::size_t i = 0; i < branch.size(); ++i) {
        for (TreeNode child = branch[i].node.Child(); child; child = child.Next())
            branch.push_back({child, i});
    }
    std::optional<controls::TreeUpdate> quiet;
    if (IsLarge(source))
        quiet.emplace(window.tvXML);
    std::vector<TreeNode> copies;
    copies.reserve(branch.size());
    for (const Step& step : branch) {
        copies.push_back(copies.empty()
                             ? CopyOne(window, step.node, relative, relationship)
                             : CopyOne(window, step.node, copies[step.parent], controls::tvwChild));
    }
    for (std::size_t i = 0; i < copies.size(); ++i) { // behind the adding: a node opens over its children
        if (branch[i].node.Expanded())
            copies[i].SetExpanded(true);
    }
    return copies.front();
}

} // namespace

QString PasteNodetoNode(DocumentWindow& window, TreeNode source, TreeNode target) {
    if (!source || !target || source.Key() == target.Key())
        return {};
    return edit::Run(window, "PasteNodetoNode",
                     [&] { return CopyBranch(window, source, target, controls::tvwChild).Key(); });
}

TreeNode PasteNodetoNodeBehind(DocumentWindow& window, TreeNode source, TreeNode target) {
    return CopyBranch(window, source, target, controls::tvwNext);
}

TreeNode PasteNodetoNodeBeforeOrAfter(DocumentWindow& window, TreeNode source, bool before) {
    const TreeNode neighbour = before ? source.Previous() : source.Next();
    if (!neighbour || (before && m_tvXML::GetKeyType(neighbour) == m_tvXML::kInstruction))
        return {};
    return edit::Run(window, "PasteNodetoNodeBeforeOrAfter", [&] {
        return CopyBranch(window, source, neighbour, before ? controls::tvwPrevious : controls::tvwNext);
    });
}

} // namespace nodes
