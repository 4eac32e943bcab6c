// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/InternalString.h"
#include "core/model/NodeContent.h"

namespace nodes {

QString ConvertXMLNodeToInternalString(xml::Node node, QStringList& names) {
    const xml::ParsedDocument& document = *node.ownerDocument();
    QStringList values;
    names.clear();
    for (int i = 0; i < node.attributeCount(); ++i) {
        const xml::Attribute& attribute = node.attributes()[i];
        names << document.name(attribute.nameId);
        values << document.view(attribute.value).toString();
    }
    names << QStringLiteral("Node Text");
    values << m_tvXML::GetXmlNodeAllNodeText(node);
    return values.join(u'\'');
}

QString ConvertXMLNodesToInternalString(xml::Node parent, QStringList& names) {
    QStringList records;
    for (xml::Node node = parent.firstChild(); node; node = node.nextSibling())
        records << ConvertXMLNodeToInternalString(node, names);
    return records.join(u'<');
}

} // namespace nodes
