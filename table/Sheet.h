// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The sheet pctTV, on which the grids of a level lie one below the other, behind the window pctTableView that
// shows a part of it. All lengths are twips.
//
// hfgrdTableView holds the grids; a grid that isn't visible isn't there for the user. A grid's Place() is on
// the sheet; the sheet's Place() is in pctTableView, and its Top is 0 or less. A sheet may be 300 million
// twips high: a widget makes none of that size but paints, of each grid that cuts the window, the rows that
// do. The widget tells the size of the window (ResizeTableView) and its font (SetTableRowHeight), scrolls by
// ScrollSheet, and follows `moved` of the sheet and the grids' events. While a grid is cut by the window's
// upper edge its header row is painted at that edge, and columns below FrozenCols at the left one.
//
// The editors txtTView, txtTViewHeader and cmbSum lie on the sheet, too: Place() is theirs there, so on the
// screen it goes along with the sheet. An open one is moved when a grid is scrolled or a column gets another
// width. A commit may have the grids made anew: a widget doesn't hold on to one over an event.
//
// What a user does in a grid goes to the grid's events. Before MouseDown, Click and DblClick the widget sets
// MouseRow and MouseCol, and the selection: a press on a header selects the column from row 1 to the last
// one, a press on a label the row from column 1 to the last one, a press on the corner all cells from (1, 1)
// on; dragging goes on from there, and its release raises Click, too. The release behind a double click
// raises MouseUp and Click once more, unless the grids were made anew. The right button's release shows the
// context menu mnuPopup. Keys that move the current cell are the widget's own (Select, then ShowTableCell);
// all keys go to KeyDown and KeyUp, and those that type something, Return among them, to KeyPress, unless
// Ctrl is held. The box cmbSum raises DropDown before its list opens.
namespace table {

/// The window on the sheet has another size.
void ResizeTableView(DocumentWindow& window, double width, double height);
/// The height of a row in all grids, now and later.
void SetTableRowHeight(DocumentWindow& window, double height);

/// Places scroll bar, grids and sheet, and shows the grid of the current node.
void SetTableViewOutlook(DocumentWindow& window);
/// The scroll bar has another value: a hundredth of what overhangs for each step.
void vsTableView_Change(DocumentWindow& window);

/// Scrolls to the grid that holds the current node's row, and to the row.
void ShowFocusRow(DocumentWindow& window);

/// Scrolls the sheet so that `top` of it is at the window's upper edge, as far as there is something to see.
/// A handle is at sheet Top / SheetOverhang: the bar's own value tells of hundredths alone.
void ScrollSheet(DocumentWindow& window, double top);
double SheetOverhang(const DocumentWindow& window); ///< what doesn't fit into the window
/// Where a grid's header row is painted, on the sheet: at its top, or at the window's edge while that cuts
/// it.
double HeaderTop(const DocumentWindow& window, const controls::FlexGrid& grid);
/// Scrolls sheet and grid as little as possible, so that a cell can be seen below the header.
void ShowTableCell(DocumentWindow& window, controls::FlexGrid& grid, int row, int col);

} // namespace table
