// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <vector>

namespace schema {

/// What one walk over a parsed schema finds.
struct SchemaOutline {
    /// Declarations of elements that can be the root of an instance, in document order: global ones with a
    /// name, without a substitution group, that no `ref` of the document names. The first `ref` of the
    /// document counts only where it is the bare name: with a prefix it doesn't keep a declaration from being
    /// a root.
    std::vector<xml::Node> rootDeclarations;
    /// The prefix of the last element that is the first one among its siblings; empty where it has none.
    QString prefix;
};
SchemaOutline OutlineOf(const xml::ParsedDocument& document);

/// The value of an attribute by the name as it is written; empty without one.
QString AttributeOf(xml::Node element, const QString& name);

} // namespace schema
