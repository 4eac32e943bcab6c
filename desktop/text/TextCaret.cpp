// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextCaret.h"
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextSteps.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QStyleHints>

namespace desktop {

// --- the user's moves --------------------------------------------------------------------------------------

void TextCaret::Place(qsizetype anchor, qsizetype caret) {
    const TextRange before = state_.Selection();
    state_.anchor = anchor;
    state_.caret = caret;
    state_.wantedX.reset();
    const TextRange now = state_.Selection();
    if (before.start == before.end && now.start == now.end) {
        places_.UpdateRowOf(before.start);
        UpdateRow();
    } else {
        area_.viewport()->update();
    }
    RestartBlinking();
    moved();
}

void TextCaret::Select(qsizetype anchor, qsizetype caret) {
    state_.high = false;
    anchor = SettledPlace(Text(), anchor);
    caret = SettledPlace(Text(), caret);
    if (anchor != state_.anchor || caret != state_.caret || state_.model->IsMark()) {
        Place(anchor, caret);
        const TextRange now = state_.Selection();
        state_.model->UserSelected(now.start, now.end - now.start);
    }
    places_.Show(state_.caret);
}

void TextCaret::SelectAll() {
    state_.high = false; // the view stays where it is
    if (state_.caret != Text().size() || state_.anchor != 0) {
        Place(0, Text().size());
        state_.model->UserSelected(0, Text().size());
    }
    Publish();
}

void TextCaret::MoveTo(qsizetype position, bool select) {
    const qsizetype from = state_.model->IsMark() ? state_.caret : state_.anchor;
    Select(select ? from : position, position);
    Publish();
}

QString TextCaret::SelectedText(QStringView lineEnd) const {
    const TextRange range = state_.Selection();
    return WithLineEnds(Text().mid(range.start, range.end - range.start), lineEnd);
}

// The text is only copied when it is asked for: marking a large text costs nothing.
void TextCaret::Publish() const {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const TextRange range = state_.Selection();
    if (clipboard->supportsSelection() && range.start < range.end)
        clipboard->setMimeData(MakeTextMime(Text(), range).release(), QClipboard::Selection);
}

// --- the model's selection ---------------------------------------------------------------------------------

// A program may select half a line's end, which can't be seen: it is taken whole.
TextRange TextCaret::ModelSelection() const {
    const auto splits = [this](qsizetype at) { return Text().at(at - 1) == u'\r' && Text().at(at) == u'\n'; };
    const qsizetype start = std::clamp<qsizetype>(state_.model->SelStart(), 0, Text().size());
    const qsizetype end = std::min(start + state_.model->SelLength(), Text().size());
    const qsizetype before = start - (splits(start) ? 1 : 0);
    return {before, end == start ? before : end + (splits(end) ? 1 : 0)};
}

// The caret stands in front of what a program has marked.
void TextCaret::TakeModels(bool backwards) {
    const TextRange selection = ModelSelection();
    backwards = backwards || state_.model->IsMark();
    state_.anchor = backwards ? selection.end : selection.start;
    state_.caret = backwards ? selection.start : selection.end;
    state_.wantedX.reset();
}

void TextCaret::FollowModel() {
    state_.stale = state_.stale || !area_.isVisible();
    if (state_.stale)
        return;
    const TextRange now = state_.Selection(), wanted = ModelSelection();
    if (state_.model->IsMark())
        Place(wanted.end, wanted.start);
    else if (now.start != wanted.start || now.end != wanted.end)
        Place(wanted.start, wanted.end);
    if (state_.editing)
        places_.Show(state_.caret);
    else
        ShowProgramsPlace();
}

// What is typed in one pane goes into the other one too, caret and all: that one keeps showing its place.
void TextCaret::ShowProgramsPlace() {
    if (isInUse())
        places_.ShowHigh(state_.Selection().start);
}

// --- blinking ----------------------------------------------------------------------------------------------

void TextCaret::RestartBlinking() {
    state_.caretShown = true;
    const int flash = QGuiApplication::styleHints()->cursorFlashTime();
    if (area_.hasFocus() && flash > 1)
        blinking_.start(flash / 2, this);
    else
        blinking_.stop();
}

void TextCaret::timerEvent(QTimerEvent*) {
    state_.caretShown = !state_.caretShown;
    UpdateRow();
}

} // namespace desktop
