// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The text box over a cell of the compact view's list.
namespace schema {

/// Opens it on a cell: column 1 the value, 2 the text of an element. What another one holds goes in first.
void OpenResultCell(DocumentWindow& window, int row, int column);

void txtResLv_LostFocus(DocumentWindow& window);
void txtResLv_KeyDown(DocumentWindow& window, int& key, int modifiers);

} // namespace schema
