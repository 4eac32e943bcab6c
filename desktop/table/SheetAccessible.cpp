// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetAccessible.h"
#include "desktop/base/OneLine.h"
#include "desktop/table/SheetBase.h"
#include "desktop/table/SheetPlaces.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <limits>
#include <numeric>

namespace desktop {

namespace {

using controls::FlexGrid;

QAccessibleInterface* InterfaceOf(SheetBase* view) {
    return view ? QAccessible::queryAccessibleInterface(view) : nullptr;
}

/// A cell by its place in whichever grid is current: nothing of it is kept.
class AccessibleCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    AccessibleCell(SheetBase* view, int row, int col) : view_(view), row_(row), col_(col) {}

    bool isValid() const override {
        const FlexGrid* grid = Grid();
        return grid && row_ < grid->Rows() && col_ < grid->Cols();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return InterfaceOf(view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text which) const override {
        const bool told = isValid() && (which == QAccessible::Name || which == QAccessible::Value);
        return told ? OneLine(QStringView(Grid()->TextMatrix(row_, col_))) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect cell = SheetPlaces(*view_->Window(), view_->size()).RectOf(*Grid(), row_, col_);
        return {view_->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::Role role() const override {
        return row_ == 0 ? QAccessible::ColumnHeader : col_ == 1 ? QAccessible::RowHeader : QAccessible::Cell;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.selectable = state.focusable = row_ > 0;
        state.selected = isSelected();
        state.focused = isValid() && view_->hasFocus() && Grid()->Row() == row_ && Grid()->Col() == col_;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    // --- its place in the table
    bool isSelected() const override {
        if (!isValid())
            return false;
        const controls::GridRange range = Grid()->Selection();
        return row_ >= range.top && row_ <= range.bottom && col_ >= range.left && col_ <= range.right;
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return Sibling(0, col_); }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return Sibling(row_, 1); }
    int columnIndex() const override { return col_; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return InterfaceOf(view_); }

private:
    const FlexGrid* Grid() const { return view_ ? view_->Current() : nullptr; }
    QList<QAccessibleInterface*> Sibling(int row, int col) const {
        QAccessibleInterface* own = table();
        QAccessibleTableInterface* cells = own ? own->tableInterface() : nullptr;
        return cells ? QList<QAccessibleInterface*>{cells->cellAt(row, col)} : QList<QAccessibleInterface*>();
    }

    QPointer<SheetBase> view_;
    int row_, col_;
};

class AccessibleSheet : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit AccessibleSheet(SheetBase& view) : QAccessibleWidget(&view, QAccessible::Table), view_(view) {}
    ~AccessibleSheet() override {
        for (const QAccessible::Id id : cells_)
            QAccessible::deleteAccessibleInterface(id);
    }
    AccessibleSheet(const AccessibleSheet&) = delete;
    AccessibleSheet& operator=(const AccessibleSheet&) = delete;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    int childCount() const override {
        const qint64 count = static_cast<qint64>(rowCount()) * columnCount();
        return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
    }
    QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? cellAt(index / columnCount(), index % columnCount())
                                                  : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        auto* cell = const_cast<QAccessibleInterface*>(child)->tableCellInterface();
        return cell ? cell->rowIndex() * columnCount() + cell->columnIndex() : -1;
    }
    QAccessibleInterface* focusChild() const override {
        const FlexGrid* grid = view_.Current();
        return grid && view_.hasFocus() ? cellAt(grid->Row(), grid->Col()) : nullptr;
    }

    // --- the table
    QAccessibleInterface* cellAt(int row, int column) const override {
        if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount())
            return nullptr;
        QAccessible::Id& id = cells_[{row, column}];
        if (id == 0)
            id = QAccessible::registerAccessibleInterface(new AccessibleCell(&view_, row, column)); // it too
        return QAccessible::accessibleInterface(id);
    }
    int rowCount() const override { return view_.Current() ? view_.Current()->Rows() : 0; }
    int columnCount() const override { return view_.Current() ? view_.Current()->Cols() : 0; }
    QString columnDescription(int column) const override {
        return column >= 0 && column < columnCount() ? view_.Current()->TextMatrix(0, column) : QString();
    }
    QString rowDescription(int row) const override {
        return row >= 0 && row < rowCount() ? view_.Current()->TextMatrix(row, 1) : QString();
    }
    QAccessibleInterface* caption() const override { return cellAt(0, 1); }
    QAccessibleInterface* summary() const override { return nullptr; }

    // Selecting is left to keys and mouse, which raise the grid's events.
    int selectedCellCount() const override {
        return static_cast<int>(
            std::min<qint64>(qint64(Range().height()) * Range().width(), std::numeric_limits<int>::max()));
    }
    int selectedColumnCount() const override { return HasWholeColumns() ? Range().width() : 0; }
    int selectedRowCount() const override { return HasWholeRows() ? Range().height() : 0; }
    QList<QAccessibleInterface*> selectedCells() const override {
        constexpr int kMostCells = 10'000; // each of them is made
        QList<QAccessibleInterface*> cells;
        const controls::GridRange range = Range();
        for (int row = range.top; row <= range.bottom && selectedCellCount() <= kMostCells; ++row)
            for (int column = range.left; column <= range.right; ++column)
                cells << cellAt(row, column);
        return cells;
    }
    QList<int> selectedColumns() const override { return Numbers(Range().left, selectedColumnCount()); }
    QList<int> selectedRows() const override { return Numbers(Range().top, selectedRowCount()); }
    bool isColumnSelected(int column) const override {
        return HasWholeColumns() && column >= Range().left && column <= Range().right;
    }
    bool isRowSelected(int row) const override {
        return HasWholeRows() && row >= Range().top && row <= Range().bottom;
    }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    controls::GridRange Range() const {
        return view_.Current() ? view_.Current()->Selection() : controls::GridRange{0, 0, -1, -1};
    }
    bool HasWholeRows() const {
        return Range().height() > 0 && Range().left <= 1 && Range().right == columnCount() - 1;
    }
    bool HasWholeColumns() const {
        return Range().height() > 0 && Range().top <= 1 && Range().bottom == rowCount() - 1;
    }
    static QList<int> Numbers(int first, int count) {
        QList<int> numbers(count);
        std::iota(numbers.begin(), numbers.end(), first);
        return numbers;
    }

    SheetBase& view_;
    mutable QHash<std::pair<int, int>, QAccessible::Id> cells_; ///< those that were asked for
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* view = dynamic_cast<SheetBase*>(object);
    return view ? new AccessibleSheet(*view) : nullptr; // the framework owns it
}

} // namespace

void InstallSheetAccessibility() {
    QAccessible::installFactory(Make); // one that is known already is not installed again
}

void TellCurrentCell(SheetBase& view) {
    const FlexGrid* grid = QAccessible::isActive() && view.hasFocus() ? view.Current() : nullptr;
    if (!grid)
        return;
    const qint64 child = qint64(grid->Row()) * grid->Cols() + grid->Col();
    if (child > std::numeric_limits<int>::max())
        return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(static_cast<int>(child));
    QAccessible::updateAccessibility(&event);
}

} // namespace desktop
