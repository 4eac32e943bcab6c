// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListPlace.h"
#include "core/edit/Report.h"
#include "nodes/Adding.h"
#include "nodes/ListState.h"
#include <algorithm>
#include <utility>

namespace nodes {

namespace {

constexpr double kOutOfSight = -10000;
constexpr double kButtonWidth = 270; // of cmdPop

} // namespace

void SetListViewComboBox(DocumentWindow& window, int row, int column) {
    const controls::ListView& list = window.ListView1;
    controls::Bounds cell{list.ColumnLeft(column + 1), list.ItemTop(row),
                          list.ColumnWidths[static_cast<std::size_t>(column)], list.RowHeight};
    cell.Width = std::max(cell.Width - kButtonWidth, kButtonWidth);
    window.txtListView.Move(cell);
    window.cmdPop.Move({cell.Left + cell.Width, cell.Top, kButtonWidth, cell.Height});
}

void LayListViewTextBox(DocumentWindow& window) {
    ListState& state = ListOf(window);
    const int row = state.mbIsEditValue ? window.ListView1.IndexOf(state.msListEditKey) : 0;
    if (row == 0)
        return;
    SetListViewComboBox(window, row, EditedColumn(window));
    SetListviewTextboxPosition(window.ListView1, window.txtListView, window.cmdPop, true, 0,
                               state.mdSavedLeft);
}

void FollowScrolling(DocumentWindow& window) {
    ListState& state = ListOf(window);
    state.miListFirstVisible = window.ListView1.GetFirstVisible();
    state.mdListLeft = window.ListView1.Left();
    window.tmList.SetEnabled(true);
}

void tmList_Timer(DocumentWindow& window) {
    ListState& state = ListOf(window);
    if (!state.mbIsEditValue)
        return;
    const controls::ListView& list = window.ListView1;
    const auto move = [&](bool horizontal, double delta) {
        SetListviewTextboxPosition(list, window.txtListView, window.cmdPop, horizontal, delta,
                                   state.mdSavedLeft);
    };
    const int first = list.GetFirstVisible();
    if (const int rows = std::exchange(state.miListFirstVisible, first) - first; rows != 0)
        move(false, rows * list.RowHeight);
    if (const double moved = list.Left() - std::exchange(state.mdListLeft, list.Left()); moved != 0)
        move(true, moved);
}

void SetListviewTextboxPosition(const controls::ListView& list, controls::TextBox& editor,
                                controls::CommandButton& button, bool horizontal, double delta,
                                double& savedLeft) {
    controls::Bounds place = editor.Place();
    if (place.Left == kOutOfSight)
        place.Left = savedLeft;
    (horizontal ? place.Left : place.Top) += delta;
    const bool visible =
        place.Top >= 0 && place.Top < list.Height && place.Left + place.Width > 0 && place.Left < list.Width;
    if (!visible) {
        savedLeft = place.Left;
        place.Left = kOutOfSight;
    }
    editor.Move(place);
    button.Move({place.Left + place.Width, place.Top, kButtonWidth, place.Height});
}

int EditedColumn(const DocumentWindow& window) {
    return window.txtListView.Tag == QStringLiteral("2") ? 2 : 1;
}

// What the user typed so far is no fault any more; the complaint about a text that was handed in stays.
void CancelListViewTextBox(DocumentWindow& window) {
    if (std::exchange(ListOf(window).mbIsEditValue, false))
        edit::Message(window.app, {});
    ListOf(window).bRefused = false;
    EndAdding(window);
    window.tmList.SetEnabled(false);
    window.txtListView.SetVisible(false);
    window.cmdPop.SetVisible(false);
}

} // namespace nodes
