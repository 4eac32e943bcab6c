// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"
#include <QWidget>

namespace desktop {

/// Shows a chart. The wheel, "+" and "-" change how much of its width is shown, dragging and the arrow keys
/// move that part, a double click and "0" show all again; the value under the pointer is told beside it.
class ChartView : public QWidget {
    Q_OBJECT
public:
    explicit ChartView(QWidget* parent = nullptr);

    /// `table` must live until another one, or null, is set.
    void SetTable(const controls::ChartTable* table);
    void SetLook(int type, bool legend);
    /// What is shown now.
    ChartPicture Picture() const;
    void ShowAll();

Q_SIGNALS:
    void contextMenuWanted(const QPoint& globalPlace);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    ChartLayout Layout() const;
    void Zoom(double factor, double at); ///< `at`: what part of the shown width stays where it is
    void MoveBy(double part);            ///< of the shown width
    void SetView(Extent view);

    const controls::ChartTable* table_ = nullptr;
    int type_ = controls::ch2dBar;
    bool legend_ = true;
    Extent view_{0, 1};
    double dragged_ = -1; ///< where the pointer was last while a button is held
};

} // namespace desktop
