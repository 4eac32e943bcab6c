// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListEditor.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/NodeKind.h"
#include "nodes/ListCommit.h"
#include "nodes/ListPlace.h"
#include "nodes/ListRows.h"
#include "nodes/ListState.h"
#include <Qt>

namespace nodes {

namespace {

constexpr double kIntoTheCell = 10; // twips from a cell's left edge to the point that stands for it

bool IsReport(const DocumentWindow& window) {
    return window.ListView1.View() == controls::lvwReport;
}

// The column that the editor works on in a row at a point: 1 or 2 (the text of an element), 0 for none.
int ColumnAt(const DocumentWindow& window, int row, double left) {
    switch (window.ListView1.Item(row).SmallIcon) {
    case m_tvXML::kElement:
        return left >= window.ListView1.ColumnLeft(3) ? 2 : 1;
    case m_tvXML::kAttribute:
    case m_tvXML::kText:
    case m_tvXML::kCData:
    case m_tvXML::kInstruction:
    case m_tvXML::kComment:
        return 1;
    default:
        return 0;
    }
}

void FillComboOrList(controls::ComboBox& combo, const QStringList& values) {
    combo.Clear();
    for (const QString& value : values)
        combo.AddItem(value);
}

// What there is to choose from instead of typing. The value that goes is still to be read meanwhile.
void FillOffers(DocumentWindow& window, const controls::ListItem& item, int column) {
    std::optional<QStringList> values;
    if (column == 1 && item.SmallIcon == m_tvXML::kAttribute && window.kind.valuesOffered)
        values = window.kind.valuesOffered(window, item.Text);
    FillComboOrList(ListOf(window).cmbValue, values.value_or(QStringList()));
    FillComboOrList(ListOf(window).cmbLVSAC, column == 0 ? NamesOffered(window, item.Text) : QStringList());
    if (values)
        edit::Message(window.app, item.Sub[0]);
}

void OpenEditor(DocumentWindow& window, int row, int column) {
    txtListView_LostFocus(window);
    if (row > window.ListView1.Count())
        return; // the commit of another cell took the row away
    const controls::ListItem& item = window.ListView1.Item(row);
    const QString text = column == 0 ? item.Text : item.Sub[static_cast<std::size_t>(column - 1)];
    ListOf(window).mbIsEditValue = true;
    ListOf(window).msListEditKey = item.Key;
    window.txtListView.Tag = QString::number(column);
    SetListViewComboBox(window, row, column);
    SelectOnlyRow(window, row);
    window.txtListView.SetText(text);
    FillOffers(window, item, column);
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

void Commit(DocumentWindow& window) {
    txtListView_LostFocus(window);
    window.ListView1.SetFocus();
}

// Commits, and opens the editor on a row once what the commit set off is done.
void GoOnWith(DocumentWindow& window, int row) {
    const int column = EditedColumn(window);
    const bool sameRow = row == EditedRow(window);
    Commit(window);
    if (row < 1 || row > window.ListView1.Count())
        return;
    SelectOnlyRow(window, row);
    const bool text = column == 2 && window.ListView1.Item(row).SmallIcon == m_tvXML::kElement;
    OpenColumn(window, text ? 2 : 1);
    // On the same row the caret stays at the end: Ctrl, which led here, may be the first half of Ctrl+V.
    if (sameRow && ListOf(window).mbIsEditValue)
        window.txtListView.Select(window.txtListView.Text().size(), 0);
}

void GiveUp(DocumentWindow& window) {
    edit::Run(window, "txtListView_KeyDown", [&] { CancelListViewTextBox(window); });
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

void EditListViewElementName(DocumentWindow& window) {
    const int row = window.ListView1.SelectedItem();
    if (edit::Shows(window, edit::kListTab) && IsReport(window) && row > 0)
        OpenEditor(window, row, 0);
}

void ChooseOffered(DocumentWindow& window, const QString& text) {
    window.txtListView.SetText(text);
    window.txtListView.Select(0, text.size());
    txtListView_Change(window);
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
