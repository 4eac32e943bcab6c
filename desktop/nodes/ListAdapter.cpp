// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ListAdapter.h"
#include "desktop/base/Glyphs.h"
#include "desktop/base/Twips.h"
#include "desktop/nodes/LabelDelegate.h"
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace desktop {

namespace {

// Pixels of an item with a small icon, and with a large one.
constexpr int kNameWidth = 160, kIconWidth = 90;

bool ChoosesStyle(const QKeyEvent& event) {
    const int key = event.key();
    return event.modifiers() == Qt::ControlModifier &&
           (key == Qt::Key_Q || key == Qt::Key_W || key == Qt::Key_E || key == Qt::Key_R);
}

} // namespace

ListAdapter::ListAdapter(controls::ListView& model, const ListWidgets& widgets, QObject* parent)
    : QObject(parent), model_(model), widgets_(widgets), rows_(model, RowIcon), selection_(&rows_),
      reportEvents_(widgets.report, this), iconEvents_(widgets.icons, this) {
    connect(&rows_, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { ++updating_; });
    connect(&rows_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { ++updating_; });
    ConnectView(widgets.report);
    ConnectView(widgets.icons);
    reportEvents_.Bind(model);
    iconEvents_.Bind(model);
    const auto followed = [this] {
        --updating_;
        ShowSelected();
    };
    connect(&rows_, &QAbstractItemModel::rowsRemoved, this, followed);
    connect(&rows_, &QAbstractItemModel::modelReset, this, followed);
    connect(&selection_, &QItemSelectionModel::selectionChanged, this, &ListAdapter::UserSelected);
    connect(&selection_, &QItemSelectionModel::currentChanged, this,
            [this] { UserSelected(QItemSelection(), QItemSelection()); });

    Listen(model.selectionChanged, this, [this] { ShowSelected(); });
    Listen(model.viewChanged, this, [this] { ShowView(); });
    Listen(model.focusRequested, this, [this] { Shown().setFocus(Qt::OtherFocusReason); });
    ConnectLabels();
    Listen(model.labelEditStarted, this, [this](int row) { Shown().edit(rows_.index(row - 1, 0)); });
    ShowColumns();
    ShowView();
    ShowSelected();
}

void ListAdapter::ConnectLabels() {
    for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(&widgets_.report),
                                    static_cast<QAbstractItemView*>(&widgets_.icons)}) {
        auto* const labels =
            new LabelDelegate(this, {.givenUp = [this] { model_.CancelLabelEdit(); },
                                     .typed = [this](const QString& text) { model_.LabelTyped(text); },
                                     .kept = [this] { return model_.LabelKept(); },
                                     .tabbed = [this](bool back) { model_.LabelTabbed(back); }});
        if (view == &widgets_.report)
            view->setItemDelegateForColumn(0, labels);
        else
            view->setItemDelegate(iconLabels_ = labels);
        Listen(model_.labelEditFinish, labels, [labels] { labels->Finish(); });
    }
}

QAbstractItemView& ListAdapter::Shown() const {
    if (model_.View() == controls::lvwReport)
        return widgets_.report;
    return widgets_.icons;
}

void ListAdapter::ConnectView(QAbstractItemView& view) {
    view.setModel(&rows_);
    const std::unique_ptr<QItemSelectionModel> own(view.selectionModel());
    view.setSelectionModel(&selection_);
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    connect(&view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.row() + 1 == model_.SelectedItem())
            model_.DblClick();
    });
}

ListAdapter::~ListAdapter() {
    ++updating_;
    widgets_.report.setModel(nullptr);
    widgets_.icons.setModel(nullptr);
}

// --- the user's acts -------------------------------------------------------------------------------------

void ListAdapter::UserSelected(const QItemSelection& selected, const QItemSelection& deselected) {
    if (updating_ > 0)
        return;
    const QScopedValueRollback guard(updating_, updating_ + 1);
    const auto take = [this](const QItemSelection& ranges, bool on) {
        for (const QItemSelectionRange& range : ranges)
            for (int row = range.top(); row <= range.bottom(); ++row)
                model_.SetSelected(row + 1, on);
    };
    const int current = selection_.currentIndex().isValid() ? selection_.currentIndex().row() + 1 : 0;
    const bool onlyCursor = model_.SelectedItem() == 0 && !selection_.hasSelection();
    if (current != model_.SelectedItem() && !onlyCursor) {
        model_.SetSelectedItem(current);
        if (current > 0) // it may be current without being selected
            model_.SetSelected(current, selection_.isRowSelected(current - 1, {}));
    }
    take(deselected, false);
    take(selected, true);
}

// A view that gets the focus puts its cursor on the first row without selecting it. To the list nothing is
// current then, and the first Down is to select that row instead of passing it over.
void ListAdapter::KeyPressed(const QKeyEvent& event) {
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (event.key() != Qt::Key_Down || !plain || model_.SelectedItem() > 0 || selection_.hasSelection())
        return;
    const QScopedValueRollback guard(updating_, updating_ + 1);
    selection_.clearCurrentIndex();
}

bool ListAdapter::eventFilter(QObject* watched, QEvent* event) {
    // In the list Ctrl and a letter choose the style, also where the menu has the same key for something
    // else.
    if (event->type() == QEvent::ShortcutOverride && watched == &Shown() &&
        ChoosesStyle(*static_cast<QKeyEvent*>(event)))
        event->accept();
    if (event->type() == QEvent::KeyPress && watched == &Shown())
        KeyPressed(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::MouseButtonRelease && watched == Shown().viewport())
        MouseReleased(static_cast<QMouseEvent*>(event)->pos());
    return false;
}

void ListAdapter::MouseReleased(const QPoint& place) {
    model_.ItemClick(Shown().indexAt(place).row() + 1);
    model_.Click();
}

// --- the model's changes -----------------------------------------------------------------------------------

void ListAdapter::ShowSelected() {
    if (updating_ > 0)
        return;
    const QScopedValueRollback guard(updating_, updating_ + 1);
    QItemSelection selection;
    const int last = rows_.columnCount() - 1;
    const std::vector<int> selected = model_.SelectedRows();
    for (std::size_t from = 0, to = 0; from < selected.size(); from = to) {
        for (to = from + 1; to < selected.size() && selected[to] == selected[to - 1] + 1; ++to) {
        }
        selection.append(
            QItemSelectionRange(rows_.index(selected[from] - 1, 0), rows_.index(selected[to - 1] - 1, last)));
    }
    selection_.select(selection, QItemSelectionModel::ClearAndSelect);
    const int current = model_.SelectedItem();
    const QModelIndex index = current > 0 ? rows_.index(current - 1, 0) : QModelIndex();
    selection_.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (index.isValid())
        Shown().scrollTo(index);
}

void ListAdapter::ShowView() {
    const bool hadFocus = widgets_.report.hasFocus() || widgets_.icons.hasFocus();
    const bool large = model_.View() == controls::lvwIcon;
    iconLabels_->SetItemWidth(large ? kIconWidth : kNameWidth);
    widgets_.icons.setViewMode(large ? QListView::IconMode : QListView::ListMode);
    widgets_.icons.setMovement(QListView::Static);
    widgets_.icons.setWrapping(true);
    widgets_.icons.setIconSize(large ? QSize(32, 32) : QSize(16, 16));
    widgets_.icons.setGridSize(large ? QSize(96, 72) : QSize());
    widgets_.icons.setFlow(model_.View() == controls::lvwList ? QListView::TopToBottom
                                                              : QListView::LeftToRight);
    widgets_.pages.setCurrentWidget(&Shown());
    ShowCurrent();
    if (hadFocus)
        Shown().setFocus(Qt::OtherFocusReason);
}

// The user may have clicked on any cell of the row, but names and icons know the first column only.
void ListAdapter::ShowCurrent() {
    const QModelIndex current = selection_.currentIndex().siblingAtColumn(0);
    if (!current.isValid())
        return;
    const QScopedValueRollback guard(updating_, updating_ + 1);
    selection_.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    Shown().scrollTo(current);
}

void ListAdapter::ShowColumns() {
    QHeaderView& header = *widgets_.report.header();
    for (int i = 0; i < header.count(); ++i)
        header.resizeSection(i, ToPixels(model_.ColumnWidths[static_cast<std::size_t>(i)]));
    header.setStretchLastSection(true);
    header.setSectionsMovable(false); // the cells' editor is laid over them in the columns' own order
}

} // namespace desktop
