// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/m_tvXML.h"
#include "core/model/DocumentWindow.h"
#include "platform/text/TextTools.h"

namespace m_tvXML {

namespace {

constexpr int kElement = 1;
constexpr int kText = 3;

// The node behind `node` in document order that lies below `top`; nothing at the end.
TreeNode NextBelow(TreeNode node, TreeNode top) {
    if (const TreeNode child = node.Child())
        return child;
    while (node != top) {
        if (const TreeNode next = node.Next())
            return next;
        node = node.Parent();
    }
    return {};
}

bool IsNumbered(TreeNode node) {
    return GetKeyType(node) != kText;
}

} // namespace

QString GetDistinctElementKey(Application& app, int nodeType) {
    return u'<' + QString::number(nodeType) + u'>' + QString::number(++app.ElementKeyCounter);
}

int GetKeyType(const QString& key) {
    if (!key.contains(u'<'))
        return 0;
    QStringView rest(key);
    if (rest.indexOf(u'=') > 0)
        rest = rest.mid(rest.lastIndexOf(u'=') + 1);
    const qsizetype open = rest.indexOf(u'<');
    if (open < 0)
        return 0;
    const qsizetype close = rest.indexOf(u'>', open);
    if (close < 0)
        return 0;
    return text::ValInt16(rest.mid(open + 1, close - open - 1));
}

int GetKeyType(TreeNode node) {
    const int kind = node.KeyKind();
    return kind >= 0 ? kind : GetKeyType(node.Key());
}

bool IsTreeRoot(TreeNode node) {
    return node && node.Root() == node;
}

int GetNodeLevel(TreeNode node) {
    if (!node)
        return 0;
    int level = 1;
    const TreeNode root = node.Root();
    for (TreeNode above = node.Parent(); above && above != root; above = above.Parent())
        ++level;
    return level;
}

bool HaveElementNode(TreeNode node, TreeNode& found) {
    if (!node)
        return false;
    for (TreeNode sibling = node.FirstSibling(); sibling; sibling = sibling.Next()) {
        if (GetKeyType(sibling) == kElement) {
            found = sibling;
            return true;
        }
    }
    return false;
}

bool HaveElementNodeAtXMLRootLevel(DocumentWindow& window) {
    if (window.tvXML.Nodes.Count() == 0)
        return false;
    TreeNode found;
    return HaveElementNode(window.tvXML.Nodes(1).Child(), found);
}

long GetAllChildNodeNumber(TreeNode node) {
    if (!node)
        return 0;
    long number = 0;
    for (TreeNode below = node.Child(); below; below = NextBelow(below, node))
        number += IsNumbered(below) ? 1 : 0;
    return number;
}

long GetBeforeNodeNumber(Application& app, TreeNode node) {
    long number = 0;
    while (node) {
        ++number;
        for (TreeNode before = node.Previous(); before; before = before.Previous()) {
            if (IsNumbered(before))
                number += 1 + GetAllChildNodeNumber(before);
        }
        node = node.Parent();
        if (node && node.KeyKind() < 0 && node.Key() == app.CurrentFileName)
            break;
    }
    return number;
}

TreeNode GetNodeByNumber(Application& app, long number, TreeNode node) {
    if (!node)
        return {};
    for (TreeNode below = node.Child(); below; below = NextBelow(below, node)) {
        if (!IsNumbered(below))
            continue;
        if (++app.NodeWalkCounter >= number) {
            app.NodeWalkCounter = 0;
            return below;
        }
    }
    return {};
}

QString Truncate(const QString& text, int length) {
    if (text.size() <= length)
        return text;
    return text.left(std::max(length, 0)) + QStringLiteral("...");
}

void SetTextNodeDisplay(Application& app, TreeNode node) {
    if (node)
        node.Owner()->SetTextFromTag(node, static_cast<std::uint32_t>(std::max(app.options.TreeNodeTextShowLength, 0)));
}

QString GetPureName(const QString& name, QString& prefix) {
    if (text::Trim(name).isEmpty())
        return {};
    const qsizetype colon = name.indexOf(u':');
    if (colon < 0)
        return name;
    prefix = name.left(colon);
    return name.mid(colon + 1);
}

int GetAllAttributesNameAndValue(const QString& tag, QStringList& names, QStringList& values) {
    names.clear();
    values.clear();
    if (tag.isEmpty())
        return 0;
    const QStringList pieces = tag.split(u'"');
    int i = 0;
    for (; i < pieces.size(); i += 2) {
        const QString piece = text::Trim(pieces[i]);
        if (piece.isEmpty())
            continue;
        names.append(piece.chopped(1));
        values.append(i + 1 < pieces.size() ? pieces[i + 1] : QString());
    }
    return i;
}

} // namespace m_tvXML
