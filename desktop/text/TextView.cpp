// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextView.h"
#include "desktop/base/Listen.h"
#include "desktop/text/TextAccessible.h"
#include <QEvent>
#include <QScrollBar>
#include <cmath>

namespace desktop {

namespace {

// A font size comes from the settings, and may be anything there.
constexpr double kSmallest = 1, kLargest = 200;

} // namespace

TextView::TextView(QWidget* parent)
    : QAbstractScrollArea(parent), model_(nullptr), own_(std::make_unique<controls::RichTextBox>()) {
    InstallTextAccessibility();
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
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { high_ = false; });
    SetModel(nullptr);
}

TextView::~TextView() = default;

// --- the model ---------------------------------------------------------------------------------------------

void TextView::SetModel(controls::RichTextBox* model) {
    listening_ = std::make_unique<QObject>();
    model_ = model ? model : own_.get();
    QObject* context = listening_.get();
    Listen(model_->contentReplaced, context, [this] { ContentReplaced(); });
    Listen(model_->textReplaced, context,
           [this](qsizetype at, qsizetype removed, const QString& text) { TextReplaced(at, removed, text); });
    Listen(model_->coloursChanged, context, [this](qsizetype start, qsizetype length) {
        if (!stale_)
            UpdateRows(Text().rowOf(start), Text().rowOf(start + length));
    });
    Listen(model_->selectionChanged, context, [this] { FollowSelection(); });
    Listen(model_->allSelected, context, [this] {
        stale_ = stale_ || !isVisible();
        if (!stale_)
            SelectAll();
    });
    Listen(model_->fontChanged, context, [this] { ApplyFont(); });
    ApplyFont();
    stale_ = true;
    if (isVisible())
        Follow();
}

/// Catches up with what happened while the view was hidden.
void TextView::Follow() {
    stale_ = false;
    ContentReplaced();
    ShowCaretHigh();
    high_ = true;
}

// A program may select half a line's end, which nobody could see: it is taken whole.
TextRange TextView::ModelSelection() const {
    const auto splits = [this](qsizetype at) { return Text().at(at - 1) == u'\r' && Text().at(at) == u'\n'; };
    const qsizetype start = std::clamp<qsizetype>(model_->SelStart(), 0, Text().size());
    const qsizetype end = std::min(start + model_->SelLength(), Text().size());
    const qsizetype before = start - (splits(start) ? 1 : 0);
    return {before, end == start ? before : end + (splits(end) ? 1 : 0)};
}

// Behind a new content the program mostly sets the caret: until it did, the view stays where it is.
void TextView::ContentReplaced() {
    stale_ = stale_ || !isVisible();
    if (stale_)
        return;
    widest_ = 0;
    const TextRange selection = ModelSelection();
    anchor_ = selection.start;
    caret_ = selection.end;
    wantedX_.reset();
    preedit_.reset();
    UpdateBars();
    viewport()->update();
    follow_ = true;
    later_.start(0, this);
    TellTextChanged(*this);
}

void TextView::TextReplaced(qsizetype at, qsizetype removed, const QString& text) {
    stale_ = stale_ || !isVisible();
    if (stale_)
        return;
    const qsizetype before = std::exchange(rowCount_, Text().rowCount());
    const int margin = margin_;
    UpdateBars();
    if (margin_ != margin)
        viewport()->update(); // all rows move
    const text::LongText& all = Text();
    const qsizetype first = all.rowOf(all.lineStart(all.lineOf(at)));
    // A line that is cut into rows may be cut elsewhere from here on; the next line stays as it is.
    const qsizetype next = all.lineStart(all.lineOf(at + text.size()) + 1);
    UpdateRows(first, before == rowCount_ ? all.rowOf(next) : rowCount_);
    TellReplaced(*this, at, removed, text);
    if (!editing_)
        FollowSelection();
}

/// The model's selection is another one. A program that jumps wants the place to be seen with what follows.
void TextView::FollowSelection() {
    stale_ = stale_ || !isVisible();
    if (stale_)
        return;
    const TextRange now = Selection(), wanted = ModelSelection();
    if (now.start != wanted.start || now.end != wanted.end)
        PlaceCaret(wanted.start, wanted.end);
    if (editing_)
        ShowCaret();
    else
        ShowProgramsCaret();
}

void TextView::ApplyFont() {
    QFont font(model_->FontName());
    font.setStyleHint(QFont::Monospace);
    const double size = model_->FontSize();
    font.setPointSizeF(std::clamp((std::isfinite(size) ? size : kSmallest) + zoom_, kSmallest, kLargest));
    rows_.SetFont(font);
    widest_ = 0;
    UpdateBars();
    viewport()->update();
    updateMicroFocus();
}

void TextView::Zoom(int points) {
    const double size = std::clamp(model_->FontSize(), kSmallest, kLargest);
    const double zoomed = std::clamp(size + (points == 0 ? 0 : zoom_ + points), kSmallest, kLargest);
    zoom_ = static_cast<int>(std::lround(zoomed - size));
    ApplyFont();
    for (QObject* beside : parent() ? parent()->children() : QObjectList()) {
        auto* other = qobject_cast<TextView*>(beside);
        if (other && std::exchange(other->zoom_, zoom_) != zoom_)
            other->ApplyFont();
    }
}

// --- events ------------------------------------------------------------------------------------------------

void TextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == blinking_.timerId()) {
        caretShown_ = !caretShown_;
        UpdateCaretRow();
    } else if (event->timerId() == scrolling_.timerId()) {
        ScrollTowardsPointer();
    } else if (event->timerId() == thirdClick_.timerId()) {
        thirdClick_.stop();
    } else if (event->timerId() == later_.timerId()) {
        later_.stop();
        UpdateBars();
        if (std::exchange(follow_, false))
            ShowProgramsCaret();
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void TextView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    if (stale_)
        Follow();
}

// A view gets its real size after it was filled.
void TextView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateBars();
    if (high_ && isVisible())
        ShowCaretHigh();
}

void TextView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::ActivationChange)
        viewport()->update();
    QAbstractScrollArea::changeEvent(event);
}

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled, !model_->Locked);
    RestartBlinking();
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    RestartBlinking();
    viewport()->update();
}

// Tab belongs to the text, whatever the model does with it.
bool TextView::focusNextPrevChild(bool next) {
    return model_->Locked && QAbstractScrollArea::focusNextPrevChild(next);
}

} // namespace desktop
