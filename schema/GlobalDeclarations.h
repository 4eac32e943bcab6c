// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QHash>
#include <QString>

// Finding declarations in the tree of a schema. Namespaces don't count: a name's local part alone is looked
// for, and only among the children of the schema element.
namespace schema {

/// An attribute's value as the Tag holds it, escaped; empty without one, and for nothing.
QString AttributeValue(controls::TreeNode node, const QString& name);
/// Whether a node is an element of the schema language by its local name, in this very case.
bool IsNamed(controls::TreeNode node, const char* localName);
/// The first direct child with a local name; nothing without one.
controls::TreeNode GetChildNodeByName(controls::TreeNode node, const char* localName);

/// The global declarations of a schema as they stand when this is made, found in constant time. Where two
/// agree in kind and name the first one counts.
class GlobalDeclarations {
public:
    explicit GlobalDeclarations(const controls::TreeView& tree);

    /// By the local part of `name` and the local name of the declaring element; nothing without one.
    controls::TreeNode GetRefNode(const QString& name, const char* tagName) const;
    controls::TreeNode GetRefTypeNode(const QString& name) const { return GetRefNode(name, "complexType"); }
    controls::TreeNode GetRefSimpleTypeNode(const QString& name) const {
        return GetRefNode(name, "simpleType");
    }
    controls::TreeNode GetRefAttrGroupNode(const QString& name) const {
        return GetRefNode(name, "attributeGroup");
    }
    /// An attribute, or else a complex type of that name: samples of old schemas rely on the second chance.
    controls::TreeNode GetRefAttrNode(const QString& name) const;

private:
    QHash<QString, controls::TreeNode> byTagAndName_;
};

} // namespace schema
