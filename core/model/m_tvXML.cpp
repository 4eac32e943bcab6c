// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/m_tvXML.h"
#include "core/model/DocumentWindow.h"
#include "platform/controls/TreeCursor.h"
#include "platform/text/TextTools.h"

namespace m_tvXML {

namespace {

constexpr int kElement = 1;
constexpr int kText = 3;

using controls::TreeCursor;

bool IsNumbered(TreeCursor node) {
    return node.kind() != kText;
}

// Numbered nodes below a place.
long NumberedBelow(TreeCursor top) {
    long number = 0;
    for (TreeCursor below = top.firstChild(); below; below = below.nextBelow(top))
        number += IsNumbered(below) ? 1 : 0;
    return number;
}

// The number that the digits in front make; 0 without one, and where 16 bits can't hold it.
int NumberInFront(QStringView text) {
    constexpr int kLargest = 32767;
    int number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            break;
        number = number * 10 + (c.unicode() - u'0');
        if (number > kLargest)
            return 0;
    }
    return number;
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
    return NumberInFront(rest.mid(open + 1, close - open - 1));
}

int GetKeyType(TreeNode node) {
    if (node && !node.Parent())
        return 0; // a document's name may look like a key
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
    return node ? NumberedBelow(TreeCursor(node)) : 0;
}

long GetBeforeNodeNumber(Application& app, TreeNode node) {
    long number = 0;
    for (TreeCursor at = node ? TreeCursor(node) : TreeCursor(); at; at = at.parent()) {
        if (number > 0 && !at.parent() && at.node().Key() == app.CurrentFileName)
            break;
        ++number;
        for (TreeCursor before = at.previous(); before; before = before.previous())
            number += IsNumbered(before) ? 1 + NumberedBelow(before) : 0;
    }
    return number;
}

TreeNode GetNodeByNumber(Application& app, long number, TreeNode node) {
    if (!node)
        return {};
    const TreeCursor top(node);
    for (TreeCursor below = top.firstChild(); below; below = below.nextBelow(top)) {
        if (!IsNumbered(below))
            continue;
        if (++app.NodeWalkCounter >= number) {
            app.NodeWalkCounter = 0;
            return below.node();
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
        node.Owner()->SetTextFromTag(
            node, static_cast<std::uint32_t>(std::max(app.options.TreeNodeTextShowLength, 0)));
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
        const qsizetype place = i / 2;
        names.resize(place + 1);
        values.resize(place + 1);
        names[place] = piece.chopped(1);
        values[place] = pieces.value(i + 1);
    }
    return i;
}

} // namespace m_tvXML
