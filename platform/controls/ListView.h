// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QHash>
#include <QString>
#include <array>
#include <deque>
#include <memory>
#include <vector>

namespace controls {

class ListView;

/// One row. `SubItems` are the second and third column.
struct ListItem {
    QString Key;
    QString Text;
    int SmallIcon = 0;
    int Icon = 0;
    std::array<QString, 2> Sub;
    QString Tag;
    bool Selected = false;
};

enum ListViewStyle { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2, lvwReport = 3 };

/// A table of rows. Rows are numbered from 1 in the commands' manner.
class ListView {
public:
    // --- items ---------------------------------------------------------------------------------------
    /// Adds a row behind the others (index 0) or at 1-based `index`; returns its 1-based index. Throws Fault
    /// 35602 for a key that exists.
    int Add(int index, const QString& key, const QString& text, int icon, const QString& sub1 = {},
            const QString& sub2 = {});
    void Clear();
    int Count() const;
    const ListItem& Item(int index) const;          ///< throws Fault 35600
    const ListItem& Item(const QString& key) const; ///< throws Fault 35601
    int IndexOf(const QString& key) const;          ///< 0 when there is no such row
    void Remove(int index);
    void SetText(int index, const QString& text);
    void SetSubItem(int index, int column, const QString& text); ///< column 1 or 2
    void SetItemTag(int index, const QString& tag);
    void SetSelected(int index, bool selected);
    void ClearSelected();
    int
    SelectedItem() const; ///< 1-based index of the current row, 0 for none (also after that row was removed)
    void SetSelectedItem(int index); ///< also selects it; 0 takes the current row away

    QString Tag;
    int View() const { return view_; }
    void SetView(int view);
    std::vector<double> ColumnWidths{2000, 6000, 4000}; ///< twips
    QStringList ColumnHeaders;
    bool TabStop = true;

    /// Within an update nothing is announced but one aboutToReset at the start of the outermost and one reset
    /// at its end.
    void BeginUpdate();
    void EndUpdate();

    // --- user's acts ---------------------------------------------------------------------------------
    Event<int> ItemClick; ///< 1-based row, 0 beside the rows
    Event<> Click, DblClick;
    Event<int, int> KeyUp;
    Event<> GotFocus, LostFocus;

    // --- announcements for the widget ----------------------------------------------------------------
    Event<> aboutToReset, reset;
    Event<int> aboutToInsert, inserted, aboutToRemove, removed; ///< 0-based row
    Event<int> changed;                                         ///< 1-based row
    Event<> selectionChanged, viewChanged;
    Event<> focusRequested;
    void SetFocus() { focusRequested(); }

private:
    struct Row : ListItem {
        qint64 place = 0; ///< grows from row to row, so that a row's index is found by halving
    };
    Row& At(int index) const; ///< throws Fault 35600
    qint64 PlaceBefore(std::size_t position);
    bool quiet() const { return updates_ > 0; }
    std::deque<std::unique_ptr<Row>> rows_;
    QHash<QString, const Row*> byKey_;
    int current_ = 0;
    int view_ = lvwReport;
    int updates_ = 0;
};

} // namespace controls
