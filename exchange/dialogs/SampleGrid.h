// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QString>
#include <vector>

namespace exchange {

/// A grid that shows the beginning of some data and can't be edited. Rows and columns count from 0.
class SampleGrid {
public:
    int Rows() const { return static_cast<int>(rows_.size()); }
    int Cols() const { return cols_; }
    int FixedRows() const { return fixedRows_; } ///< 1: the first row heads the columns
    /// Empty outside the grid, and right of a short row.
    QString TextMatrix(int row, int col) const;
    /// Takes other cells; rows may be shorter than the grid is wide.
    void Show(std::vector<std::vector<QString>> rows, int cols, int fixedRows);
    controls::Event<> changed;

private:
    std::vector<std::vector<QString>> rows_;
    int cols_ = 1, fixedRows_ = 0;
};

} // namespace exchange
