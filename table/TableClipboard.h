// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The clipboard of the table view. Commands work on the grid that the user last touched.
namespace table {

/// What is selected goes out as XML text, and as a table for programs that take one; while a cell is edited
/// its selected letters. False where no cells were copied: with a word where none are selected, and the
/// clipboard stays as it was.
bool CopyAtTableView(DocumentWindow& window);
void CutAtTableView(DocumentWindow& window); ///< only what was copied is deleted
/// Nodes become rows behind the others where whole rows are selected, or children of the tree's current node
/// where nothing is; otherwise cells are filled.
void PasteAtTableView(DocumentWindow& window);
void DeleteAtTableView(DocumentWindow& window);
void SelectAllAtTableView(DocumentWindow& window); ///< all cells of data
/// The selected cells as the text of an HTML table.
void CopyTableAsHTMLText(DocumentWindow& window);

} // namespace table
