// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What was typed over a grid goes into the tree.
namespace table {

/// The cell editor is left: its text goes into the node of the row that it was opened on.
void txtTView_LostFocus(DocumentWindow& window);
/// The header editor is left: the attribute is renamed in all rows.
void txtTViewHeader_LostFocus(DocumentWindow& window);
/// What is being typed in either goes in. False where it was refused: it is there still.
bool FinishTableEdits(DocumentWindow& window);

/// Renames an attribute in all rows of a grid whose value of it is what the cell shows; others stay. A name
/// that no attribute can have, or that an element has already, is refused with a word (quirk 67).
bool SetTreeAllPropNameByTableView(DocumentWindow& window, controls::FlexGrid& grid, const QString& oldName,
                                   const QString& newName);

} // namespace table
