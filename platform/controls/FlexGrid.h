// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include "platform/controls/Event.h"
#include "platform/controls/GridSource.h"
#include <QHash>
#include <QString>
#include <map>
#include <memory>
#include <vector>

namespace controls {

class FlexGrid;

/// A block of cells; all four belong to it.
struct GridRange {
    int top = 0, left = 0, bottom = 0, right = 0;
    bool operator==(const GridRange&) const = default;
    int height() const { return bottom - top + 1; }
    int width() const { return right - left + 1; }
};

/// What grids announce. Grids of one array share one of these; each event names its grid first.
struct GridEvents {
    // --- user's acts, raised by the widget or a test -----------------------------------------------------
    Event<FlexGrid&> Click, DblClick;         ///< MouseRow and MouseCol are set already
    Event<FlexGrid&, int> MouseDown, MouseUp; ///< 1: left button, 2: right button
    /// Qt key code, Qt modifiers; a handler that uses a key up sets its code to 0.
    Event<FlexGrid&, int&, int> KeyDown;
    Event<FlexGrid&, int, int> KeyUp;
    Event<FlexGrid&, int> KeyPress; ///< the character that a key means; not with Ctrl held
    Event<FlexGrid&> GotFocus, LostFocus;
    Event<FlexGrid&> LeaveCell, EnterCell; ///< around a change of Row or Col
    Event<FlexGrid&> SelChange;            ///< Row, Col, RowSel or ColSel is another one
    Event<FlexGrid&, int> ColumnResized;   ///< the user gave a column another width

    // --- announcements for the widget --------------------------------------------------------------------
    Event<FlexGrid&> reset;                          ///< all cells may be others, and their number
    Event<FlexGrid&, const GridRange&> cellsChanged; ///< texts or looks of a block
    Event<FlexGrid&> columnsChanged;                 ///< a width, or how far it is scrolled
    Event<FlexGrid&> moved, visibleChanged, focusRequested;

    int updates = 0; ///< running: nothing of the grids is announced
    template <typename... Args, typename... Given>
    void Announce(const Event<FlexGrid&, Args...>& event, FlexGrid& grid, Given&&... given) const {
        if (updates == 0)
            event(grid, std::forward<Given>(given)...);
    }
};

enum FlexSort { flexSortNone = 0, flexSortGenericAscending = 1, flexSortGenericDescending = 2 };

/// A grid of cells with a header row, fixed columns and a selected block. Rows and columns count from 0.
/// Lengths are twips. A row or column outside the grid: Fault 35600.
class FlexGrid {
public:
    FlexGrid(std::shared_ptr<GridEvents> gridEvents, int index);
    FlexGrid(const FlexGrid&) = delete;
    FlexGrid& operator=(const FlexGrid&) = delete;

    const int Index; ///< in its array
    GridEvents& events() const { return *events_; }

    // --- size and cells ----------------------------------------------------------------------------------
    int Rows() const { return source_ ? source_->rowCount() : rows_; }
    int Cols() const { return source_ ? source_->columnCount() : cols_; }
    void SetRows(int rows); ///< of a grid without a source
    void SetCols(int cols); ///< likewise
    int FixedRows() const { return fixedRows_; }
    int FixedCols() const { return fixedCols_; }
    void SetFixed(int rows, int cols);
    /// Rows at the end that sorting leaves there.
    void SetTailRows(int rows) { tailRows_ = rows; }

    /// From now on the cells are those of a source; null: the grid's own, none at first. Rows are in the
    /// source's order, the selection is at the first cell that isn't fixed, columns have their usual widths.
    void SetSource(std::shared_ptr<const GridSource> source);
    const GridSource* Source() const { return source_.get(); }

    QString TextMatrix(int row, int col) const;
    /// Writes a cell. In a grid with a source the text stays over the source's until the next SetSource or
    /// Clear; an empty QString() is a text, too.
    void SetTextMatrix(int row, int col, const QString& text);
    GridStyle Style(int row, int col) const;
    void SetStyle(int row, int col, const GridStyle& style);
    void Clear();                           ///< all that was written into cells
    void CellsChanged(const GridRange& at); ///< tells that the source gives other texts there

    // --- the selection: from (Row, Col), the current cell, to (RowSel, ColSel), in any direction -----------
    int Row() const { return row_; }
    int Col() const { return col_; }
    int RowSel() const { return rowSel_; }
    int ColSel() const { return colSel_; }
    void SetRow(int row); ///< the selection is of one row then
    void SetCol(int col); ///< the selection is of one column then
    void SetRowSel(int row);
    void SetColSel(int col);
    /// All four at once. In an empty grid: no effect.
    void Select(int row, int col, int rowSel, int colSel);
    GridRange Selection() const;                            ///< in order
    QString Text() const { return TextMatrix(row_, col_); } ///< of the current cell

    // --- order -------------------------------------------------------------------------------------------
    /// Orders the rows between the fixed ones and the tail by the selected columns that aren't frozen, the
    /// left one first: numbers as numbers and before texts, empty cells last; equal rows stay as they stand.
    /// The selection stays where it is. flexSortNone: the source's order.
    void Sort(int order);
    bool IsSorted() const { return !order_.empty(); }
    int SourceRow(int row) const; ///< the source's number of a row that the grid shows
    int RowOfSource(int sourceRow) const;

    // --- geometry ----------------------------------------------------------------------------------------
    const Bounds& Place() const { return place_; } ///< on the sheet that it lies on
    void Move(const Bounds& place);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    /// All rows have one height: the widget tells it from its font.
    double RowHeight(int row) const;
    void SetRowHeight(double height);
    double ColWidth(int col) const;
    void SetColWidth(int col, double width);       ///< 0 hides it
    void UserResizedColumn(int col, double width); ///< sets the width and raises ColumnResized
    /// Columns 0 to here, exclusive, stay in sight when the grid is scrolled to the right.
    int FrozenCols() const { return frozenCols_; }
    void SetFrozenCols(int cols) { frozenCols_ = cols; }
    double ScrollLeft() const { return scrollLeft_; }         ///< how far the other columns are scrolled
    void SetScrollLeft(double left);                          ///< held where there is something to see
    double RowTop(int row) const { return row * rowHeight_; } ///< from the grid's upper edge
    /// A column's left edge from the grid's, scrolled as it is: in the frozen ones, or left of them out of
    /// sight.
    double ColLeft(int col) const;
    double ColumnsWidth() const { return LeftOf(Cols()); }
    int ColAt(double x) const; ///< the column at a distance from the grid's left edge; -1 beside them
    /// The current cell.
    double CellLeft() const { return ColLeft(col_); }
    double CellTop() const { return RowTop(row_); }
    double CellWidth() const { return ColWidth(col_); }
    double CellHeight() const { return rowHeight_; }
    void ShowColumn(int col); ///< scrolls to the right or left as little as possible

    int MouseRow = 0, MouseCol = 0; ///< under the pointer, as the widget told it with the last press
    void SetFocus() { events_->focusRequested(*this); }

private:
    using Cell = quint64;
    static Cell CellOf(int sourceRow, int col);
    const QString* Written(int sourceRow, int col) const; ///< null where the source's text stands
    QString TextToSort(int sourceRow, int col) const;
    void NeedCell(int row, int col) const; ///< throws Fault 35600
    void Reset();
    double LeftOf(int col) const; ///< not scrolled

    std::shared_ptr<GridEvents> events_;
    std::shared_ptr<const GridSource> source_;
    int rows_ = 2, cols_ = 2; ///< without a source
    int fixedRows_ = 1, fixedCols_ = 1, frozenCols_ = 1, tailRows_ = 0;
    QHash<Cell, QString> written_;
    QHash<Cell, GridStyle> styles_;
    std::vector<int> order_; ///< the source's row of each row shown; empty: as in the source
    int row_ = 1, col_ = 1, rowSel_ = 1, colSel_ = 1;
    Bounds place_;
    bool visible_ = true;
    double rowHeight_ = 300, scrollLeft_ = 0;
    std::map<int, double> widths_; ///< of columns that have another one than the others
};

/// Grids that are told apart by an index from 0. One is always there.
class FlexGridArray {
public:
    FlexGridArray();
    int UBound() const { return static_cast<int>(grids_.size()) - 1; } ///< the highest index
    int Count() const { return static_cast<int>(grids_.size()); }
    FlexGrid& operator()(int index) const; ///< throws Fault 35600
    FlexGrid& Load();                      ///< one more, visible
    void UnloadFrom(int index);            ///< all from an index on, which is at least 1
    GridEvents& events() const { return *events_; }

    // --- announcements for the widget: which grids there are ----------------------------------------------
    Event<> aboutToReset, reset; ///< around a change of many: at the start and the end of an update
    Event<int> loaded, aboutToUnload;
    /// Within an update neither the array nor its grids announce anything but these two.
    void BeginUpdate();
    void EndUpdate();

private:
    std::shared_ptr<GridEvents> events_ = std::make_shared<GridEvents>();
    std::vector<std::unique_ptr<FlexGrid>> grids_;
};

/// An update of an array of grids as long as it lives.
class FlexGridUpdate {
public:
    explicit FlexGridUpdate(FlexGridArray& grids) : grids_(grids) { grids_.BeginUpdate(); }
    ~FlexGridUpdate() { grids_.EndUpdate(); }
    FlexGridUpdate(const FlexGridUpdate&) = delete;
    FlexGridUpdate& operator=(const FlexGridUpdate&) = delete;

private:
    FlexGridArray& grids_;
};

} // namespace controls
