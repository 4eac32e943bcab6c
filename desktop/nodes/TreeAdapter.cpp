// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeAdapter.h"
#include "desktop/base/Glyphs.h"
#include "desktop/nodes/LabelDelegate.h"
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace desktop {

using controls::TreeNode;

TreeAdapter::TreeAdapter(controls::TreeView& model, TreeWidget& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), rows_(model, NodeIcon), events_(widget, this) {
    events_.Bind(model, widget);
    // The model's "about to" announcements must reach this object before the widget, and the others behind
    // it: while rows go, the widget selects a neighbour by itself.
    connect(&rows_, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { ++updating_; });
    connect(&rows_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        ++updating_;
        KeepPlace();
    });
    widget.setModel(&rows_);
    widget.viewport()->installEventFilter(this);
    ConnectRows();

    ConnectSelection();
    connect(&widget, &TreeWidget::toggled, this, &TreeAdapter::Toggled);
    connect(&widget, &TreeWidget::doubleClicked, this, [this] { model_.DblClick(); });

    Listen(model.selectionChanged, this, [this](const TreeNode&) { ShowSelected(); });
    Listen(model.Drag.End, this, [this] { DragEnded(); });
    Listen(model.ensureVisible, this,
           [this](const TreeNode& node) { widget_.scrollTo(rows_.IndexOf(node)); });
    ShowSelected();
    ConnectLabels();
}

// A click beside the nodes, or with Ctrl, takes the mark away and not the current node: it stays seen.
void TreeAdapter::ConnectSelection() {
    const QItemSelectionModel* selection = widget_.selectionModel();
    connect(selection, &QItemSelectionModel::currentChanged, this, &TreeAdapter::CurrentChanged);
    connect(selection, &QItemSelectionModel::selectionChanged, this, [this, selection] {
        if (!selection->hasSelection() && model_.SelectedItem())
            ShowSelected();
    });
}

void TreeAdapter::ConnectLabels() {
    auto* const labels =
        new LabelDelegate(this, {.givenUp = [this] { model_.CancelLabelEdit(); },
                                 .typed = [this](const QString& text) { model_.LabelTyped(text); },
                                 .kept = [this] { return model_.LabelKept(); }});
    widget_.setItemDelegate(labels);
    Listen(model_.labelEditFinish, labels, [labels] { labels->Finish(); });
    Listen(model_.labelEditStarted, this,
           [this](const TreeNode& node) { widget_.edit(rows_.IndexOf(node)); });
    // The widget drops its editors when the tree is replaced as a whole.
    connect(&rows_, &QAbstractItemModel::modelReset, labels, [this] {
        if (model_.LabelEditNode())
            model_.CancelLabelEdit();
    });
}

void TreeAdapter::ConnectRows() {
    connect(&rows_, &QAbstractItemModel::rowsRemoved, this, [this] {
        --updating_;
        ShowSelected();
    });
    connect(&rows_, &QAbstractItemModel::modelReset, this, [this] {
        --updating_;
        RestorePlace();
        ShowSelected();
    });
}

TreeAdapter::~TreeAdapter() {
    ++updating_;
    widget_.setModel(nullptr);
}

// --- the user's acts -------------------------------------------------------------------------------------

void TreeAdapter::CurrentChanged(const QModelIndex& current) {
    if (updating_ > 0)
        return;
    const TreeNode node = rows_.NodeAt(current);
    if (node == model_.SelectedItem())
        return;
    {
        const QScopedValueRollback guard(updating_, updating_ + 1);
        model_.SetSelectedItem(node);
    }
    // With the mouse the click comes when the button is let go.
    if (QApplication::mouseButtons() != Qt::NoButton)
        moved_ = true;
    else
        model_.NodeClick(node);
}

void TreeAdapter::Toggled(const QModelIndex& index, bool open) {
    const TreeNode node = rows_.NodeAt(index);
    if (open)
        model_.Expand(node);
    else
        model_.Collapse(node);
}

bool TreeAdapter::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress)
        return MousePressed();
    if (event->type() == QEvent::MouseButtonRelease)
        MouseReleased(static_cast<QMouseEvent*>(event)->pos());
    // A context menu keeps the button's release for itself, and works on the node it was opened over, the
    // current one too.
    if (event->type() == QEvent::ContextMenu) {
        moved_ = false;
        if (model_.SelectedItem())
            model_.NodeClick(model_.SelectedItem());
    }
    return false;
}

// The press took the focus from a text that was built into a new tree then: other rows may stand under the
// pointer. True: it has been seen to.
bool TreeAdapter::MousePressed() {
    const auto pressed = std::exchange(pressed_, std::nullopt);
    if (pressed)
        widget_.setCurrentIndex(rows_.IndexOf(pressed->nearestIn(model_)));
    return pressed.has_value();
}

void TreeAdapter::MouseReleased(const QPoint& place) {
    const bool onNode = widget_.indexAt(place).isValid();
    if ((std::exchange(moved_, false) || onNode) && model_.SelectedItem())
        model_.NodeClick(model_.SelectedItem());
    model_.Click();
}

// The drag has kept the button's release for itself. Where it ended in another view that has the focus, the
// views followed the node when the tree lost it.
void TreeAdapter::DragEnded() {
    moved_ = false;
    if (widget_.hasFocus() && model_.SelectedItem())
        model_.NodeClick(model_.SelectedItem());
}

// --- the model's changes -----------------------------------------------------------------------------------

void TreeAdapter::ShowSelected() {
    if (updating_ > 0)
        return;
    const QScopedValueRollback guard(updating_, updating_ + 1);
    const QModelIndex index = rows_.IndexOf(model_.SelectedItem());
    if (!index.isValid())
        widget_.selectionModel()->clear();
    else if (index != widget_.currentIndex())
        widget_.setCurrentIndex(index);
    else
        widget_.selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
}

void TreeAdapter::KeepPlace() {
    scrolled_ = {widget_.horizontalScrollBar()->value(), widget_.verticalScrollBar()->value()};
    pressed_.reset();
    const QPoint place = widget_.viewport()->mapFromGlobal(QCursor::pos());
    if (QApplication::mouseButtons() == Qt::NoButton || !widget_.viewport()->rect().contains(place))
        return;
    if (const TreeNode node = rows_.NodeAt(widget_.indexAt(place)))
        pressed_.emplace(node);
}

void TreeAdapter::RestorePlace() {
    if (scrolled_.isNull())
        return;
    widget_.doItemsLayout();
    widget_.verticalScrollBar()->setValue(scrolled_.y());
    widget_.horizontalScrollBar()->setValue(scrolled_.x()); // its range is that of the rows in sight
}

} // namespace desktop
