// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/GlobalDeclarations.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "schema/SchemaState.h"

namespace schema {

using controls::TreeNode;

QString AttributeValue(TreeNode node, const QString& name) {
    if (!node)
        return {};
    const m_tvXML::Attributes all(node);
    const qsizetype at = all.find(name);
    return at < 0 ? QString() : all.value(at);
}

bool IsNamed(TreeNode node, const char* localName) {
    return m_tvXML::IsElement(node) && LocalName(node.Text()) == QLatin1String(localName);
}

TreeNode GetChildNodeByName(TreeNode node, const char* localName) {
    TreeNode child = node.Child();
    while (child && !IsNamed(child, localName))
        child = child.Next();
    return child;
}

GlobalDeclarations::GlobalDeclarations(const controls::TreeView& tree) {
    const TreeNode schema = GetSchemaNode(tree);
    for (TreeNode child = schema ? schema.Child() : TreeNode(); child; child = child.Next()) {
        const QString name =
            m_tvXML::IsElement(child) ? AttributeValue(child, QStringLiteral("name")) : QString();
        const QString key = LocalName(child.Text()) + u' ' + name;
        if (!name.isEmpty() && !byTagAndName_.contains(key))
            byTagAndName_.insert(key, child);
    }
}

TreeNode GlobalDeclarations::GetRefNode(const QString& name, const char* tagName) const {
    return byTagAndName_.value(QLatin1String(tagName) + QStringLiteral(" ") + LocalName(name));
}

TreeNode GlobalDeclarations::GetRefAttrNode(const QString& name) const {
    const TreeNode attribute = GetRefNode(name, "attribute");
    return attribute ? attribute : GetRefTypeNode(name);
}

} // namespace schema
