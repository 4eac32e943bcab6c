// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Checks that the user asks for: schemas as schemas, documents against the schemas that they name. Each
// fills the list of diagnostics.
namespace schema {

/// The check of a schema document; the user is asked whether to fetch from the net what it refers to. With
/// the box about its first fault the text view comes up with the place, and the node is selected. False where
/// there is a fault, or the check didn't come to its end.
bool ValidateSchemaFile(DocumentWindow& window);

/// What follows the check of a document's form, told in `wellFormed`: a schema is checked as one, a document
/// that names its schemas against them. True for one that passes, or has nothing to pass.
bool CheckDocument(DocumentWindow& window, bool wellFormed);

} // namespace schema
