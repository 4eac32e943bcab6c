// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaTree.h"
#include "core/model/DomToTree.h"
#include "core/model/NodeKind.h"
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

bool IsMarkedAsRoot(controls::TreeNode node) {
    const QString image = node ? node.Image() : QString();
    return image == QStringLiteral("xmlrootelement") || image == QStringLiteral("openxmlrootelement");
}

} // namespace schema
