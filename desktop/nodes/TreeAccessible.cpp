// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeAccessible.h"
#include "desktop/nodes/TreeRowsView.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

namespace desktop {

namespace {

class AccessibleRow : public QAccessibleInterface {
public:
    AccessibleRow(TreeRowsView& view, const QModelIndex& index) : view_(&view), index_(index) {}

    bool isValid() const override { return view_ && view_->rowOf(index_) >= 0; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? index_.data().toString() : QString();
    }
    QRect rect() const override {
        const QRect rect = isValid() ? view_->visualRect(index_) : QRect();
        return rect.isEmpty() ? rect : QRect(view_->viewport()->mapToGlobal(rect.topLeft()), rect.size());
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.selectable = true;
        state.focusable = true;
        state.selected = view_->selectionModel()->isSelected(index_);
        state.focused = view_->hasFocus() && view_->currentIndex() == index_;
        state.expandable = index_.model()->hasChildren(index_);
        state.expanded = state.expandable && view_->isExpanded(index_);
        state.collapsed = state.expandable && !state.expanded;
        state.offscreen = !view_->viewport()->rect().intersects(view_->visualRect(index_));
        return state;
    }
    int row() const { return view_ ? view_->rowOf(index_) : -1; }

private:
    const QPointer<TreeRowsView> view_;
    const QPersistentModelIndex index_;
};

class AccessibleTree : public QAccessibleWidget {
public:
    explicit AccessibleTree(TreeRowsView& view) : QAccessibleWidget(&view, QAccessible::Tree), view_(view) {}
    ~AccessibleTree() override {
        for (const QAccessible::Id id : std::as_const(made_))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return view_.rowCount(); }
    QAccessibleInterface* child(int row) const override { return Row(view_.indexAtRow(row)); }
    QAccessibleInterface* focusChild() const override { return Row(view_.currentIndex()); }
    QAccessibleInterface* childAt(int x, int y) const override {
        return Row(view_.indexAt(view_.viewport()->mapFromGlobal(QPoint(x, y))));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = dynamic_cast<const AccessibleRow*>(child);
        return row ? row->row() : -1;
    }

private:
    // The framework owns it, and knows it by a number. A node's row stays the same object.
    QAccessibleInterface* Row(const QModelIndex& index) const {
        if (view_.rowOf(index) < 0)
            return nullptr;
        QAccessible::Id& id = made_[index.internalId()];
        if (QAccessibleInterface* known = id != 0 ? QAccessible::accessibleInterface(id) : nullptr) {
            if (known->isValid())
                return known;
            QAccessible::deleteAccessibleInterface(id);
        }
        auto* const row = new AccessibleRow(view_, index);
        id = QAccessible::registerAccessibleInterface(row);
        return row;
    }

    TreeRowsView& view_;
    mutable QHash<quintptr, QAccessible::Id> made_; ///< by the address of the node
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* view = dynamic_cast<TreeRowsView*>(object);
    return view ? new AccessibleTree(*view) : nullptr; // the framework owns it
}

} // namespace

void InstallTreeAccessibility() {
    QAccessible::installFactory(Make); // one that is known already is not installed again
}

void TellCurrentRow(TreeRowsView& view) {
    if (!QAccessible::isActive() || !view.hasFocus() || view.rowOf(view.currentIndex()) < 0)
        return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(view.rowOf(view.currentIndex()));
    QAccessible::updateAccessibility(&event);
}

} // namespace desktop
