// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetBase.h"
#include "desktop/base/Twips.h"
#include "table/Sheet.h"
#include "table/TableState.h"
#include <algorithm>

namespace desktop {

using controls::FlexGrid;

FlexGrid* SheetBase::Current() const {
    if (!window_)
        return nullptr;
    const int wanted = table::TableOf(*window_).miTableViewIndex;
    FlexGrid& grid = window_->hfgrdTableView(std::clamp(wanted, 0, window_->hfgrdTableView.UBound()));
    return grid.Visible() && grid.Rows() > 1 && grid.Cols() > 1 ? &grid : nullptr;
}

void SheetBase::SetCurrent(const FlexGrid& grid) {
    table::TableOf(*window_).miTableViewIndex = grid.Index;
    update();
}

void SheetBase::ShowCell(FlexGrid& grid, int row, int col) {
    table::ShowTableCell(*window_, grid, row, col);
}

void SheetBase::ScrollBy(QPoint pixels) {
    if (!window_)
        return;
    if (pixels.y() != 0)
        table::ScrollSheet(*window_, ToTwips(pixels.y()) - window_->pctTV.Place().Top);
    if (FlexGrid* grid = Current(); grid && pixels.x() != 0)
        grid->SetScrollLeft(grid->ScrollLeft() + ToTwips(pixels.x()));
}

} // namespace desktop
