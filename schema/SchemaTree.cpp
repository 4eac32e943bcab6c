// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaTree.h"
#include "core/model/DomToTree.h"
#include "core/model/NodeKind.h"
#include "core/model/Parse.h"
#include "core/model/Serialise.h"
#include "schema/Diagnostics.h"
#include "schema/RootDeclarations.h"
#include "schema/SchemaState.h"

namespace schema {

void AddTreeRootS(DocumentWindow& window, bool withDefaults) {
    if (!withDefaults)
        ForgetDiagnostics(window);
    SchemaOf(window).msPrefix.clear();
    const controls::TreeUpdate update(window.tvXML);
    m_tvXML::AddTreeRoot(window.app, window.tvXML, withDefaults);
    if (!withDefaults)
        return;
    controls::TreeNode root = window.tvXML.Nodes(1);
    root.LastChild().SetTag(m_tvXML::MakerComment() + u' ');
    window.tvXML.Nodes
        .Add(root, controls::tvwChild, m_tvXML::GetDistinctElementKey(window.app, m_tvXML::kElement),
             QStringLiteral("schema"), QStringLiteral("element"), QStringLiteral("openelement"))
        .SetTag(QStringLiteral("xmlns=\"http://www.w3.org/2001/XMLSchema\""));
}

void SXMLToTree(DocumentWindow& window, const xml::ParsedDocument& document) {
    KeepDiagnosedNodes(window);
    const SchemaOutline outline = OutlineOf(document);
    m_tvXML::FillTree(window.app, window.tvXML, document, outline.rootDeclarations);
    SchemaOf(window).msPrefix = outline.prefix;
}

// The elements of the tree and of its text follow each other in the same order.
void MarkRootDeclarations(DocumentWindow& window) {
    const controls::TreeNode schema = GetSchemaNode(window.tvXML);
    const auto parsed = mXMLEdit::Parse(window.app, m_tvXML::GetTreeNodesXML(schema, {}), xml::Prefixes::Any);
    if (!parsed.good())
        return;
    std::vector<xml::Node> roots = OutlineOf(*parsed.document).rootDeclarations;
    std::erase_if(roots, [&](const xml::Node& one) { return one.parentNode() != parsed.root(); });
    auto next = roots.begin();
    xml::Node declaration = parsed.root().firstChild();
    for (controls::TreeNode child = schema.Child(); child; child = child.Next()) {
        if (!m_tvXML::IsElement(child))
            continue;
        while (declaration && declaration.nodeType() != xml::ELEMENT)
            declaration = declaration.nextSibling();
        const bool root = next != roots.end() && *next == declaration;
        next += root ? 1 : 0;
        declaration = declaration ? declaration.nextSibling() : declaration;
        child.SetImage(root ? QStringLiteral("xmlrootelement") : QStringLiteral("element"));
        child.SetSelectedImage(root ? QStringLiteral("openxmlrootelement") : QStringLiteral("openelement"));
    }
}

bool IsMarkedAsRoot(controls::TreeNode node) {
    const QString image = node ? node.Image() : QString();
    return image == QStringLiteral("xmlrootelement") || image == QStringLiteral("openxmlrootelement");
}

} // namespace schema
