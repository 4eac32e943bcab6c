// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Schemas.h"
#include "schema/Diagnostics.h"

// What a check is asked, and what came of it.
namespace schema {

struct Findings {
    std::vector<Diagnostic> all;
    bool good = true;       ///< nothing but warnings and notes
    bool complete = true;   ///< all that the documents refer to could be had
    bool cancelled = false; ///< by the user
};

/// The document as its text stands.
services::SchemaRequest RequestFor(const DocumentWindow& window, bool isSchema);
/// Tells as well of documents that are open with unsaved changes where their files were looked at.
Findings FindingsOf(DocumentWindow& window, const services::SchemaAnswer& answer,
                    const services::SchemaRequest& request);

/// Why there is no verdict, for an outcome other than Checked.
QString WhyNot(services::SchemaOutcome outcome);

/// Whether the document has a schema element of the schema language; without one there is nothing to check.
bool HasSchemaElement(const DocumentWindow& window);
Findings NoSchemaElement();

} // namespace schema
