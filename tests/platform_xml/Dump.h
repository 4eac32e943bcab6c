// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <string>

/// Empty without such an attribute.
inline QString AttributeOf(xml::Node node, const char* name) {
    for (int i = 0; i < node.attributeCount(); ++i) {
        const xml::Attribute& a = node.attributes()[i];
        if (node.ownerDocument()->name(a.nameId) == QLatin1String(name))
            return node.ownerDocument()->view(a.value).toString();
    }
    return {};
}

/// A document in one line, to compare with: each node as type number, name and value, an element's attributes
/// in parentheses and its children in brackets.
inline QString DumpNodes(xml::Node node) {
    QString out;
    for (; node; node = node.nextSibling()) {
        const xml::ParsedDocument& document = *node.ownerDocument();
        out += QString::number(node.nodeType()) + u':' + node.nodeName();
        for (int i = 0; i < node.attributeCount(); ++i) {
            const xml::Attribute& a = node.attributes()[i];
            out += u'(' + document.name(a.nameId) + u'=' + document.view(a.value).toString() + u')';
        }
        if (node.nodeType() != xml::ELEMENT)
            out += u'\'' + node.nodeValue() + u'\'';
        if (node.firstChild())
            out += u'[' + DumpNodes(node.firstChild()) + u']';
        out += u' ';
    }
    return out.trimmed();
}

/// The dump of a text, or what is wrong with it.
inline std::string Dump(const QString& text) {
    xml::ParsedDocument document;
    if (!document.loadXML(text))
        return "error: " + document.parseError().reason.toStdString();
    return DumpNodes(document.document().firstChild()).toStdString();
}
