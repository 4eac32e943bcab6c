// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Faults.h"
#include "platform/controls/ListView.h"
#include <algorithm>
#include <utility>

// Where the rows of a list stand, and the editing of their labels.
namespace controls {

void ListView::UserScrolled(int firstVisible, double left) {
    firstVisible_ = std::max(firstVisible, 1);
    left_ = left;
}

double ListView::ColumnLeft(int column) const {
    double left = left_;
    for (int i = 0; i + 1 < column; ++i)
        left += ColumnWidths[static_cast<std::size_t>(i)];
    return left;
}

double ListView::ItemTop(int index) const {
    return (index - firstVisible_) * RowHeight;
}

int ListView::HitTest(double x, double y) const {
    const int columns = static_cast<int>(ColumnWidths.size());
    if (x < left_ || x >= ColumnLeft(columns + 1) || y < 0)
        return 0;
    const double row = firstVisible_ + std::floor(y / RowHeight);
    return row > Count() ? 0 : static_cast<int>(row);
}

void ListView::EnsureVisible(int index) {
    At(index);
    const int whole = std::max(static_cast<int>(Height / RowHeight), 1);
    firstVisible_ = std::clamp(firstVisible_, std::max(index - whole + 1, 1), index);
    ensureVisible(index);
}

bool ListView::StartLabelEdit() {
    if (current_ == 0 || labelEdit_ != 0)
        return false;
    bool cancel = false;
    BeforeLabelEdit(cancel);
    if (cancel || current_ == 0)
        return false;
    EnsureVisible(current_);
    labelEdit_ = current_;
    labelEditStarted(current_);
    return true;
}

void ListView::EndLabelEdit(const QString& text) {
    const int row = std::exchange(labelEdit_, 0);
    labelKept_ = false;
    labelEditEnded();
    if (row == 0 || row > Count())
        return;
    const QString key = Item(row).Key;
    bool cancel = false;
    QString newText = text;
    labelEnding_ = row;
    if (text.isEmpty() || Item(row).Text != text)
        AfterLabelEdit(row, cancel, newText);
    const int now = IndexOf(key); // the answer may have filled the list anew
    if (labelKept_)
        labelEdit_ = now;
    if (!cancel && now > 0)
        SetText(now, newText);
    if (!cancel)
        LabelEdited();
}

void ListView::KeepLabelEdit() {
    labelEdit_ = labelEnding_;
    labelKept_ = true;
}

void ListView::CancelLabelEdit() {
    const int row = std::exchange(labelEdit_, 0);
    labelKept_ = false;
    labelEditEnded();
    if (row > 0 && row <= Count())
        LabelGivenUp(row);
}

} // namespace controls
