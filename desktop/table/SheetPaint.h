// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

class QWidget;

namespace desktop {

/// Paints what can be seen of the grids: the rows, over them the header row at the grid's top or at the
/// widget's, and the frozen columns at the left. `focus` is the grid whose current cell the next key is for;
/// null for none.
void PaintSheet(DocumentWindow& window, QWidget& widget, const controls::FlexGrid* focus);

/// The width that a cell's text asks for, in pixels.
int WidthWanted(const controls::FlexGrid& grid, int row, int col, const QWidget& widget);
/// The height of a row in the widget's font, in pixels.
int RowPixels(const QWidget& widget);

} // namespace desktop
