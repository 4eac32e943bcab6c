// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeRowsView.h"
#include "desktop/base/Listen.h"
#include "desktop/nodes/TreeBranches.h"
#include <QHoverEvent>
#include <QPainter>
#include <QScrollBar>

namespace desktop {

using controls::TreeNode;

TreeRowsView::TreeRowsView(QWidget* parent) : QAbstractItemView(parent) {
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    viewport()->setAttribute(Qt::WA_Hover);
}

// --- the model ---------------------------------------------------------------------------------------------

void TreeRowsView::setModel(QAbstractItemModel* model) {
    following_.reset();
    rows_.reset();
    nodes_ = dynamic_cast<TreeModel*>(model);
    if (nodes_)
        Follow(*nodes_);
    QAbstractItemView::setModel(model);
}

void TreeRowsView::Follow(TreeModel& nodes) {
    following_ = std::make_unique<QObject>();
    rows_.emplace(nodes.Tree());
    connect(&nodes, &QAbstractItemModel::modelAboutToBeReset, following_.get(), [this] { rows_->clear(); });
    connect(&nodes, &QObject::destroyed, following_.get(), [this] {
        rows_.reset();
        nodes_ = nullptr;
    });
    Listen(nodes.Tree().expandedChanged, following_.get(), [this](const TreeNode& node) {
        rows_->expandedChanged(node);
        scheduleDelayedItemsLayout();
    });
}

void TreeRowsView::reset() {
    if (rows_)
        rows_->fill();
    QAbstractItemView::reset();
}

void TreeRowsView::rowsInserted(const QModelIndex& parent, int first, int last) {
    for (int row = last; row >= first; --row)
        rows_->inserted(NodeAt(nodes_->index(row, 0, parent)));
    QAbstractItemView::rowsInserted(parent, first, last);
    scheduleDelayedItemsLayout();
}

void TreeRowsView::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
    QAbstractItemView::rowsAboutToBeRemoved(parent, first, last);
    for (int row = last; row >= first; --row)
        rows_->aboutToRemove(NodeAt(nodes_->index(row, 0, parent)));
    scheduleDelayedItemsLayout();
}

void TreeRowsView::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    QAbstractItemView::dataChanged(first, last, roles);
    if (roles.isEmpty()) // the text may be wider than before
        scheduleDelayedItemsLayout();
}

// From the inside out: the rows come once, when the outermost node opens.
void TreeRowsView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    for (TreeNode node = NodeAt(current); node && rowOf(current) < 0;) {
        node = node.Parent();
        if (node)
            node.SetExpanded(true);
    }
    QAbstractItemView::currentChanged(current, previous);
}

TreeNode TreeRowsView::NodeAt(const QModelIndex& index) const {
    return nodes_ ? nodes_->NodeAt(index) : TreeNode();
}

QModelIndex TreeRowsView::IndexOf(const TreeNode& node) const {
    return nodes_ ? nodes_->IndexOf(node) : QModelIndex();
}

TreeNode TreeRowsView::NodeAtRow(int row) const {
    return rows_ ? rows_->at(row) : TreeNode();
}

int TreeRowsView::rowCount() const {
    return rows_ ? rows_->count() : 0;
}

QModelIndex TreeRowsView::indexAtRow(int row) const {
    return IndexOf(NodeAtRow(row));
}

int TreeRowsView::rowOf(const QModelIndex& index) const {
    return rows_ ? rows_->rowOf(NodeAt(index)) : -1;
}

bool TreeRowsView::isExpanded(const QModelIndex& index) const {
    const TreeNode node = NodeAt(index);
    return node && node.Expanded();
}

// --- places ------------------------------------------------------------------------------------------------

// The bars follow a change of the rows a little later.
int TreeRowsView::FirstRow() const {
    return std::clamp(verticalScrollBar()->value(), 0, std::max(rowCount() - rowsInSight_, 0));
}

int TreeRowsView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int TreeRowsView::verticalOffset() const {
    return FirstRow() * rowHeight_;
}

int TreeRowsView::Step() const {
    return style()->pixelMetric(QStyle::PM_TreeViewIndentation, nullptr, this);
}

int TreeRowsView::LeftOf(const TreeNode& node) const {
    int levels = 0;
    for (TreeNode above = node; above; above = above.Parent())
        ++levels;
    return levels * Step();
}

QRect TreeRowsView::RectOfRow(int row) const {
    return {-horizontalOffset(), (row - FirstRow()) * rowHeight_, width_, rowHeight_};
}

QRect TreeRowsView::RectOfMark(int row, const TreeNode& node) const {
    const QRect whole = RectOfRow(row);
    return {whole.left() + LeftOf(node) - Step(), whole.top(), Step(), whole.height()};
}

int TreeRowsView::RowAt(int y) const {
    const int row = FirstRow() + y / rowHeight_;
    return y >= 0 && row < rowCount() ? row : -1;
}

QModelIndex TreeRowsView::indexAt(const QPoint& point) const {
    const int row = RowAt(point.y());
    return row >= 0 && RectOfRow(row).contains(point) ? indexAtRow(row) : QModelIndex();
}

QRect TreeRowsView::visualRect(const QModelIndex& index) const {
    const int row = rowOf(index);
    if (row < 0)
        return {};
    QRect rect = RectOfRow(row);
    rect.setLeft(rect.left() + LeftOf(NodeAt(index)));
    rect.setWidth(
        std::max(rect.width(), rowHeight_)); // one out of sight may be deeper than any that was seen
    return rect;
}

int TreeRowsView::RowOfMarkAt(const QPoint& place) const {
    const int row = RowAt(place.y());
    const TreeNode node = NodeAtRow(row);
    if (!node || !node.Child())
        return -1;
    QStyleOption option;
    option.initFrom(this);
    option.rect = RectOfMark(row, node);
    return style()->subElementRect(QStyle::SE_TreeViewDisclosureItem, &option, this).contains(place) ? row
                                                                                                     : -1;
}

void TreeRowsView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const QModelIndex index = indexAt(rect.center());
    if (index.isValid())
        selectionModel()->select(index, command);
    else if ((command & QItemSelectionModel::Clear) != 0)
        selectionModel()->clearSelection();
}

// With the branches: a style may mark all of the row.
QRegion TreeRowsView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QModelIndex& index : selection.indexes()) {
        if (const int row = rowOf(index); row >= 0)
            region += QRect(0, RectOfRow(row).top(), viewport()->width(), rowHeight_);
    }
    return region;
}

// --- scrolling ---------------------------------------------------------------------------------------------

void TreeRowsView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    executeDelayedItemsLayout();
    const int row = rowOf(index), first = FirstRow();
    if (row < 0)
        return;
    QScrollBar& down = *verticalScrollBar();
    if (hint == PositionAtTop || (hint == EnsureVisible && row < first))
        down.setValue(row);
    else if (hint == PositionAtCenter)
        down.setValue(row - rowsInSight_ / 2);
    else if (hint == PositionAtBottom || row >= first + rowsInSight_)
        down.setValue(row - rowsInSight_ + 1);
    ShowBeginOf(row);
}

// Its mark, its picture and the first letters. A long text doesn't move the view to and fro.
void TreeRowsView::ShowBeginOf(int row) {
    constexpr int kLetters = 4; // as wide as the row is high
    QScrollBar& across = *horizontalScrollBar();
    const int left = LeftOf(NodeAtRow(row)) - Step();
    const int right = std::min(left + Step() + kLetters * rowHeight_, width_);
    if (left < across.value() || right - viewport()->width() > left)
        across.setValue(left);
    else if (right - viewport()->width() > across.value())
        across.setValue(right - viewport()->width());
}

void TreeRowsView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy * rowHeight_);
    const int before = width_;
    if (dy != 0)
        Widen();
    if (width_ == before)
        return;
    FitBars();
    viewport()->update();
}

void TreeRowsView::updateGeometries() {
    const QModelIndex top = indexAtRow(0);
    rowHeight_ = std::max(top.isValid() ? sizeHintForIndex(top).height() : fontMetrics().height(), 1);
    const int scrolled = horizontalScrollBar()->value();
    width_ = scrolled > 0 ? scrolled + viewport()->width() : 0; // it doesn't jump
    Widen();
    FitBars();
    QAbstractItemView::updateGeometries();
}

void TreeRowsView::Widen() {
    for (int row = FirstRow(), y = 0; y < viewport()->height() && row < rowCount(); ++row, y += rowHeight_) {
        const TreeNode node = NodeAtRow(row);
        width_ = std::max(width_, LeftOf(node) + sizeHintForIndex(IndexOf(node)).width());
    }
}

// A bar takes room, and may so make the other one needed: none is where all fits without.
void TreeRowsView::FitBars() {
    const QSize most = maximumViewportSize();
    const bool fits = width_ <= most.width() && rowCount() <= most.height() / rowHeight_;
    const QSize room = fits ? most : viewport()->size();
    rowsInSight_ = std::max(room.height() / rowHeight_, 1);
    verticalScrollBar()->setPageStep(rowsInSight_);
    verticalScrollBar()->setRange(0, std::max(rowCount() - rowsInSight_, 0));
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(std::max(room.width() / 2, 2));
    horizontalScrollBar()->setRange(0, std::max(width_ - room.width(), 0));
}

// --- painting ----------------------------------------------------------------------------------------------

bool TreeRowsView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
        SetHovered(RowAt(static_cast<QHoverEvent*>(event)->position().toPoint().y()));
    else if (event->type() == QEvent::HoverLeave)
        SetHovered(-1);
    return QAbstractItemView::viewportEvent(event);
}

void TreeRowsView::SetHovered(int row) {
    if (row == hovered_)
        return;
    viewport()->update(RectOfRow(hovered_));
    hovered_ = row;
    viewport()->update(RectOfRow(hovered_));
}

void TreeRowsView::paintEvent(QPaintEvent* event) {
    executeDelayedItemsLayout();
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QPainter painter(viewport());
    const QRect stale = event->rect();
    const int last = RowAt(stale.bottom());
    for (int row = RowAt(stale.top()); row >= 0 && row <= (last >= 0 ? last : rowCount() - 1); ++row)
        PaintRow(painter, option, row);
}

void TreeRowsView::PaintRow(QPainter& painter, QStyleOptionViewItem option, int row) const {
    const TreeNode node = NodeAtRow(row);
    const QModelIndex index = IndexOf(node);
    option.rect = RectOfRow(row);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    option.state.setFlag(QStyle::State_MouseOver, row == hovered_);
    const QRect mark = RectOfMark(row, node);
    PaintBranches(painter, option, node, mark);
    option.rect.setLeft(mark.right() + 1);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
    itemDelegateForIndex(index)->paint(&painter, option, index);
}

} // namespace desktop
