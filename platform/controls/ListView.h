// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Dragging.h"
#include "platform/controls/Event.h"
#include "platform/text/StringPool.h"
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace controls {

/// One row. `Sub` are the second and third column.
struct ListItem {
    QString Key;
    QString Text;
    int SmallIcon = 0;
    int Icon = 0;
    std::array<QString, 2> Sub;
    QString Tag;
};

enum ListViewStyle { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2, lvwReport = 3 };

/// A table of rows. Rows are numbered from 1 in the commands' manner. Geometry is in twips, from the left
/// upper corner of the place where the rows stand.
class ListView {
public:
    // --- items ---------------------------------------------------------------------------------------
    /// Adds a row behind the others; returns its 1-based index. Throws Fault 35602 for a key that exists.
    int Add(const QString& key, const QString& text, int icon, const QString& sub1 = {},
            const QString& sub2 = {});
    /// Adds `count` rows behind the others, each made when it is first looked at: `make` is given its number
    /// from 0. `find` tells the number of the row with a key, -1 for none; a row's key must not change.
    /// Only for an empty list.
    using RowMaker = std::function<ListItem(std::uint32_t number)>;
    using RowFinder = std::function<qint64(const QString& key)>;
    /// `read` gives a cell's text without its row being made, for searches.
    using CellReader = std::function<text::CompactView(std::uint32_t number, int column)>;
    void Fill(std::uint32_t count, RowMaker make, RowFinder find, CellReader read = {});
    void Clear();
    int Count() const;
    const ListItem& Item(int index) const;          ///< throws Fault 35600
    const ListItem& Item(const QString& key) const; ///< throws Fault 35601
    /// The text of a cell in column 1 to 3, good until something changes. A row that wasn't looked at so far
    /// isn't made for it where the list was filled with a reader. Throws Fault 35600.
    text::CompactView Cell(int index, int column) const;
    int IndexOf(const QString& key) const; ///< 0 when there is no such row
    void Remove(int index);
    void SetText(int index, const QString& text);
    void SetSubItem(int index, int column, const QString& text); ///< column 1 or 2
    void SetItemTag(int index, const QString& tag);

    // --- selection -----------------------------------------------------------------------------------
    bool Selected(int index) const;
    void SetSelected(int index, bool selected);
    void SelectAll();
    void ClearSelected();
    std::vector<int> SelectedRows() const; ///< in order
    /// 1-based index of the current row, 0 for none (also after that row was removed).
    int SelectedItem() const;
    void SetSelectedItem(int index); ///< also selects it; 0 takes the current row away

    QString Tag;
    int View() const { return view_; }
    void SetView(int view);
    QStringList ColumnHeaders;
    bool TabStop = true;

    // --- geometry: what the widget tells, and what follows from it --------------------------------------
    std::vector<double> ColumnWidths{2000, 6000, 4000};
    double RowHeight = 300;
    double Width = 12000, Height = 6000;                  ///< of the place where rows are visible
    int GetFirstVisible() const { return firstVisible_; } ///< 1-based row at the top
    double Left() const { return left_; }                 ///< of each row: below 0 when scrolled to the right
    void UserScrolled(int firstVisible, double left);
    double ColumnLeft(int column) const; ///< 1-based column
    double ItemTop(int index) const;
    int HitTest(double x, double y) const; ///< the row at a point, 0 beside the rows
    void EnsureVisible(int index);         ///< scrolls as little as possible

    /// Within an update nothing is announced but one aboutToReset at the start of the outermost and one reset
    /// at its end.
    void BeginUpdate();
    void EndUpdate();

    // --- label editing: as in the tree -------------------------------------------------------------------
    bool StartLabelEdit(); ///< of the current row
    int LabelEditRow() const { return labelEdit_; }
    void EndLabelEdit(const QString& text);
    void KeepLabelEdit();
    bool LabelKept() const { return labelKept_ && labelEdit_ > 0; }
    void CancelLabelEdit();
    void FinishLabelEdit() {
        if (labelEdit_ > 0)
            labelEditFinish();
    }
    Event<bool&> BeforeLabelEdit;               ///< cancel
    Event<const QString&> LabelTyped;           ///< what the editor holds by now, while the user types
    Event<int, bool&, QString&> AfterLabelEdit; ///< row, cancel, new text
    Event<> LabelEdited;
    Event<int> LabelGivenUp;     ///< row
    Event<bool> LabelTabbed;     ///< Tab has ended the edit, or Shift and Tab, with true
    Event<int> labelEditStarted; ///< 1-based row; for the widget
    Event<> labelEditFinish, labelEditEnded;

    // --- user's acts ---------------------------------------------------------------------------------
    Event<int> ItemClick; ///< 1-based row, 0 beside the rows
    /// A click on the value (column 2) or text (column 3) of the row that was current already.
    Event<int, int> CellClick;
    Event<> Click, DblClick, MouseDown;
    /// Qt key code, Qt modifiers; a handler that uses a key up sets its code to 0.
    Event<int&, int> KeyDown;
    Event<int, int> KeyUp;
    Event<> GotFocus, LostFocus;
    Dragging<int> Drag;

    // --- announcements for the widget ----------------------------------------------------------------
    Event<> aboutToReset, reset;
    Event<int> aboutToInsert, inserted, aboutToRemove, removed; ///< 0-based row
    Event<int> changed;                                         ///< 1-based row
    Event<> selectionChanged, viewChanged;
    Event<int> ensureVisible; ///< 1-based row
    Event<> focusRequested;
    void SetFocus() { focusRequested(); }

private:
    struct Slot {
        std::uint32_t number = 0; ///< grows from row to row, so that a row's index is found by halving
        bool selected = false;
        mutable std::unique_ptr<ListItem> item; ///< null until it is looked at
    };
    const Slot& At(int index) const; ///< throws Fault 35600
    Slot& At(int index);
    ListItem& ItemOf(const Slot& slot) const;
    int IndexOfNumber(std::uint32_t number) const; ///< 0 when there is none
    bool quiet() const { return updates_ > 0; }

    std::deque<Slot> slots_;
    std::uint32_t next_ = 0;                    ///< number of the next row
    QHash<QString, std::uint32_t> numberByKey_; ///< rows that were added one by one
    RowMaker make_;
    RowFinder find_;
    CellReader read_;
    int current_ = 0;
    int view_ = lvwReport;
    int updates_ = 0;
    int labelEdit_ = 0, labelEnding_ = 0;
    bool labelKept_ = false;
    int firstVisible_ = 1;
    double left_ = 0;
};

} // namespace controls
