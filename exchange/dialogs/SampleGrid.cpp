// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/SampleGrid.h"

namespace exchange {

QString SampleGrid::TextMatrix(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0)
        return {};
    const std::vector<QString>& cells = rows_[static_cast<std::size_t>(row)];
    return static_cast<std::size_t>(col) < cells.size() ? cells[static_cast<std::size_t>(col)] : QString();
}

void SampleGrid::Show(std::vector<std::vector<QString>> rows, int cols, int fixedRows) {
    rows_ = std::move(rows);
    cols_ = cols;
    fixedRows_ = fixedRows;
    changed();
}

} // namespace exchange
