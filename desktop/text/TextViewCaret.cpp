// SPDX-License-Identifier: GPL-3.0-or-later
// The caret and the selection.
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextAccessible.h"
#include "desktop/text/TextView.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QStyleHints>

namespace desktop {

void TextView::PlaceCaret(qsizetype anchor, qsizetype caret) {
    const TextRange before = Selection();
    anchor_ = anchor;
    caret_ = caret;
    wantedX_.reset();
    const TextRange now = Selection();
    if (before.start == before.end && now.start == now.end) {
        UpdateRows(Text().rowOf(before.start), Text().rowOf(before.start));
        UpdateCaretRow();
    } else {
        viewport()->update();
    }
    RestartBlinking();
    updateMicroFocus();
    TellSelection(*this);
}

void TextView::Select(qsizetype anchor, qsizetype caret) {
    high_ = false;
    anchor = SettledPlace(Text(), anchor);
    caret = SettledPlace(Text(), caret);
    if (anchor != anchor_ || caret != caret_) {
        PlaceCaret(anchor, caret);
        const TextRange now = Selection();
        model_->UserSelected(now.start, now.end - now.start);
    }
    ShowCaret();
}

QString TextView::SelectedText(QStringView lineEnd) const {
    const TextRange range = Selection();
    return WithLineEnds(Text().mid(range.start, range.end - range.start), lineEnd);
}

// The text is only copied when somebody asks for it: marking a large text costs nothing.
void TextView::PublishSelection() const {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const TextRange range = Selection();
    if (clipboard->supportsSelection() && range.start < range.end)
        clipboard->setMimeData(MakeTextMime(Text(), range).release(), QClipboard::Selection);
}

void TextView::UpdateRows(qsizetype first, qsizetype last) {
    const int height = rows_.Font().height;
    const qsizetype top = std::max(first, FirstRow());
    const qsizetype bottom = std::min(last, FirstRow() + RowsShown() + 1);
    if (top <= bottom)
        viewport()->update(0, static_cast<int>(top - FirstRow()) * height, viewport()->width(),
                           static_cast<int>(bottom - top + 1) * height);
}

void TextView::UpdateCaretRow() {
    UpdateRows(Text().rowOf(caret_), Text().rowOf(caret_));
}

void TextView::RestartBlinking() {
    caretShown_ = true;
    const int flash = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flash > 1)
        blinking_.start(flash / 2, this);
    else
        blinking_.stop();
}

} // namespace desktop
