// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeContent.h"
#include "core/model/Application.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "platform/text/TextTools.h"
#include <algorithm>

namespace m_tvXML {

NodeContent ContentOf(TreeNode node) {
    if (!node)
        return {};
    QString key;
    return {node.Text(), node.Tag(), IsElement(node) ? GetFirstNodeText(node, key) : QString()};
}

NodeContent ContentOf(TreeNode element, const QString& attribute) {
    if (!element)
        return {};
    const Attributes all(element);
    const qsizetype at = all.find(attribute);
    return at < 0 ? NodeContent() : NodeContent{attribute, all.value(at), {}};
}

TreeNode FirstTextChild(TreeNode node) {
    TreeNode child = node ? node.Child() : TreeNode();
    while (child && GetKeyType(child) != kText)
        child = child.Next();
    return child;
}

QString GetFirstNodeText(TreeNode node, QString& key) {
    const TreeNode child = FirstTextChild(node);
    key = child ? child.Key() : QString();
    return child ? child.Tag() : QString();
}

QString GetXmlNodeAllNodeText(xml::Node domNode) {
    QString text;
    if (!domNode)
        return text;
    for (xml::Node child = domNode.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::TEXT)
            text += child.nodeValue();
    }
    return text;
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

void SetNodeText(Application& app, TreeNode node, const QString& text) {
    node.SetTag(text);
    SetTextNodeDisplay(app, node);
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

} // namespace m_tvXML
