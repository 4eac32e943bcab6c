// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The commands of the compact view. They are for what is selected in the tree of the instance, or in the list
// beside it, whichever has the user's attention. Each is one edit of the schema, after which the instance is
// built anew; what it can't do status panel 1 tells.
namespace schema {

/// An element below the selected one, or the instance's root where there is none. It is named first, in its
/// place in the view; only then the schema has it, and Escape takes it back.
void AddNewNodeAtCV(DocumentWindow& window);
void AddNewAttrAtCV(DocumentWindow& window); ///< likewise an attribute, in the list
/// An element without a type of its own gets one with text.
void AddNewNodeTextAtCV(DocumentWindow& window);

void EditAtCompactView(DocumentWindow& window); ///< the name
/// Opens the cell of a value: of the current row, else of the first attribute.
void EditValueAtCompactView(DocumentWindow& window);

/// Takes an element out of the schema: where it stands by a reference the reference, so that the declaration
/// stays for all others (quirk 154). Of an attribute likewise.
void DeleteAtCompactView(DocumentWindow& window);
void CopyAtCompactView(DocumentWindow& window); ///< as it stands in the instance
void CutAtCompactView(DocumentWindow& window);

} // namespace schema
