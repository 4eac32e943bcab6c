// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/Undo.h"
#include "textview/fill/Colour.h"
#include "textview/fill/FillText.h"
#include <QScopedValueRollback>

// From a change in a pane to a record of it.

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

void KeepWhole(UndoRecord& record, const TextStatus& now, const TextStatus& old) {
    record = {};
    record.WholeText = true;
    record.OldRTF = std::make_shared<const controls::RichContent>(old.Content);
    record.NewRTF = std::make_shared<const controls::RichContent>(now.Content);
}

// The other pane takes the step; one that had come to differ takes everything.
void BringIntoOtherPane(DocumentWindow& window, const UndoRecord& record, const RichTextBox& pane,
                        RichTextBox& other) {
    const QScopedValueRollback ownWriting(window.bControlChange, true);
    if (!record.WholeText) {
        RDelete(other, record.DelPos, record.DelText);
        RInsert(window.app, other, record.InsPos, record.InsText);
    }
    if (!(other.Long() == pane.Long()))
        other.SetContent(pane.Content());
    else
        TakeColours(other, pane);
}

void Record(DocumentWindow& window, const RichTextBox& pane, RichTextBox& other) {
    window.previousStatus = std::move(window.currentStatus);
    SetTextStatus(pane, window.currentStatus);
    const TextStatus& old = window.previousStatus;
    const TextStatus& now = window.currentStatus;
    auto& stack = window.undoStack;
    stack.resize(static_cast<std::size_t>(window.UndoPos)); // what could be done again is gone
    if (now.Content.text == old.Content.text)
        return;
    UndoRecord& record = stack.emplace_back();
    RichTextChange(record, now, old);
    if (!TellsAll(record, now.Content.text, old.Content.text))
        KeepWhole(record, now, old);
    else if (record.DelText.size() > mXMLEdit::kLongestColoured)
        record.DelColours = controls::RunsOf(old.Content.runs, record.DelPos, record.DelText.size());
    ++window.UndoPos;
    SetUndoRedoMenuToolBar(window);
    BringIntoOtherPane(window, record, pane, other);
}

} // namespace

void SetTextStatus(const RichTextBox& richText, TextStatus& status) {
    status = {richText.Content(), richText.SelStart(), richText.SelLength()};
}

void RichTextChange(UndoRecord& record, const TextStatus& now, const TextStatus& old) {
    const LongText& newText = now.Content.text;
    const LongText& oldText = old.Content.text;
    const bool selected = now.SelLength > 0, wasSelected = old.SelLength > 0;
    const qsizetype moved = now.SelStart - old.SelStart;
    const auto oldSelection = [&] { return oldText.mid(old.SelStart, old.SelLength); };

    if (!wasSelected && moved > 0) { // typing
        record.InsPos = record.DelPos = old.SelStart;
        record.InsText = newText.mid(old.SelStart, moved);
        record.DelText.clear();
    } else if (wasSelected && !selected && moved >= 0) { // overtyping, or the selection is deleted
        record.InsPos = record.DelPos = old.SelStart;
        record.InsText = newText.mid(old.SelStart, moved);
        record.DelText = oldSelection();
    } else if (!wasSelected && !selected && moved < 0) { // Backspace
        record.InsPos = old.SelStart;
        record.InsText.clear();
        record.DelPos = now.SelStart;
        record.DelText = oldText.mid(now.SelStart, -moved);
    } else if (!wasSelected && !selected && !oldText.isEmpty()) { // Delete: one character, also of a line end
        record.InsPos = record.DelPos = old.SelStart;
        record.InsText.clear();
        record.DelText = oldText.mid(old.SelStart, 1);
    } else if (wasSelected && selected && moved != 0) { // the selection was dragged
        record.InsPos = now.SelStart;
        record.InsText = newText.mid(now.SelStart, now.SelLength);
        record.DelPos = old.SelStart;
        record.DelText = oldSelection();
    }
}

void RecordTextChange(DocumentWindow& window) try {
    if (!window.brtxtXML2Focus && !window.bControlChange)
        Record(window, window.rtxtXML, window.rtxtXML2);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".RecordTextChange"));
}

void RecordTextChange2(DocumentWindow& window) try {
    if (window.brtxtXML2Focus && !window.bControlChange)
        Record(window, window.rtxtXML2, window.rtxtXML);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".RecordTextChange2"));
}
