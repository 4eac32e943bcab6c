// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What is selected in a grid, as text.
namespace table {

/// The nodes of the selected rows as they are written, a line break between.
QString GetTableViewLinesText(DocumentWindow& window, const controls::FlexGrid& grid);
/// The same for whole rows; of a block, one element for each row with what its cells hold in the document
/// (quirk 69). Empty where no data is selected, or more than a text can hold.
QString GetTableViewText(DocumentWindow& window, const controls::FlexGrid& grid);
/// What the selected cells show as an HTML table. Columns of keys and labels are passed over.
/// Empty for more cells than any program takes.
QString CopyTableAsHTML(DocumentWindow& window, const controls::FlexGrid& grid);

} // namespace table
