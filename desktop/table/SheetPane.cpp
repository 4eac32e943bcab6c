// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetPane.h"
#include "desktop/base/Twips.h"
#include "desktop/table/SheetPaint.h"
#include "table/Sheet.h"
#include <QGridLayout>
#include <QScopedValueRollback>

namespace desktop {

SheetPane::SheetPane(QWidget* parent) : QWidget(parent), rows_(Qt::Vertical), columns_(Qt::Horizontal) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(&view_, 0, 0);
    layout->addWidget(&rows_, 0, 1);
    layout->addWidget(&columns_, 1, 0);
    rows_.setObjectName(QStringLiteral("vsTableView"));
    view_.setAccessibleName(QStringLiteral("Tables"));
    setFocusProxy(&view_);
    connect(&view_, &SheetView::scrolled, this, [this] { ShowBars(); });
    connect(&rows_, &QScrollBar::valueChanged, this, [this](int value) {
        if (!showing_ && view_.Window())
            table::ScrollSheet(*view_.Window(), ToTwips(value));
    });
    connect(&columns_, &QScrollBar::valueChanged, this, [this](int value) {
        if (controls::FlexGrid* grid = view_.Current(); grid && !showing_)
            grid->SetScrollLeft(ToTwips(value));
    });
    ShowBars();
}

void SheetPane::ShowBars() {
    const QScopedValueRollback guard(showing_, true);
    const DocumentWindow* window = view_.Window();
    const int overhang = window ? ToPixels(table::SheetOverhang(*window)) : 0;
    rows_.setRange(0, overhang);
    rows_.setPageStep(view_.height());
    rows_.setSingleStep(RowPixels(view_));
    if (window)
        rows_.setValue(ToPixels(-window->pctTV.Place().Top));
    rows_.setEnabled(overhang > 0);
    ShowColumns();
}

void SheetPane::ShowColumns() {
    const controls::FlexGrid* grid = view_.Current();
    const int overhang = grid ? ToPixels(grid->ColumnsWidth() - grid->Place().Width) : 0;
    columns_.setRange(0, std::max(overhang, 0));
    columns_.setPageStep(view_.width());
    columns_.setSingleStep(RowPixels(view_));
    columns_.setValue(grid ? ToPixels(grid->ScrollLeft()) : 0);
    columns_.setEnabled(overhang > 0);
}

} // namespace desktop
