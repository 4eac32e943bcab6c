// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The list of what the selected node of the instance holds: its children, then its attributes. Keys are those
// of the nodes, an attribute's is its element's with "/" and its name.
namespace schema {

/// Its rows from the instance as it stands. The current row stays, found again by its name; behind one that
/// is gone the next one is current, while the list is in use.
void FillResultList(DocumentWindow& window);
/// The current row; one of kind 0 without it.
controls::ListItem CurrentRow(DocumentWindow& window);
/// What is selected in the view where the user's attention is: kind of a node or of a row; kTreeRoot for
/// nothing.
int SelectedInInstance(DocumentWindow& window);
/// Makes a row the current one and the only one that is selected; 0: none is.
void SelectResultRow(DocumentWindow& window, int row);
/// The same for the attribute of a name, where it has a row.
void SelectAttributeRow(DocumentWindow& window, const QString& name);
/// The row of an attribute of that name; 0 without one.
int FindAttributeAtListView(DocumentWindow& window, const QString& name);

} // namespace schema
