// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/nodes/TreeModel.h"
#include "platform/controls/OpenRows.h"
#include <QAbstractItemView>
#include <memory>
#include <optional>

namespace desktop {

/// Shows a TreeModel: a row for each node whose parents are all open, each of the same height. Qt's own tree
/// view has a record of every row and lays all of them out again after a change, which takes seconds for a
/// million. Here a row's place is its number times the height, OpenRows counts them, and only rows in sight
/// are looked at. What all views have in common (selection, editors, pulling) is Qt's. The model stays the
/// tree that it is: a flat one of the open rows would need the same counting and the same view, for branches
/// and keys.
class TreeRowsView : public QAbstractItemView {
    Q_OBJECT
public:
    explicit TreeRowsView(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model) override; ///< a TreeModel or null

    int rowCount() const; ///< of open rows, in sight or not
    QModelIndex indexAtRow(int row) const;
    int rowOf(const QModelIndex& index) const; ///< -1 where it is hidden in a closed node
    bool isExpanded(const QModelIndex& index) const;

    QModelIndex indexAt(const QPoint& point) const override;
    /// From the picture to the right edge of the widest row; empty for a hidden row.
    QRect visualRect(const QModelIndex& index) const override;
    /// What is hidden in closed nodes stays so. They are opened where a hidden row becomes the current one.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void reset() override;

protected:
    controls::TreeNode NodeAtRow(int row) const;
    QModelIndex IndexOf(const controls::TreeNode& node) const;
    controls::TreeNode NodeAt(const QModelIndex& index) const;
    int RowAt(int y) const;                          ///< -1 below the last one
    int RowsInSight() const { return rowsInSight_; } ///< whole ones that have room
    /// The row whose mark for open or closed is at a place; -1 where there is none.
    int RowOfMarkAt(const QPoint& place) const;

    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

private:
    void Follow(TreeModel& nodes);
    int FirstRow() const;
    int Step() const; ///< pixels that a row stands further right than its parent's
    int LeftOf(const controls::TreeNode& node) const;
    QRect RectOfRow(int row) const;
    QRect RectOfMark(int row, const controls::TreeNode& node) const;
    void PaintRow(QPainter& painter, QStyleOptionViewItem option, int row) const;
    void Widen();
    void FitBars();
    void ShowBeginOf(int row);
    void SetHovered(int row);

    TreeModel* nodes_ = nullptr;
    std::optional<controls::OpenRows> rows_;
    std::unique_ptr<QObject> following_; ///< as long as it lives, the tree's announcements come in
    int rowHeight_ = 1, width_ = 0;      ///< in pixels; of the widest row that was in sight
    int rowsInSight_ = 1;
    int hovered_ = -1; ///< the row under the pointer
};

} // namespace desktop
