// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListEditor.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "nodes/Adding.h"
#include "nodes/ListCommit.h"
#include "nodes/ListPlace.h"
#include "nodes/ListRows.h"
#include "nodes/ListState.h"
#include <Qt>
#include <algorithm>
#include <vector>

namespace nodes {

namespace {

constexpr double kIntoTheCell = 10; // twips from a cell's left edge to the point that stands for it

bool IsReport(const DocumentWindow& window) {
    return window.ListView1.View() == controls::lvwReport;
}

// The columns of a row that can be edited, in the order of Tab: 0 is the name, 2 the text of an element.
std::vector<int> ColumnsOf(const DocumentWindow& window, int row) {
    switch (window.ListView1.Item(row).SmallIcon) {
    case m_tvXML::kElement:
        return {0, 1, 2};
    case m_tvXML::kAttribute:
        return {0, 1};
    case m_tvXML::kText:
    case m_tvXML::kCData:
    case m_tvXML::kInstruction:
    case m_tvXML::kComment:
        return {1};
    default:
        return {};
    }
}

// The column that the editor works on in a row at a point: 1 or 2 (the text of an element), 0 for none.
int ColumnAt(const DocumentWindow& window, int row, double left) {
    const std::vector<int> columns = ColumnsOf(window, row);
    if (columns.empty())
        return 0;
    return columns.back() == 2 && left >= window.ListView1.ColumnLeft(3) ? 2 : 1;
}

// The box is one line for short texts: a long one would take seconds to lay out. The dialog has room for it
// (quirk 64).
bool OpensInDialog(DocumentWindow& window, const QString& text) {
    constexpr qsizetype kLongest = 100'000;
    if (text.size() <= kLongest)
        return false;
    window.app.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
    return true;
}

void OpenEditor(DocumentWindow& window, int row, int column) {
    const QString key = window.ListView1.Item(row).Key;
    txtListView_LostFocus(window);
    row = window.ListView1.IndexOf(key);
    if (ListOf(window).mbIsEditValue || row == 0)
        return; // the text of another cell was refused, or took the row away
    const QString text = window.ListView1.Item(row).Sub[static_cast<std::size_t>(column - 1)];
    SelectOnlyRow(window, row);
    if (OpensInDialog(window, text))
        return;
    ListOf(window).mbIsEditValue = true;
    ListOf(window).msListEditKey = key;
    window.txtListView.Tag = QString::number(column);
    SetListViewComboBox(window, row, column);
    window.txtListView.SetText(text);
    window.txtListView.SetVisible(true);
    window.cmdPop.SetVisible(true);
    window.txtListView.SetFocus();
    window.txtListView.Select(0, text.size());
}

void OpenColumn(DocumentWindow& window, int column) {
    controls::ListView& list = window.ListView1;
    const int row = list.SelectedItem();
    if (!edit::Shows(window, edit::kListTab) || !IsReport(window) || row == 0)
        return;
    list.SetSelectedItem(row);
    list.EnsureVisible(row);
    ShowListViewTextBox(window, list.ColumnLeft(column + 1) + kIntoTheCell, list.ItemTop(row) + 1);
}

int EditedRow(DocumentWindow& window) {
    return window.ListView1.IndexOf(ListOf(window).msListEditKey);
}

// False where the text was refused.
bool Commit(DocumentWindow& window) {
    txtListView_LostFocus(window);
    if (ListOf(window).mbIsEditValue)
        return false;
    window.ListView1.SetFocus();
    return true;
}

// Commits, and opens the editor on a row once what the commit set off is done.
void GoOnWith(DocumentWindow& window, int row) {
    const int column = EditedColumn(window);
    const bool sameRow = row == EditedRow(window);
    if (!Commit(window) || row < 1 || row > window.ListView1.Count())
        return;
    SelectOnlyRow(window, row);
    const bool text = column == 2 && window.ListView1.Item(row).SmallIcon == m_tvXML::kElement;
    OpenColumn(window, text ? 2 : 1);
    // On the same row the caret stays at the end: Ctrl, which led here, may be the first half of Ctrl+V.
    if (sameRow && ListOf(window).mbIsEditValue)
        window.txtListView.Select(window.txtListView.Text().size(), 0);
}

// --- from cell to cell
// ---------------------------------------------------------------------------------------

void OpenCell(DocumentWindow& window, int row, int column) {
    SelectOnlyRow(window, row);
    if (column == 0)
        window.ListView1.StartLabelEdit();
    else
        OpenColumn(window, column);
}

// The next cell in the row, else the first one of the next row that has any; backwards likewise. At the end
// the row stays.
void OpenNextCell(DocumentWindow& window, int row, int column, bool back) {
    const auto next = [&](const std::vector<int>& columns, int from) {
        const auto behind = [&](int one) { return back ? one < from : one > from; };
        return back ? std::find_if(columns.rbegin(), columns.rend(), behind).base() - columns.begin() - 1
                    : std::find_if(columns.begin(), columns.end(), behind) - columns.begin();
    };
    for (int at = row; at >= 1 && at <= window.ListView1.Count(); at += back ? -1 : 1) {
        const std::vector<int> columns = ColumnsOf(window, at);
        const auto place = next(columns, at == row ? column : back ? 3 : -1);
        if (place >= 0 && place < std::ssize(columns))
            return OpenCell(window, at, columns[static_cast<std::size_t>(place)]);
    }
}

void GoToNextCell(DocumentWindow& window, bool back) {
    const QString key = ListOf(window).msListEditKey;
    const int column = EditedColumn(window);
    if (!Commit(window))
        return;
    if (const int row = window.ListView1.IndexOf(key); row > 0)
        OpenNextCell(window, row, column, back);
}

// --- giving up
// -----------------------------------------------------------------------------------------------

// A node that was to be filled goes with it.
void GiveUp(DocumentWindow& window) {
    edit::Run(window, "txtListView_KeyDown", [&] {
        if (IsAdding(window, ListOf(window).msListEditKey))
            TakeBackAdding(window);
        CancelListViewTextBox(window);
    });
    window.ListView1.SetFocus();
}

} // namespace

void ShowListViewTextBox(DocumentWindow& window, double left, double top) {
    const int row = window.ListView1.HitTest(left, top);
    const int column = IsReport(window) && row > 0 ? ColumnAt(window, row, left) : 0;
    if (column > 0)
        OpenEditor(window, row, column);
}

void EditListViewAttribute(DocumentWindow& window) {
    OpenColumn(window, 1);
}

void ListView1_LabelTabbed(DocumentWindow& window, bool back) {
    if (const int row = window.ListView1.SelectedItem(); row > 0 && window.ListView1.LabelEditRow() == 0)
        OpenNextCell(window, row, 0, back);
}

void txtListView_GotFocus(DocumentWindow& window) {
    edit::Run(window, "txtListView_GotFocus", [&] { edit::Attend(window, kContextList); });
    FollowScrolling(window);
}

void txtListView_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    edit::Attend(window, kContextList);
    const controls::TextBox& editor = window.txtListView;
    const int row = EditedRow(window);
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
    case Qt::Key_Tab: // quirk 60
    case Qt::Key_Backtab:
        GoToNextCell(window, shift || key == Qt::Key_Backtab);
        break;
    case Qt::Key_Right:
    case Qt::Key_Control:
        if (!atEnd || shift)
            return;
        GoOnWith(window, row);
        break;
    case Qt::Key_Left:
        if (!atStart || shift)
            return;
        Commit(window);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Commit(window);
        break;
    case Qt::Key_Escape:
        GiveUp(window);
        break;
    default:
        return;
    }
    key = 0;
}

} // namespace nodes
