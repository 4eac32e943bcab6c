// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeWidget.h"
#include "desktop/base/OneLine.h"
#include "desktop/nodes/TreeAccessible.h"
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

namespace desktop {

using controls::TreeNode;

TreeWidget::TreeWidget(QWidget* parent) : DragView(parent) {
    InstallTreeAccessibility();
    connect(this, &QAbstractItemView::doubleClicked, this, [this] { doubled_ = true; });
}

// --- opening and closing -----------------------------------------------------------------------------------

void TreeWidget::setExpanded(const QModelIndex& index, bool open) {
    TreeNode node = NodeAt(index);
    if (!node || !node.Child() || node.Expanded() == open)
        return;
    node.SetExpanded(open);
    Q_EMIT toggled(index, open);
}

void TreeWidget::Toggle(int row) {
    const QModelIndex index = indexAtRow(row);
    setExpanded(index, !isExpanded(index));
}

// From the inside out, behind the closed node: its rows come once.
void TreeWidget::expandRecursively(const QModelIndex& index) {
    TreeNode top = NodeAt(index);
    if (!top || !top.Child())
        return;
    top.SetExpanded(false);
    std::vector<TreeNode> nodes{top};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        for (TreeNode child = nodes[i].Child(); child; child = child.Next()) {
            if (child.Child())
                nodes.push_back(child);
        }
    }
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node)
        node->SetExpanded(true);
    Q_EMIT toggled(index, true);
}

// --- keys --------------------------------------------------------------------------------------------------

void TreeWidget::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    const TreeNode node = NodeAt(current);
    acted_ = node && node.Child();
    if (acted_ && event->key() == Qt::Key_Asterisk)
        return expandRecursively(current);
    if (acted_ && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus))
        return setExpanded(current, event->key() == Qt::Key_Plus);
    acted_ = false;
    DragView::keyPressEvent(event);
    if (acted_)
        event->accept();
}

void TreeWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    DragView::currentChanged(current, previous);
    TellCurrentRow(*this);
}

// One that is hidden in a closed node counts as that node's.
int TreeWidget::CurrentRow() const {
    int row = rowOf(currentIndex());
    for (TreeNode node = NodeAt(currentIndex()); node && row < 0; node = node.Parent())
        row = rowOf(IndexOf(node));
    return row;
}

QModelIndex TreeWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int row = CurrentRow();
    if (row < 0)
        return indexAtRow(0);
    if (action == MoveLeft || action == MoveRight)
        return indexAtRow(action == MoveLeft ? RowLeftOf(row) : RowRightOf(row));
    return indexAtRow(std::clamp(RowBy(action, row), 0, rowCount() - 1));
}

int TreeWidget::RowBy(CursorAction action, int row) const {
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return row - 1;
    case MoveDown:
    case MoveNext:
        return row + 1;
    case MovePageUp:
        return row - RowsInSight();
    case MovePageDown:
        return row + RowsInSight();
    case MoveHome:
        return 0;
    case MoveEnd:
        return rowCount() - 1;
    default:
        return row;
    }
}

// Left closes, then goes to the parent; where there is nothing to close or to go to, the view moves.
int TreeWidget::RowLeftOf(int row) {
    const TreeNode node = NodeAtRow(row);
    acted_ = true;
    if (node.Child() && node.Expanded())
        Toggle(row);
    else if (const TreeNode parent = node.Parent())
        return rowOf(IndexOf(parent));
    else
        acted_ = ScrollAcross(-1);
    return row;
}

// Right opens, then goes to the first child.
int TreeWidget::RowRightOf(int row) {
    const TreeNode node = NodeAtRow(row);
    acted_ = true;
    if (node.Child() && node.Expanded())
        return row + 1;
    if (node.Child())
        Toggle(row);
    else
        acted_ = ScrollAcross(1);
    return row;
}

bool TreeWidget::ScrollAcross(int steps) {
    QScrollBar& across = *horizontalScrollBar();
    const int before = across.value();
    across.setValue(before + steps * across.singleStep());
    return across.value() != before;
}

// Letters that follow one another quickly are one beginning; the same one again goes on to the next row.
void TreeWidget::keyboardSearch(const QString& typed) {
    const bool goesOn =
        !typed.isEmpty() && pause_.isValid() && pause_.elapsed() < QApplication::keyboardInputInterval();
    typed_ = goesOn ? typed_ + typed : typed;
    pause_.start();
    if (typed_.isEmpty() || rowCount() == 0)
        return;
    const bool same = typed_.size() > 1 && typed_.count(typed_.back()) == typed_.size();
    const int current = CurrentRow();
    const int from = current < 0 ? 0 : !goesOn || same ? current + 1 : current;
    if (const int row = FindFrom(from, same ? typed_.left(1) : typed_); row >= 0)
        setCurrentIndex(indexAtRow(row));
}

// Down to the end and on from the top.
int TreeWidget::FindFrom(int row, const QString& text) const {
    for (int i = 0; i < rowCount(); ++i) {
        const int here = (row + i) % rowCount();
        text::CompactView begin = NodeAtRow(here).TextView();
        begin.length = std::min(begin.length, static_cast<std::uint32_t>(text.size()));
        if (OneLine(begin).compare(text, Qt::CaseInsensitive) == 0)
            return here;
    }
    return -1;
}

// --- mouse -------------------------------------------------------------------------------------------------

// A click on a mark is none on its row: neither is the row selected nor can it be pulled.
bool TreeWidget::IsClickOnMark(const QMouseEvent& event) {
    onMark_ = RowOfMarkAt(event.position().toPoint()) >= 0;
    return onMark_;
}

void TreeWidget::mousePressEvent(QMouseEvent* event) {
    if (!IsClickOnMark(*event))
        DragView::mousePressEvent(event);
    else if (style()->styleHint(QStyle::SH_ListViewExpand_SelectMouseType, nullptr, this) ==
             QEvent::MouseButtonPress)
        Toggle(RowOfMarkAt(event->position().toPoint()));
}

void TreeWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!onMark_ || event->buttons() == Qt::NoButton)
        DragView::mouseMoveEvent(event);
}

void TreeWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(onMark_, false))
        return DragView::mouseReleaseEvent(event);
    const int row = RowOfMarkAt(event->position().toPoint());
    if (row >= 0 && style()->styleHint(QStyle::SH_ListViewExpand_SelectMouseType, nullptr, this) ==
                        QEvent::MouseButtonRelease)
        Toggle(row);
}

void TreeWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (IsClickOnMark(*event))
        return;
    doubled_ = false;
    const QPersistentModelIndex index = indexAt(event->position().toPoint());
    DragView::mouseDoubleClickEvent(event);
    if (doubled_ && index.isValid() && state() == NoState)
        setExpanded(index, !isExpanded(index));
}

} // namespace desktop
