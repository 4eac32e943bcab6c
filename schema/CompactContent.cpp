// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactContent.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "nodes/NewNode.h"
#include "platform/controls/TreeCursor.h"
#include "schema/GlobalDeclarations.h"
#include "schema/SchemaState.h"
#include <algorithm>

namespace schema {

namespace {

using controls::TreeNode;

const QString kName = QStringLiteral("name");
const QString kType = QStringLiteral("type");
const QString kRef = QStringLiteral("ref");

// The text that is written at the end of the edit clears the panel.
void Tell(DocumentWindow& window, const QString& text) {
    edit::Then(window, [&window, text] { edit::Message(window.app, text); });
}

TreeNode Refuse(DocumentWindow& window, const char* why) {
    Tell(window, QLatin1String(why));
    return {};
}

bool IsOneOf(TreeNode node, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(), [&](const char* name) { return IsNamed(node, name); });
}

void Set(TreeNode node, const QString& attribute, const QString& value) {
    m_tvXML::Attributes all(node);
    if (const qsizetype at = all.find(attribute); at >= 0)
        all.set(at, attribute, value);
    else
        all.add(attribute, value);
    node.SetTag(all.tag());
}
void Drop(TreeNode node, const QString& attribute) {
    m_tvXML::Attributes all(node);
    all.remove(attribute);
    node.SetTag(all.tag());
}

/// A new child in front of the first one of certain names, else the last one.
TreeNode AddBefore(DocumentWindow& window, TreeNode parent, std::initializer_list<const char*> followers,
                   const char* element, const QString& tag = {}) {
    TreeNode next = parent.Child();
    while (next && !IsOneOf(next, followers))
        next = next.Next();
    return nodes::NewNode(window, next ? next : parent, next ? controls::tvwPrevious : controls::tvwChild,
                          m_tvXML::kElement, Prefixed(window, QLatin1String(element)), tag);
}

TreeNode MakeComplexType(DocumentWindow& window, TreeNode declaration) {
    return AddBefore(window, declaration, {"unique", "key", "keyref"}, "complexType");
}

QString Named(const QString& name) {
    return m_tvXML::Attributes::pair(kName, name);
}

/// The complex type of a declaration, named or its own; nothing without one.
TreeNode ComplexTypeOf(TreeNode declaration, const GlobalDeclarations& declarations) {
    const QString type = AttributeValue(declaration, kType);
    const TreeNode named = type.isEmpty() ? TreeNode() : declarations.GetRefTypeNode(type);
    return named ? named : GetChildNodeByName(declaration, "complexType");
}

/// Whether a type stands in none of the declarations that are at hand, nor is one of the language's simple
/// ones: it may be a complex type of another file.
bool IsTypeElsewhere(DocumentWindow& window, TreeNode declaration, const GlobalDeclarations& declarations) {
    const QString type = AttributeValue(declaration, kType);
    if (type.isEmpty() || declarations.GetRefTypeNode(type) || declarations.GetRefSimpleTypeNode(type))
        return false;
    const QString local = LocalName(type);
    return local == QStringLiteral("anyType") || type != Prefixed(window, local);
}

bool HasValue(TreeNode declaration) {
    return !AttributeValue(declaration, QStringLiteral("default")).isEmpty() ||
           !AttributeValue(declaration, QStringLiteral("fixed")).isEmpty();
}

/// What holds particles and attributes of a complex type: the type, or the derivation in it.
TreeNode Holder(TreeNode complexType) {
    for (const char* content : {"complexContent", "simpleContent"}) {
        const TreeNode derived = GetChildNodeByName(complexType, content);
        if (!derived)
            continue;
        const TreeNode extension = GetChildNodeByName(derived, "extension");
        return extension ? extension : GetChildNodeByName(derived, "restriction");
    }
    return complexType;
}

TreeNode CompositorIn(TreeNode holder) {
    TreeNode child = holder.Child();
    while (child && !IsOneOf(child, {"sequence", "all", "choice", "group"}))
        child = child.Next();
    return child;
}

/// Where a new element goes in a complex type; nothing where the content is none of elements.
TreeNode Compositor(DocumentWindow& window, TreeNode complexType, const GlobalDeclarations& declarations) {
    const TreeNode holder = Holder(complexType);
    if (!holder || GetChildNodeByName(complexType, "simpleContent"))
        return {};
    TreeNode found = CompositorIn(holder);
    if (IsNamed(found, "group")) { // the content is the group's
        const TreeNode group = declarations.GetRefNode(AttributeValue(found, kRef), "group");
        return group ? CompositorIn(group) : TreeNode();
    }
    return found ? found
                 : AddBefore(window, holder, {"attribute", "attributeGroup", "anyAttribute"}, "sequence");
}

// A type without elements gives way to the content (quirk 155).
TreeNode MakeElementContent(DocumentWindow& window, TreeNode declaration) {
    if (const QString type = AttributeValue(declaration, kType); !type.isEmpty()) {
        Tell(window, QStringLiteral("The type %1 has given way to the elements.").arg(type));
        Drop(declaration, kType);
    }
    return MakeComplexType(window, declaration);
}

// The simple type stays, as the base of the content.
TreeNode MakeAttributeContent(DocumentWindow& window, TreeNode declaration) {
    const TreeNode complexType = MakeComplexType(window, declaration);
    const QString type = AttributeValue(declaration, kType);
    if (type.isEmpty())
        return complexType;
    Drop(declaration, kType);
    const TreeNode content = AddBefore(window, complexType, {}, "simpleContent");
    AddBefore(window, content, {}, "extension", m_tvXML::Attributes::pair(QStringLiteral("base"), type));
    return complexType;
}

/// The complex type of a declaration that is to hold something, made where there is none. Nothing where that
/// is refused.
TreeNode TypeThatHolds(DocumentWindow& window, TreeNode declaration, const GlobalDeclarations& declarations,
                       TreeNode (*make)(DocumentWindow&, TreeNode)) {
    if (GetChildNodeByName(declaration, "simpleType"))
        return Refuse(window, "The element has a simple type of its own, which holds nothing but text.");
    if (IsTypeElsewhere(window, declaration, declarations))
        return Refuse(window, "The type of the element isn't declared here.");
    const TreeNode complexType = ComplexTypeOf(declaration, declarations);
    return complexType ? complexType : make(window, declaration);
}

const char* KindOf(TreeNode declaration) {
    return IsNamed(declaration, "attribute") ? "attribute" : "element";
}

bool IsGlobal(TreeNode declaration) {
    return IsNamed(declaration.Parent(), "schema");
}

/// Whether a name is one of the schema's own namespace. Many a schema refers to its own without a prefix
/// though that is bound to the language's.
bool IsOfThisSchema(TreeNode schema, const QString& name) {
    const qsizetype colon = name.indexOf(u':');
    const QString target = AttributeValue(schema, QStringLiteral("targetNamespace"));
    const QString bound = AttributeValue(schema, colon < 0 ? QStringLiteral("xmlns")
                                                           : QStringLiteral("xmlns:") + name.left(colon));
    if (bound.isEmpty() || bound == QStringLiteral("http://www.w3.org/2001/XMLSchema"))
        return colon < 0;
    return bound == target;
}

/// Puts a new name in the place of the local part of a reference.
void Redirect(TreeNode schema, TreeNode node, const QString& attribute, const QString& from,
              const QString& to) {
    const QString value = AttributeValue(node, attribute);
    if (!value.isEmpty() && LocalName(value) == from && IsOfThisSchema(schema, value))
        Set(node, attribute, value.left(value.size() - from.size()) + to);
}

// The cursor is good as long as nothing changes.
void RedirectReferences(DocumentWindow& window, const char* element, const QString& from, const QString& to) {
    std::vector<TreeNode> found;
    const TreeNode schema = GetSchemaNode(window.tvXML);
    const controls::TreeCursor top(schema);
    for (controls::TreeCursor at = top.firstChild(); at; at = at.nextBelow(top)) {
        if (at.kind() == m_tvXML::kElement && IsNamed(at.node(), element))
            found.push_back(at.node());
    }
    for (const TreeNode node : found) {
        Redirect(schema, node, kRef, from, to);
        Redirect(schema, node, QStringLiteral("substitutionGroup"), from, to);
    }
}

} // namespace

TreeNode AddNewNodeToMainTreeFromCVTree(DocumentWindow& window, const QString& name) {
    const TreeNode schema = GetSchemaNode(window.tvXML);
    if (!schema) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not find \"schema\" node. Please add it and try again."),
            services::Buttons::Ok);
        return {};
    }
    if (GlobalDeclarations(window.tvXML).GetRefNode(name, "element"))
        return Refuse(window, "There is a global element of this name.");
    TreeNode added = AddBefore(window, schema, {}, "element", Named(name));
    added.SetImage(QStringLiteral("xmlrootelement"));
    added.SetSelectedImage(QStringLiteral("openxmlrootelement"));
    return added;
}

TreeNode AddNewElementAtMainTree(DocumentWindow& window, TreeNode declaration, const QString& name) {
    if (HasValue(declaration))
        return Refuse(window, "An element with a default or fixed value holds no elements.");
    const GlobalDeclarations declarations(window.tvXML);
    const TreeNode complexType = TypeThatHolds(window, declaration, declarations, MakeElementContent);
    if (!complexType)
        return {};
    const TreeNode compositor = Compositor(window, complexType, declarations);
    if (!compositor)
        return Refuse(window, "The type of the element holds no elements.");
    return AddBefore(window, compositor, {}, "element", Named(name));
}

TreeNode AddNewAttrAtMainTree(DocumentWindow& window, TreeNode declaration, const QString& name) {
    const GlobalDeclarations declarations(window.tvXML);
    const TreeNode complexType = TypeThatHolds(window, declaration, declarations, MakeAttributeContent);
    if (!complexType)
        return {};
    const TreeNode holder = Holder(complexType);
    if (!holder)
        return Refuse(window, "The type of the element holds no attributes.");
    return AddBefore(window, holder, {"anyAttribute"}, "attribute", Named(name));
}

bool GiveText(DocumentWindow& window, TreeNode declaration) {
    if (!AttributeValue(declaration, kType).isEmpty() || GetChildNodeByName(declaration, "simpleType") ||
        GetChildNodeByName(declaration, "complexType")) {
        Refuse(window, "The element's type tells whether it has a text.");
        return false;
    }
    Set(declaration, kType, Prefixed(window, QStringLiteral("string")));
    return true;
}

bool MayRenameDeclaration(DocumentWindow& window, TreeNode declaration, const QString& name) {
    if (!IsGlobal(declaration) || !GlobalDeclarations(window.tvXML).GetRefNode(name, KindOf(declaration)))
        return true;
    Refuse(window, "There is a global declaration of this name.");
    return false;
}

bool RenameDeclaration(DocumentWindow& window, TreeNode declaration, const QString& name) {
    const char* const element = KindOf(declaration);
    const QString before = AttributeValue(declaration, kName);
    const bool global = IsGlobal(declaration);
    if (!MayRenameDeclaration(window, declaration, name))
        return false;
    Set(declaration, kName, name);
    if (global && !before.isEmpty())
        RedirectReferences(window, element, before, name);
    return true;
}

} // namespace schema
