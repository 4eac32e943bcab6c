// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/DiagnosticsPane.h"
#include "desktop/base/Listen.h"
#include <QHeaderView>
#include <QScrollBar>

namespace desktop {

namespace {

constexpr int kPlaceWidth = 130, kNodeWidth = 220; // pixels
constexpr int kMostRows = 6;                       // that are visible at once

} // namespace

DiagnosticsPane::DiagnosticsPane(DocumentWindow& window, QTreeView& view)
    : state_(schema::DiagnosticsOf(window)), view_(view), rows_(state_.lvDiagnostics) {
    view.setModel(&rows_);
    view.header()->setStretchLastSection(false);
    view.header()->setSectionResizeMode(1, QHeaderView::Stretch);
    view.setColumnWidth(0, kPlaceWidth);
    view.setColumnWidth(2, kNodeWidth);
    const auto choose = [this](const QModelIndex& row) { state_.lvDiagnostics.ItemClick(row.row() + 1); };
    connect(&view, &QTreeView::clicked, this, choose);
    connect(&view, &QTreeView::activated, this, choose);
    // Keys that move the row move it for F8, too.
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& row) {
                if (!row.isValid() || row.row() + 1 == state_.lvDiagnostics.SelectedItem())
                    return;
                state_.lvDiagnostics.ClearSelected();
                state_.lvDiagnostics.SetSelectedItem(row.row() + 1);
            });
    Listen(state_.lvDiagnostics.aboutToReset, this, [this] { top_ = view_.verticalScrollBar()->value(); });
    Listen(state_.lvDiagnostics.reset, this, [this] {
        ShowRows();
        view_.verticalScrollBar()->setValue(top_);
    });
    Listen(state_.pctDiagnostics.changed, this, [this] { ShowRows(); });
    Listen(state_.lvDiagnostics.selectionChanged, this, [this] { ShowCurrent(); });
    ShowRows();
}

void DiagnosticsPane::ShowRows() {
    view_.setVisible(state_.pctDiagnostics.Visible());
    const int shown = qBound(2, state_.lvDiagnostics.Count(), kMostRows) + 1;
    view_.setMaximumHeight(shown * (view_.fontMetrics().height() + 6) + view_.header()->height());
    ShowCurrent();
}

void DiagnosticsPane::ShowCurrent() {
    const int row = state_.lvDiagnostics.SelectedItem();
    if (row > 0)
        view_.setCurrentIndex(rows_.index(row - 1, 0));
}

} // namespace desktop
