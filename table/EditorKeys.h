// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Keys in the editors over a grid, as in TextBox::KeyDown. Arrows and Tab commit what was typed and open the
// editor on the next cell; Return commits, Escape gives it up, and both go back to the grid.
namespace table {

void txtTView_KeyDown(DocumentWindow& window, int& key, int modifiers);
void txtTViewHeader_KeyDown(DocumentWindow& window, int& key, int modifiers);
/// Every key is used up. Up goes back to the cells, Down chooses the next figure (quirk 71).
void cmbSum_KeyDown(DocumentWindow& window, int& key, int modifiers);

} // namespace table
