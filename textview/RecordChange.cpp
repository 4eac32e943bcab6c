// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/RecordChange.h"
#include "core/edit/Guard.h"
#include "core/model/Frame.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextDifference.h"
#include "platform/text/TextTools.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include "textview/KeptPlaces.h"
#include <QScopedValueRollback>
#include <algorithm>
#include <cstdlib>

namespace textview {

namespace {

using controls::RichTextBox;
using text::LongText;

// --- the pane's manner with line ends: nothing goes or comes between the two halves of one ---------------

bool SplitsLineEnd(const LongText& text, qsizetype at) {
    return at > 0 && text.at(at) == u'\n' && text.at(at - 1) == u'\r';
}

bool TakeOut(LongText& text, qsizetype position, const QString& piece) {
    if (piece.isEmpty())
        return true;
    if (text.mid(position, piece.size()) != piece)
        return false;
    const qsizetype end = position + piece.size() + (SplitsLineEnd(text, position + piece.size()) ? 1 : 0);
    position -= SplitsLineEnd(text, position) ? 1 : 0;
    text.replace(position, end - position, {});
    return true;
}

void PutIn(LongText& text, qsizetype position, const QString& piece) {
    if (!piece.isEmpty())
        text.replace(position - (SplitsLineEnd(text, position) ? 1 : 0), 0, text::ToCrLf(piece));
}

bool LeadsTo(LongText from, const LongText& to, qsizetype takePos, const QString& take, qsizetype putPos,
             const QString& put) {
    if (!TakeOut(from, takePos, take))
        return false;
    PutIn(from, putPos, put);
    return from == to;
}

// Whether the record leads from the old text to the new one and back.
bool TellsAll(const UndoRecord& record, const LongText& now, const LongText& old) {
    return LeadsTo(old, now, record.DelPos, record.DelText, record.InsPos, record.InsText) &&
           LeadsTo(now, old, record.InsPos, record.InsText, record.DelPos, record.DelText);
}

UndoRecord WholeTextStep(const TextStatus& now, const TextStatus& old) {
    UndoRecord record;
    record.WholeText = true;
    record.OldRTF = std::make_shared<const controls::RichContent>(old.Content);
    record.NewRTF = std::make_shared<const controls::RichContent>(now.Content);
    return record;
}

// What the table can't tell is told by where the texts differ, whole line ends included.
UndoRecord StepByDifference(const LongText& now, const LongText& old) {
    text::TextChange change = text::Difference(old, now);
    if (SplitsLineEnd(old, change.start) || SplitsLineEnd(now, change.start)) {
        --change.start;
        ++change.removed;
        ++change.added;
    }
    if (SplitsLineEnd(old, change.start + change.removed) ||
        SplitsLineEnd(now, change.start + change.added)) {
        ++change.removed;
        ++change.added;
    }
    UndoRecord record;
    record.DelPos = record.InsPos = change.start;
    record.DelText = old.mid(change.start, change.removed);
    record.InsText = now.mid(change.start, change.added);
    return record;
}

// A large change is kept as two contents, which share what they can and hold a byte a character.
UndoRecord StepBetween(const TextStatus& now, const TextStatus& old) {
    constexpr qsizetype kLarge = 1'000'000; // units
    if (std::max(old.SelLength, std::abs(now.SelStart - old.SelStart)) > kLarge)
        return WholeTextStep(now, old);
    UndoRecord record = RichTextChange(now, old);
    if (!TellsAll(record, now.Content.text, old.Content.text))
        record = StepByDifference(now.Content.text, old.Content.text);
    if (!TellsAll(record, now.Content.text, old.Content.text))
        return WholeTextStep(now, old);
    if (record.DelText.size() > kLongestColoured)
        record.DelColours = controls::RunsOf(old.Content.runs, record.DelPos, record.DelText.size());
    record.DelFillers = controls::FillersOf(old.Content.fillers, record.DelPos, record.DelText.size());
    return record;
}

// The other pane takes the step; one that had come to differ takes everything. Nothing of it is selected
// there (quirk 55).
void BringIntoOtherPane(DocumentWindow& window, const UndoRecord& record, const RichTextBox& pane,
                        RichTextBox& other) {
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    if (!record.WholeText) {
        RDelete(other, record.DelPos, record.DelText);
        RInsert(window.app, other, record.InsPos, record.InsText);
        other.SetSelStart(other.SelStart() + other.SelLength());
    }
    if (!(other.Long() == pane.Long()))
        other.SetContent(pane.Content(), KeptPlaces(other.Long(), pane.Long()));
    else
        TakeColours(other, pane);
}

void Record(DocumentWindow& window, const RichTextBox& pane, RichTextBox& other) {
    TextState& state = StateOf(window);
    state.previousStatus = std::move(state.currentStatus);
    SetTextStatus(window, pane);
    state.undoStack.resize(static_cast<std::size_t>(state.UndoPos)); // what could be done again is gone
    if (state.currentStatus.Content.text == state.previousStatus.Content.text)
        return;
    window.tmText.SetEnabled(false); // the tree follows when the text is left, as after all typing
    state.undoStack.push_back(StepBetween(state.currentStatus, state.previousStatus));
    ++state.UndoPos;
    BringIntoOtherPane(window, state.undoStack.back(), pane, other);
    // No edit: at its end the view would follow the tree, which stays behind, and the caret would go
    // elsewhere.
    window.app.frame().RefreshMenu();
}

} // namespace

UndoRecord RichTextChange(const TextStatus& now, const TextStatus& old) {
    const LongText& newText = now.Content.text;
    const LongText& oldText = old.Content.text;
    const bool selected = now.SelLength > 0, wasSelected = old.SelLength > 0;
    const qsizetype moved = now.SelStart - old.SelStart;
    const auto oldSelection = [&] { return oldText.mid(old.SelStart, old.SelLength); };
    const auto step = [](qsizetype delPos, const QString& delText, qsizetype insPos, const QString& insText) {
        UndoRecord record;
        record.DelPos = delPos;
        record.DelText = delText;
        record.InsPos = insPos;
        record.InsText = insText;
        return record;
    };

    if (!wasSelected && moved > 0) // typing
        return step(old.SelStart, {}, old.SelStart, newText.mid(old.SelStart, moved));
    if (wasSelected && !selected && moved >= 0) // overtyping, or the selection is deleted
        return step(old.SelStart, oldSelection(), old.SelStart, newText.mid(old.SelStart, moved));
    if (!wasSelected && !selected && moved < 0) // Backspace
        return step(now.SelStart, oldText.mid(now.SelStart, -moved), old.SelStart, {});
    if (!wasSelected && !selected && !oldText.isEmpty()) // Delete: one character, also of a line end
        return step(old.SelStart, oldText.mid(old.SelStart, 1), old.SelStart, {});
    if (wasSelected && selected && moved != 0) // the selection was dragged
        return step(old.SelStart, oldSelection(), now.SelStart, newText.mid(now.SelStart, now.SelLength));
    return {};
}

void RecordTextChange(DocumentWindow& window) {
    edit::Guarded(window, "RecordTextChange", [&] {
        if (!window.brtxtXML2Focus && !StateOf(window).bControlChange)
            Record(window, window.rtxtXML, window.rtxtXML2);
    });
}

void RecordTextChange2(DocumentWindow& window) {
    edit::Guarded(window, "RecordTextChange2", [&] {
        if (window.brtxtXML2Focus && !StateOf(window).bControlChange)
            Record(window, window.rtxtXML2, window.rtxtXML);
    });
}

} // namespace textview
