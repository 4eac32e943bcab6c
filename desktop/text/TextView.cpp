// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextView.h"
#include "desktop/base/Listen.h"
#include "desktop/text/TextInput.h"
#include "desktop/text/TextPaint.h"
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <cmath>

namespace desktop {

namespace {

// A font size comes from the settings, and may be anything there.
constexpr double kSmallest = 1, kLargest = 200;

} // namespace

TextView::TextView(QWidget* parent)
    : QAbstractScrollArea(parent), own_(std::make_unique<controls::RichTextBox>()), state_(*own_),
      places_(*this, state_), caret_(*this, state_, places_), editing_(state_, caret_), keys_(Parts()),
      drag_(Parts()), mouse_(Parts(), drag_) {
    InstallTextAccessibility();
    Prepare();
    ConnectParts();
    SetModel(nullptr);
}

TextView::~TextView() = default;

void TextView::Prepare() {
    setFocusPolicy(Qt::StrongFocus);
    setInputMethodHints(Qt::ImhMultiLine | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAttribute(Qt::WA_KeyCompression);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    verticalScrollBar()->setSingleStep(1);
}

void TextView::ConnectParts() {
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { state_.high = false; });
    caret_.moved = [this] {
        updateMicroFocus();
        TellSelection(*this, state_);
    };
    caret_.isInUse = [this] { return !isInUse || isInUse(); };
    drag_.over = [this] { Q_EMIT userReleased(); };
    drag_.runs = [this](QDrag& drag, Qt::DropActions may, Qt::DropAction wanted) {
        return runsDrag ? runsDrag(drag) : drag.exec(may, wanted);
    };
}

// --- the model ---------------------------------------------------------------------------------------------

void TextView::SetModel(controls::RichTextBox* model) {
    listening_ = std::make_unique<QObject>();
    state_.model = model ? model : own_.get();
    controls::RichTextBox& shown = *state_.model;
    QObject* context = listening_.get();
    Listen(shown.contentLeaves, context, [this] { ContentLeaves(); });
    Listen(shown.contentReplaced, context,
           [this](const controls::PlaceMap* where) { ContentReplaced(where); });
    Listen(shown.textReplaced, context,
           [this](qsizetype at, qsizetype removed, const QString& text) { TextReplaced(at, removed, text); });
    Listen(shown.coloursChanged, context, [this](qsizetype start, qsizetype length) {
        if (!state_.stale)
            places_.UpdateRows(state_.Text().rowOf(start), state_.Text().rowOf(start + length));
    });
    Listen(shown.selectionChanged, context, [this] { caret_.FollowModel(); });
    Listen(shown.allSelected, context, [this] {
        if (IsAwake())
            caret_.SelectAll();
    });
    Listen(shown.fontChanged, context, [this] { ApplyFont(); });
    ApplyFont();
    state_.stale = true;
    if (isVisible())
        Follow();
}

/// Catches up with what happened while the view was hidden.
void TextView::Follow() {
    state_.stale = false;
    ContentReplaced(nullptr);
    places_.ShowHigh(state_.Selection().start);
    state_.high = true;
}

/// A hidden view only notes that the model has changed.
bool TextView::IsAwake() {
    state_.stale = state_.stale || !isVisible();
    return !state_.stale;
}

// Where the view stands in a text that goes: at the caret, or where that is out of sight, at its first row.
void TextView::ContentLeaves() {
    if (!IsAwake())
        return;
    const qsizetype place = state_.Selection().start;
    const qsizetype row = state_.Text().rowOf(place) - FirstRow();
    const bool shown = row >= 0 && row < RowsShown();
    left_ = {shown ? place : state_.Text().row(FirstRow()).start, shown ? row : 0};
}

// A text that was only written anew stays where it is. Behind any other content the program mostly sets the
// caret, and until it did, the view stays.
void TextView::ContentReplaced(const controls::PlaceMap* where) {
    if (!IsAwake())
        return;
    places_.ForgetWidths();
    caret_.TakeModels(where && state_.caret < state_.anchor);
    state_.preedit.reset();
    places_.UpdateBars();
    if (where)
        places_.ShowAt((*where)(left_.place), left_.row);
    viewport()->update();
    follow_ = !where;
    later_.start(0, this);
    TellTextChanged(*this);
}

void TextView::TextReplaced(qsizetype at, qsizetype removed, const QString& text) {
    if (!IsAwake())
        return;
    places_.FollowEdit(at, text.size());
    TellReplaced(*this, at, removed, text);
    if (!state_.editing)
        caret_.FollowModel();
}

void TextView::ApplyFont() {
    QFont font(Model().FontName());
    font.setStyleHint(QFont::Monospace);
    const double size = Model().FontSize();
    font.setPointSizeF(std::clamp((std::isfinite(size) ? size : kSmallest) + zoom_, kSmallest, kLargest));
    places_.SetFont(font);
    viewport()->update();
    updateMicroFocus();
}

void TextView::Zoom(int points) {
    const double size = std::clamp(Model().FontSize(), kSmallest, kLargest);
    const double zoomed = std::clamp(size + (points == 0 ? 0 : zoom_ + points), kSmallest, kLargest);
    zoom_ = static_cast<int>(std::lround(zoomed - size));
    ApplyFont();
    for (QObject* beside : parent() ? parent()->children() : QObjectList()) {
        auto* other = qobject_cast<TextView*>(beside);
        if (other && std::exchange(other->zoom_, zoom_) != zoom_)
            other->ApplyFont();
    }
}

// --- showing -----------------------------------------------------------------------------------------------

void TextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != later_.timerId())
        return QAbstractScrollArea::timerEvent(event);
    later_.stop();
    places_.UpdateBars();
    if (std::exchange(follow_, false))
        caret_.ShowProgramsPlace();
}

void TextView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    if (state_.stale)
        Follow();
}

// A view gets its real size after it was filled.
void TextView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    places_.UpdateBars();
    if (state_.high && isVisible())
        places_.ShowHigh(state_.Selection().start);
}

void TextView::scrollContentsBy(int, int) {
    viewport()->update();
    updateMicroFocus();
}

void TextView::paintEvent(QPaintEvent* event) {
    if (state_.stale)
        return;
    const double widest = places_.Widest();
    PaintText(*this, state_, places_, event->rect());
    // The bar may appear, which mustn't happen in the middle of painting.
    if (places_.Widest() > widest)
        later_.start(0, this);
}

void TextView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::ActivationChange)
        viewport()->update();
    QAbstractScrollArea::changeEvent(event);
}

// --- focus, keys, input methods ----------------------------------------------------------------------------

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled, !Model().Locked);
    caret_.RestartBlinking();
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    caret_.RestartBlinking();
    viewport()->update();
}

// Tab belongs to the text, whatever the model does with it.
bool TextView::focusNextPrevChild(bool next) {
    return Model().Locked && QAbstractScrollArea::focusNextPrevChild(next);
}

// What the editor does with a key it does before the menus: they must not take its keys away.
bool TextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && ActFor(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void TextView::keyPressEvent(QKeyEvent* event) {
    const TextKeys::Act act = ActFor(*event);
    event->setAccepted(static_cast<bool>(act));
    if (act)
        act();
}

TextKeys::Act TextView::ActFor(const QKeyEvent& event) {
    if (event.key() == Qt::Key_0 && event.modifiers() == Qt::ControlModifier)
        return [this] { Zoom(0); };
    return keys_.ActFor(event);
}

void TextView::inputMethodEvent(QInputMethodEvent* event) {
    event->setAccepted(TakeInput(Parts(), *event));
    if (event->isAccepted())
        updateMicroFocus();
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    const auto answer = AnswerInput(*this, state_, places_, query);
    return answer ? *answer : QAbstractScrollArea::inputMethodQuery(query);
}

// --- mouse -------------------------------------------------------------------------------------------------

void TextView::mousePressEvent(QMouseEvent* event) {
    mouse_.Press(*event);
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    mouse_.DoubleClick(*event);
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    mouse_.Move(*event);
}

void TextView::mouseReleaseEvent(QMouseEvent* event) {
    const bool left = event->button() == Qt::LeftButton;
    if (left)
        mouse_.Release(*event);
    Q_EMIT userReleased();
    if (left)
        Q_EMIT userClicked();
}

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    wheelTurned_ += event->angleDelta().y();
    if (const int steps = wheelTurned_ / QWheelEvent::DefaultDeltasPerStep; steps != 0) {
        wheelTurned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
        Zoom(steps);
    }
    event->accept();
}

void TextView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        places_.Show(Caret());
        Q_EMIT contextMenuWanted(viewport()->mapToGlobal(RectAt(Caret()).bottomLeft()));
    } else {
        Q_EMIT userReleased(); // the menu takes the release
        Q_EMIT contextMenuWanted(event->globalPos());
    }
    event->accept();
}

// --- drags -------------------------------------------------------------------------------------------------

void TextView::dragEnterEvent(QDragEnterEvent* event) {
    drag_.Take(*event);
}

void TextView::dragMoveEvent(QDragMoveEvent* event) {
    drag_.Move(*event);
}

void TextView::dragLeaveEvent(QDragLeaveEvent* event) {
    drag_.Leave();
    event->accept();
}

void TextView::dropEvent(QDropEvent* event) {
    drag_.Drop(*event);
}

} // namespace desktop
