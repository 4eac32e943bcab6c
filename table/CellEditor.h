// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Opening the text boxes over a grid.
namespace table {

/// What callers pass as the key: that which the user pressed is not passed on.
inline constexpr int kNoKey = 32;

/// Opens an editor on the grid's current cell, if that is one of data. It begins with what the document holds
/// of the cell (quirk 68); a key above 32 is put behind it. A very long value goes to the dialog on nodes
/// (quirk 64).
void GridEdit(DocumentWindow& window, controls::FlexGrid& grid, controls::TextBox& txt, int key = kNoKey);
/// The same on the header of the current column, if that is an attribute's.
void GridEditHeader(DocumentWindow& window, controls::FlexGrid& grid, controls::TextBox& txt,
                    int key = kNoKey);
/// Whether the value of the grid's current cell is short enough for the box.
bool FitsLine(DocumentWindow& window, const controls::FlexGrid& grid);

} // namespace table
