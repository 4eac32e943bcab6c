// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextEditing.h"
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextSteps.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QScopedValueRollback>

namespace desktop {

void TextEditing::Replace(TextRange range, const QString& text) {
    if (state_.model->Locked || (range.start == range.end && text.isEmpty()))
        return;
    const QScopedValueRollback editing(state_.editing, true);
    state_.preedit.reset();
    state_.model->UserReplaced(range.start, range.end - range.start, text::ToCrLf(text));
    caret_.FollowModel();
}

void TextEditing::PutIn(TextRange range, const QString& text) {
    if (text.isEmpty())
        return;
    Replace(range, text);
    if (!state_.model->Locked && state_.caret > range.start)
        state_.model->Pasted(range.start, state_.caret - range.start);
}

// The first key after a program's mark takes nothing away that the user hasn't selected.
void TextEditing::Delete(Step step) {
    if (state_.model->EndMark())
        return;
    TextRange range = state_.Selection();
    if (range.start == range.end) {
        const qsizetype other = step(Text(), state_.caret);
        range = {std::min(state_.caret, other), std::max(state_.caret, other)};
    }
    Replace(range, {});
}

void TextEditing::Enter() {
    const QString key = QStringLiteral("\r");
    state_.model->EndMark();
    state_.model->KeyPress(key);
    Replace(state_.Selection(), key + Indentation(state_.Selection().start));
}

QString TextEditing::Indentation(qsizetype position) const {
    constexpr qsizetype kLongest = 1000;
    const qsizetype start = Text().lineStart(Text().lineOf(position));
    const QString line = Text().mid(start, std::min(position - start, kLongest));
    const auto end = std::find_if(line.begin(), line.end(), [](QChar c) { return c != u' ' && c != u'\t'; });
    return line.first(end - line.begin());
}

void TextEditing::Type(const QString& text) {
    if (state_.model->Locked)
        return;
    state_.model->EndMark();
    state_.model->KeyPress(text);
    TextRange range = state_.Selection();
    if (state_.overwrite && range.start == range.end && range.end < RowEnd(Text(), range.end))
        range.end = NextPlace(Text(), range.end);
    Replace(range, text);
    // The model has told the colour of the first character: several at once are coloured like a pasted text.
    if (text.size() > 1 && state_.caret > range.start)
        state_.model->Pasted(range.start, state_.caret - range.start);
}

void TextEditing::MoveSelectionTo(qsizetype position) {
    const TextRange from = state_.Selection();
    if (position >= from.start && position <= from.end)
        return;
    const bool back = position < from.start;
    const TextRange first = back ? TextRange{position, from.start} : from;
    const TextRange second = back ? from : TextRange{from.end, position};
    const auto colours = [this](TextRange part) {
        return controls::RunsOf(state_.model->Runs(), part.start, part.end - part.start);
    };
    std::vector<controls::ColourRun> runs = colours(second);
    const qsizetype shift = second.end - second.start;
    runs.push_back({shift, 0});
    for (const controls::ColourRun& run : colours(first))
        runs.push_back({run.start + shift, run.colour});
    const QString text = Text().mid(second.start, shift) + Text().mid(first.start, first.end - first.start);
    caret_.Select(first.start, second.end);
    {
        const QScopedValueRollback editing(state_.editing, true);
        state_.model->SetSelContent(text, std::move(runs));
    }
    const qsizetype size = from.end - from.start, start = back ? position : position - size;
    caret_.Select(start, start + size);
}

// --- clipboard ---------------------------------------------------------------------------------------------

void TextEditing::Cut() {
    if (state_.model->EndMark())
        return;
    Copy();
    Replace(state_.Selection(), {});
}

void TextEditing::Copy() const {
    const TextRange range = state_.Selection();
    if (range.start < range.end)
        QGuiApplication::clipboard()->setText(caret_.SelectedText(u"\n"));
}

void TextEditing::Paste() {
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    state_.model->EndMark();
    if (mime && IsTextMime(*mime))
        PutIn(state_.Selection(), mime->text());
}

} // namespace desktop
