// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QPoint>
#include <QWidget>

namespace desktop {

/// What mouse, keys and assistive programs need of the widget that shows the sheet: the document, and the
/// grid that keys go to.
class SheetBase : public QWidget {
public:
    using QWidget::QWidget;

    DocumentWindow* Window() const { return window_; } ///< null: nothing is shown
    /// The grid that keys go to; null without a visible one.
    controls::FlexGrid* Current() const;
    void SetCurrent(const controls::FlexGrid& grid);
    /// Brings a cell into sight.
    void ShowCell(controls::FlexGrid& grid, int row, int col);
    void ScrollBy(QPoint pixels); ///< down, and to the right in the current grid

protected:
    void ShowGridsOf(DocumentWindow* window) { window_ = window; }

private:
    DocumentWindow* window_ = nullptr;
};

} // namespace desktop
