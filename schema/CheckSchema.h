// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Schemas are checked as schemas, and documents against the schemas that they name. Each check fills the list
// of diagnostics.
namespace schema {

/// The check of a schema document. The first fault is told in a box; the text view comes up with its place,
/// and its node is selected. False then, and where the check didn't come to its end. `asked`: the user wants
/// it, so they may be asked whether to fetch what the schema refers to from the net; else nothing is told of
/// a schema that can't be had in full.
bool ValidateSchemaFile(DocumentWindow& window, bool asked);

/// The text of a schema has just been read into the tree: the same, at the end of the running edit.
void CheckAfterReading(DocumentWindow& window);

/// What follows the check of a document's form, told in `wellFormed`: a schema is checked as one, a document
/// that names its schemas against them. True for one that passes, or has nothing to pass.
bool CheckDocument(DocumentWindow& window, bool wellFormed);

} // namespace schema
