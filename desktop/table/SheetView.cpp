// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetView.h"
#include "desktop/base/Listen.h"
#include "desktop/base/LongWords.h"
#include "desktop/base/Twips.h"
#include "desktop/table/SheetAccessible.h"
#include "desktop/table/SheetEditors.h"
#include "desktop/table/SheetKeys.h"
#include "desktop/table/SheetMouse.h"
#include "desktop/table/SheetPaint.h"
#include "desktop/table/SheetPlaces.h"
#include "table/Sheet.h"
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

namespace desktop {

using controls::FlexGrid;

namespace {

constexpr int kNotch = 120; ///< of a wheel
constexpr int kRowsPerNotch = 3;
constexpr qsizetype kTipLength = 500;

} // namespace

SheetView::SheetView(QWidget* parent) : SheetBase(parent) {
    InstallSheetAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled);
}

SheetView::~SheetView() = default;

void SheetView::SetWindow(DocumentWindow* window) {
    ShowGridsOf(window);
    editors_.reset();
    keys_.reset();
    mouse_.reset();
    bond_ = std::make_unique<QObject>();
    if (!window)
        return;
    editors_ = std::make_unique<SheetEditors>(*window, *this);
    keys_ = std::make_unique<SheetKeys>(*this);
    mouse_ = std::make_unique<SheetMouse>(*this);
    Follow();
}

void SheetView::Follow() {
    const auto moved = [this] {
        update();
        Q_EMIT scrolled();
    };
    controls::FlexGridArray& grids = Window()->hfgrdTableView;
    controls::GridEvents& events = grids.events();
    Listen(Window()->pctTV.moved, bond_.get(), moved);
    Listen(grids.loaded, bond_.get(), [moved](int) { moved(); });
    Listen(grids.aboutToUnload, bond_.get(), [moved](int) { moved(); });
    Listen(grids.reset, bond_.get(), moved);
    for (controls::Event<FlexGrid&>* event :
         {&events.reset, &events.moved, &events.visibleChanged, &events.columnsChanged})
        Listen(*event, bond_.get(), [moved](FlexGrid&) { moved(); });
    Listen(events.SelChange, bond_.get(), [this, moved](FlexGrid&) {
        moved(); // another grid may be the current one, which the lower bar is for
        TellCurrentCell(*this);
    });
    Listen(events.cellsChanged, bond_.get(), [this](FlexGrid&, const controls::GridRange&) { update(); });
    Listen(events.focusRequested, bond_.get(), [this](FlexGrid& grid) {
        SetCurrent(grid);
        setFocus(Qt::OtherFocusReason);
    });
}

// --- events ------------------------------------------------------------------------------------------------

void SheetView::wheelEvent(QWheelEvent* event) {
    if (!Window())
        return event->ignore();
    const bool sideways = event->modifiers() & Qt::ShiftModifier;
    if (!event->pixelDelta().isNull()) {
        wheel_ = event->pixelDelta() * kNotch;
    } else {
        const QPoint turned = event->angleDelta() * (kRowsPerNotch * RowPixels(*this));
        wheel_ += sideways && turned.x() == 0 ? turned.transposed() : turned;
    }
    const QPoint pixels = wheel_ / kNotch;
    wheel_ -= pixels * kNotch;
    if (const GridPlace under = SheetPlaces(*Window(), size()).At(event->position().toPoint());
        under.grid && pixels.x() != 0)
        under.grid->SetScrollLeft(under.grid->ScrollLeft() - ToTwips(pixels.x()));
    ScrollBy({0, -pixels.y()});
    event->accept();
}

void SheetView::TellSize() {
    if (!Window() || !isVisible())
        return;
    table::SetTableRowHeight(*Window(), ToTwips(RowPixels(*this)));
    table::ResizeTableView(*Window(), ToTwips(width()), ToTwips(height()));
    Q_EMIT scrolled();
}

void SheetView::paintEvent(QPaintEvent*) {
    if (Window())
        PaintSheet(*Window(), *this, hasFocus() ? Current() : nullptr);
}

void SheetView::resizeEvent(QResizeEvent*) {
    TellSize();
}

void SheetView::showEvent(QShowEvent*) {
    TellSize();
}

void SheetView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        TellSize();
}

bool SheetView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && Window()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

// The whole of a text that its cell cuts.
void SheetView::ShowTip(const QPoint& place, const QPoint& globalPlace) {
    const GridPlace under = SheetPlaces(*Window(), size()).At(place);
    if (!under.IsCell() ||
        WidthWanted(*under.grid, under.row, under.col, *this) <= ToPixels(under.grid->ColWidth(under.col)))
        return QToolTip::hideText();
    const QString text = under.grid->TextMatrix(under.row, under.col);
    const QString shown = text.size() > kTipLength ? text.left(kTipLength) + QStringLiteral("...") : text;
    QToolTip::showText(globalPlace, WithBreaksInLongWords(shown).toHtmlEscaped(), this);
}

void SheetView::mousePressEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->Press(*event);
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->Move(*event);
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->Release(*event);
}

void SheetView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->DoubleClick(*event);
}

void SheetView::keyPressEvent(QKeyEvent* event) {
    if (!keys_ || !keys_->Press(*event))
        QWidget::keyPressEvent(event);
}

// Text that an input method composed: its first letter opens the editor, which takes the others.
void SheetView::inputMethodEvent(QInputMethodEvent* event) {
    event->accept();
    FlexGrid* grid = Current();
    const QString typed = event->commitString();
    if (!grid || typed.isEmpty())
        return;
    grid->events().KeyPress(*grid, typed.front().unicode());
    QWidget* editor = QApplication::focusWidget();
    if (typed.size() < 2 || !editor || editor == this)
        return;
    QInputMethodEvent others;
    others.setCommitString(typed.mid(1));
    QCoreApplication::sendEvent(editor, &others);
}

void SheetView::focusInEvent(QFocusEvent*) {
    update();
}

void SheetView::focusOutEvent(QFocusEvent*) {
    update();
}

// By the keyboard it opens at the current cell, once that can be seen.
void SheetView::contextMenuEvent(QContextMenuEvent* event) {
    FlexGrid* grid = Current();
    if (event->reason() != QContextMenuEvent::Keyboard || !grid) {
        if (mouse_)
            mouse_->MenuOpens();
        Q_EMIT contextMenuWanted(event->globalPos());
        return;
    }
    ShowCell(*grid, grid->Row(), grid->Col());
    grid->events().MouseUp(*grid, 2);
    const QRect cell = SheetPlaces(*Window(), size()).RectOf(*grid, grid->Row(), grid->Col());
    Q_EMIT contextMenuWanted(mapToGlobal(cell.center()));
}

} // namespace desktop
