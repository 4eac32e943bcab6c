// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/infer/ElementFacts.h"
#include <QString>
#include <vector>

namespace schema {

/// A schema for one namespace.
struct InferredSchema {
    QString space; ///< its target namespace; empty for none
    QString file;  ///< name without a folder under which the others refer to it
    QString text;
};

/// How schemas are written.
struct SchemaForm {
    QString encoding;        ///< that their declarations name
    QString fileName;        ///< of the first one, with ".xsd"; the others get a number behind it
    bool blankTexts = false; ///< elements without text take blanks, too
    bool plainXml = false;   ///< attributes with the xml prefix have any values
};

/// Schemas that take all documents that were seen: first the one for the namespace of the first document's
/// root, then one for each other namespace. Empty without an element.
std::vector<InferredSchema> SchemasOf(const DocumentFacts& facts, const SchemaForm& form);

} // namespace schema
