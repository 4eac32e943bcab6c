// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListEditor.h"
#include "core/model/Frame.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Views.h"
#include "nodes/ListCommit.h"
#include "nodes/ListRows.h"
#include <Qt>
#include <algorithm>
#include <utility>

// Opening, keys and place of the list's cell editor; what becomes of its text stands in ListCommit.cpp.

namespace {

constexpr double kOutOfSight = -10000;
constexpr double kIntoTheCell = 10;  // twips from a cell's left edge to the point that stands for it
constexpr double kButtonWidth = 270; // of cmdPop

bool EditsAttribute(DocumentWindow& window) {
    const int row = window.ListView1.IndexOf(window.msListEditKey);
    return row > 0 && window.ListView1.Item(row).SmallIcon == kRowAttribute;
}

bool IsReport(DocumentWindow& window) {
    return window.ListView1.View() == controls::lvwReport;
}

// The column that the editor works on in a row at a point: 1 or 2 (the text of an element), 0 for none.
int ColumnAt(DocumentWindow& window, int row, double left) {
    const int kind = window.ListView1.Item(row).SmallIcon;
    switch (kind) {
    case kRowElement:
        return left >= window.ListView1.ColumnLeft(3) ? 2 : 1;
    case kRowAttribute:
    case kRowText:
    case kRowCData:
    case kRowInstruction:
    case kRowComment:
        return 1;
    default:
        return 0;
    }
}

// Lays editor and button over a cell.
void SetListViewComboBox(DocumentWindow& window, int row, int column) {
    const controls::ListView& list = window.ListView1;
    controls::Bounds cell{list.ColumnLeft(column + 1), list.ItemTop(row),
                          list.ColumnWidths[static_cast<std::size_t>(column)], list.RowHeight};
    cell.Width = std::max(cell.Width - kButtonWidth, kButtonWidth);
    window.txtListView.Move(cell);
    window.cmdPop.Move({cell.Left + cell.Width, cell.Top, kButtonWidth, cell.Height});
}

void OpenEditor(DocumentWindow& window, int row, int column) {
    txtListView_LostFocus(window);
    if (row > window.ListView1.Count())
        return; // the commit of another cell took the row away
    const controls::ListItem& item = window.ListView1.Item(row);
    window.mbIsEditValue = true;
    window.msListEditKey = item.Key;
    window.txtListView.Tag = QString::number(column);
    SetListViewComboBox(window, row, column);
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(row);
    const QString text = item.Sub[static_cast<std::size_t>(column - 1)];
    window.txtListView.SetText(text);
    window.txtListView.SetVisible(true);
    window.cmdPop.SetVisible(true);
    window.txtListView.SetFocus();
    window.txtListView.Select(0, text.size());
}

void OpenColumn(DocumentWindow& window, int column) {
    controls::ListView& list = window.ListView1;
    const int row = list.SelectedItem();
    const bool seen = window.tbsXML.SelectedKey() == QStringLiteral("listview");
    if (!seen || !IsReport(window) || row == 0)
        return;
    list.SetSelectedItem(row);
    list.EnsureVisible(row);
    ShowListViewTextBox(window, list.ColumnLeft(column + 1) + kIntoTheCell, list.ItemTop(row) + 1);
}

// Commits, and opens the editor on a row once what the commit set off is done.
void GoOnWith(DocumentWindow& window, int row) {
    const int column = window.txtListView.Tag == QStringLiteral("2") ? 2 : 1;
    const bool sameRow = row == window.ListView1.IndexOf(window.msListEditKey);
    txtListView_LostFocus(window);
    window.ListView1.SetFocus();
    if (row > window.ListView1.Count())
        return;
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(row);
    const bool text = column == 2 && window.ListView1.Item(row).SmallIcon == kRowElement;
    OpenColumn(window, text ? 2 : 1);
    // On the same row the caret stays at the end: Ctrl, which led here, may be the first half of Ctrl+V.
    if (sameRow && window.mbIsEditValue)
        window.txtListView.Select(window.txtListView.Text().size(), 0);
}

} // namespace

void LayListViewTextBox(DocumentWindow& window) {
    const int row = window.mbIsEditValue ? window.ListView1.IndexOf(window.msListEditKey) : 0;
    if (row == 0)
        return;
    SetListViewComboBox(window, row, window.txtListView.Tag == QStringLiteral("2") ? 2 : 1);
    SetListviewTextboxPosition(window.ListView1, window.txtListView, window.cmdPop, true, 0,
                               window.mdSavedLeft);
}

void ShowListViewTextBox(DocumentWindow& window, double left, double top) {
    const int row = window.ListView1.HitTest(left, top);
    const int column = IsReport(window) && row > 0 ? ColumnAt(window, row, left) : 0;
    if (column > 0)
        OpenEditor(window, row, column);
}

void EditListViewAttribute(DocumentWindow& window) {
    OpenColumn(window, 1);
}

void EditListViewText(DocumentWindow& window) {
    OpenColumn(window, 2);
}

void txtListView_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    window.miPopupContext = kContextList;
    const controls::TextBox& editor = window.txtListView;
    const int row = window.ListView1.IndexOf(window.msListEditKey);
    const bool atStart = editor.SelStart() == 0 && editor.SelLength() == 0;
    const bool atEnd = editor.SelStart() == editor.Text().size();
    const bool shift = (modifiers & static_cast<int>(Qt::ShiftModifier)) != 0;
    switch (key) {
    case Qt::Key_Up:
        if (row > 1)
            GoOnWith(window, row - 1);
        break;
    case Qt::Key_Down:
        if (row < window.ListView1.Count())
            GoOnWith(window, row + 1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Tab:
    case Qt::Key_Control:
        if (!atEnd || shift)
            return;
        GoOnWith(window, row);
        break;
    case Qt::Key_Left:
        if (!atStart || shift)
            return;
        txtListView_LostFocus(window);
        window.ListView1.SetFocus();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        txtListView_LostFocus(window);
        window.ListView1.SetFocus();
        break;
    case Qt::Key_Escape:
        CancelListViewTextBox(window);
        window.ListView1.SetFocus();
        break;
    default:
        return;
    }
    key = 0;
}

void txtListView_Change(DocumentWindow& window) {
    if (window.mbIsEditValue)
        m_tvXML::ComplainWhileTyping(window.app, ListCellProbe(window, window.txtListView.Text()),
                                     EditsAttribute(window) ? 1 : -1);
}

void txtListView_GotFocus(DocumentWindow& window) {
    window.miPopupContext = kContextList;
    if (window.app.frame) {
        window.app.frame->SetMenuSituation(MenuSituation::ListSelected); // a cell takes any text
        window.app.frame->EnableEntitiesToolbar();
    }
    window.miListFirstVisible = window.ListView1.GetFirstVisible();
    window.mdListLeft = window.ListView1.Left();
    window.tmList.SetEnabled(true);
}

// What the user typed so far is no fault any more; the complaint about a text that was handed in stays.
void CancelListViewTextBox(DocumentWindow& window) {
    if (std::exchange(window.mbIsEditValue, false))
        m_tvXML::ComplainWhileTyping(window.app, {});
    window.tmList.SetEnabled(false);
    window.txtListView.SetVisible(false);
    window.cmdPop.SetVisible(false);
    if (window.app.frame)
        window.app.frame->SetToolBar();
}

void tmList_Timer(DocumentWindow& window) {
    if (!window.mbIsEditValue)
        return;
    const controls::ListView& list = window.ListView1;
    if (const int rows = window.miListFirstVisible - list.GetFirstVisible(); rows != 0) {
        window.miListFirstVisible = list.GetFirstVisible();
        SetListviewTextboxPosition(list, window.txtListView, window.cmdPop, false, rows * list.RowHeight,
                                   window.mdSavedLeft);
    }
    if (const double moved = list.Left() - window.mdListLeft; moved != 0) {
        window.mdListLeft = list.Left();
        SetListviewTextboxPosition(list, window.txtListView, window.cmdPop, true, moved, window.mdSavedLeft);
    }
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
