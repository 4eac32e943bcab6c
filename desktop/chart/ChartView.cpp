// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartView.h"
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/ValueAt.h"
#include <QContextMenuEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double kNotch = 120;     ///< of a wheel
constexpr double kZoom = 0.8;      ///< a notch
constexpr double kKeyMove = 0.1;   ///< of the shown width
constexpr double kRowsAtLeast = 2; ///< shown

const controls::ChartTable& NoTable() {
    static const controls::ChartTable table;
    return table;
}

} // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(80, 60);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ChartView::SetTable(const controls::ChartTable* table) {
    table_ = table;
    view_ = {0, 1};
    update();
}

void ChartView::SetLook(int type, bool legend) {
    type_ = type;
    legend_ = legend;
    update();
}

ChartPicture ChartView::Picture() const {
    return {.table = table_ ? table_ : &NoTable(),
            .type = type_,
            .legend = legend_,
            .view = view_,
            .palette = palette(),
            .font = font()};
}

ChartLayout ChartView::Layout() const {
    return LayChart(Picture(), rect());
}

// --- which part is shown -----------------------------------------------------------------------------------

void ChartView::SetView(Extent view) {
    const double rows = table_ ? static_cast<double>(table_->rows) : 1;
    const double width =
        std::clamp(view.high - view.low, std::min(1.0, kRowsAtLeast / std::max(rows, 1.0)), 1.0);
    const double low = std::clamp(view.low, 0.0, 1 - width);
    view_ = {low, low + width};
    QToolTip::hideText();
    update();
}

void ChartView::Zoom(double factor, double at) {
    const double width = view_.high - view_.low;
    const double fixed = view_.low + std::clamp(at, 0.0, 1.0) * width;
    SetView({fixed - (fixed - view_.low) * factor, fixed + (view_.high - fixed) * factor});
}

void ChartView::MoveBy(double part) {
    const double way = part * (view_.high - view_.low);
    const double low = std::clamp(view_.low + way, 0.0, 1 - (view_.high - view_.low));
    SetView({low, low + view_.high - view_.low});
}

void ChartView::ShowAll() {
    SetView({0, 1});
}

// --- events
// --------------------------------------------------------------------------------------------------

void ChartView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintChart(painter, Picture(), Layout());
}

void ChartView::wheelEvent(QWheelEvent* event) {
    const ChartLayout layout = Layout();
    Zoom(std::pow(kZoom, event->angleDelta().y() / kNotch),
         (event->position().x() - layout.front.left()) / layout.front.width());
    event->accept();
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        dragged_ = event->position().x();
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
    const ChartLayout layout = Layout();
    const double x = event->position().x();
    if (dragged_ >= 0 && (event->buttons() & Qt::LeftButton)) {
        MoveBy((dragged_ - x) / layout.front.width());
        dragged_ = x;
        return;
    }
    QToolTip::showText(event->globalPosition().toPoint(), ValueAt(Picture(), layout, event->position()),
                       this);
}

void ChartView::mouseReleaseEvent(QMouseEvent*) {
    dragged_ = -1;
}

void ChartView::mouseDoubleClickEvent(QMouseEvent*) {
    ShowAll();
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Plus:
        return Zoom(kZoom, 0.5);
    case Qt::Key_Minus:
        return Zoom(1 / kZoom, 0.5);
    case Qt::Key_0:
        return ShowAll();
    case Qt::Key_Left:
        return MoveBy(-kKeyMove);
    case Qt::Key_Right:
        return MoveBy(kKeyMove);
    default:
        QWidget::keyPressEvent(event);
    }
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    Q_EMIT contextMenuWanted(event->reason() == QContextMenuEvent::Keyboard ? mapToGlobal(rect().center())
                                                                            : event->globalPos());
}

} // namespace desktop
