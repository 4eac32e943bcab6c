// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/GlobalDeclarations.h"
#include "core/model/AttributeWalk.h"
#include "core/model/NodeKind.h"
#include "schema/SchemaState.h"
#include <string_view>

namespace schema {

using controls::TreeNode;

namespace {

// Without a copy of anything: a schema is asked this a hundred thousand times.
bool IsLocalPart(text::CompactView name, const char* localName) {
    std::uint32_t from = 0;
    while (from < name.length && name.at(from) != u':')
        ++from;
    from = from < name.length ? from + 1 : 0;
    const std::string_view wanted(localName);
    if (name.length - from != wanted.size())
        return false;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (name.at(from + static_cast<std::uint32_t>(i)) != static_cast<char16_t>(wanted[i]))
            return false;
    }
    return true;
}

} // namespace

QString AttributeValue(TreeNode node, const QString& name) {
    if (!node)
        return {};
    m_tvXML::AttributeWalk walk(node.TagView());
    while (walk.next()) {
        if (walk.name() == QStringView(name))
            return walk.value().toString();
    }
    return {};
}

bool IsNamed(TreeNode node, const char* localName) {
    return node && node.Parent() && node.KeyKind() == m_tvXML::kElement &&
           IsLocalPart(node.TextView(), localName);
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
