// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Schemas are checked as schemas, and documents against the schemas that they name. Each check fills the list
// of diagnostics.
namespace schema {

/// What the user is told of a check of a schema beside the list.
enum class Tell {
    OnStatusBar, ///< the first fault, there alone
    Faults,      ///< in a box; on the status bar where what the schema refers to can't be had
    All          ///< the user wants the check: they may be asked whether to fetch that from the net
};

/// The check of a schema document. With the box about its first fault the text view comes up with the place,
/// and the node is selected. False where there is a fault, or the check didn't come to its end.
bool ValidateSchemaFile(DocumentWindow& window, Tell tell);

/// The text of a schema has just been read into the tree: the same, at the end of the running edit. Faults of
/// one that is being opened are told, those of an edited one when the user leaves it.
void CheckAfterReading(DocumentWindow& window);
void TellAfterLeaving(DocumentWindow& window);

/// What follows the check of a document's form, told in `wellFormed`: a schema is checked as one, a document
/// that names its schemas against them. True for one that passes, or has nothing to pass.
bool CheckDocument(DocumentWindow& window, bool wellFormed);

} // namespace schema
