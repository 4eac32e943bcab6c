// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaState.h"
#include "core/model/NodeContent.h"

namespace schema {

SchemaState& SchemaOf(DocumentWindow& window) {
    return window.rooms.of<SchemaState>();
}

QString Prefixed(DocumentWindow& window, const QString& name) {
    const QString& prefix = SchemaOf(window).msPrefix;
    return prefix.isEmpty() ? name : prefix + u':' + name;
}

controls::TreeNode GetSchemaNode(const controls::TreeView& tree) {
    if (tree.Nodes.Count() == 0)
        return {};
    for (controls::TreeNode child = tree.Nodes(1).Child(); child; child = child.Next()) {
        if (LocalName(child.Text()) == QStringLiteral("schema"))
            return child;
    }
    return {};
}

QString LocalName(const QString& name) {
    QString prefix;
    return m_tvXML::GetPureName(name, prefix);
}

} // namespace schema
