// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstdint>

namespace controls {

/// Where a text stands in its cell.
enum FlexAlign { flexAlignLeftCenter = 1, flexAlignRightCenter = 7 };

/// How a cell looks.
struct GridStyle {
    std::uint32_t ForeColor = 0; ///< 0x00BBGGRR
    bool Bold = false, Italic = false, Underline = false;
    int Alignment = flexAlignLeftCenter;
    bool operator==(const GridStyle&) const = default;
};

/// Where a grid's cells come from, when it holds none of its own: a table of a million rows is read from the
/// document as it is looked at. Rows and columns count from 0, the fixed ones among them. Rows are numbered
/// as they stand in the source, whatever order the grid shows them in.
class GridSource {
public:
    virtual ~GridSource() = default;
    virtual int rowCount() const = 0;
    virtual int columnCount() const = 0;
    /// Empty outside the table, and for a row that is gone.
    virtual QString text(int row, int column) const = 0;
    /// The same for ordering rows: a number may have any form.
    virtual QString textToSort(int row, int column) const { return text(row, column); }
    virtual GridStyle style(int row, int column) const = 0;
};

} // namespace controls
