// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/table/SheetPlaces.h"
#include <QBasicTimer>
#include <QObject>

class QMouseEvent;

namespace desktop {

class SheetBase;

/// What the mouse does on the sheet: selects cells, rows by their labels and columns by their headers, drags
/// the borders of columns, and raises the grids' events.
class SheetMouse : public QObject {
public:
    explicit SheetMouse(SheetBase& view) : view_(view) {}
    void Press(QMouseEvent& event);
    void Move(QMouseEvent& event);
    void Release(QMouseEvent& event);
    void DoubleClick(QMouseEvent& event);
    /// A menu opens: the right button counts as released, which the menu will see alone.
    void MenuOpens();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Drag { None, Cells, Rows, Columns, Border };
    SheetPlaces Places() const;
    bool PressInGrid(QMouseEvent& event);
    void SelectAt(const GridPlace& place, bool extends);
    void ExtendTo(QPoint place);
    void DragBorder(int x);
    void FitColumn(controls::FlexGrid& grid, int col);
    controls::FlexGrid* Pressed() const; ///< null when it is gone

    SheetBase& view_;
    Drag drag_ = Drag::None;
    int pressedGrid_ = -1;
    GridPlace pressed_;
    int borderCol_ = 0, borderOffset_ = 0; ///< pixels from the pointer to the border
    QPoint pointer_;
    QBasicTimer scroll_; ///< while a selection is drawn out beyond the widget
};

} // namespace desktop
