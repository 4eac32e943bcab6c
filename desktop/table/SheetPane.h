// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/table/SheetView.h"
#include <QScrollBar>
#include <QWidget>

namespace desktop {

/// The table view: the sheet between its bars. The one on the right moves the sheet by pixels, the one below
/// the columns of the grid that was touched last.
class SheetPane : public QWidget {
    Q_OBJECT
public:
    explicit SheetPane(QWidget* parent = nullptr);
    void SetWindow(DocumentWindow* window) { view_.SetWindow(window); }
    SheetView& View() { return view_; }

private:
    void ShowBars();
    void ShowColumns();

    SheetView view_;
    QScrollBar rows_, columns_;
    bool showing_ = false; ///< the bars follow the sheet
};

} // namespace desktop
