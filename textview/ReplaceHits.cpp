// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ReplaceHits.h"
#include "platform/controls/ColourRuns.h"
#include "textview/Undo.h"
#include "textview/fill/FillText.h"
#include <QScopedValueRollback>
#include <algorithm>

namespace {

using controls::RichContent;
using controls::RichTextBox;

// `places` are in the order of the text.
QString WithReplacements(const text::LongText& text, const std::vector<qsizetype>& places, qsizetype length,
                         const QString& replacement) {
    QString fresh;
    fresh.reserve(text.size() + std::ssize(places) * (replacement.size() - length));
    qsizetype at = 0;
    for (const qsizetype place : places) {
        fresh += text.mid(at, place - at);
        fresh += replacement;
        at = place + length;
    }
    return fresh += text.mid(at);
}

// One step for each hit, in the order of the hits; a hit further down moves by the ones above it that were
// replaced before.
void RecordSteps(DocumentWindow& window, const text::LongText& text, const std::vector<qsizetype>& hits,
                 qsizetype length, const QString& replacement) {
    auto& stack = window.undoStack;
    stack.resize(static_cast<std::size_t>(window.UndoPos));
    stack.reserve(stack.size() + hits.size());
    const bool down = hits.front() < hits.back();
    QString same; // most hits are one text, which is then held once
    qsizetype shift = 0;
    for (const qsizetype hit : hits) {
        if (const QString found = text.mid(hit, length); found != same)
            same = found;
        UndoRecord& record = stack.emplace_back();
        record.DelPos = record.InsPos = hit + shift;
        record.DelText = same;
        record.InsText = replacement;
        shift += down ? replacement.size() - length : 0;
    }
    window.UndoPos = static_cast<int>(stack.size());
}

// The text is searched in blocks, each with so much behind it that a hit over its end isn't missed.
constexpr qsizetype kBlock = 1'000'000;

Qt::CaseSensitivity SensitivityOf(const FindOptions& options) {
    return options.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

void TakeUnlessReplaced(std::vector<qsizetype>& hits, qsizetype place, QStringView found,
                        const QString& replacement) {
    if (found != replacement)
        hits.push_back(place);
}

} // namespace

std::vector<qsizetype> HitsDown(const RichTextBox& target, const QString& text, qsizetype from,
                                const QString& replacement, const FindOptions& options) {
    std::vector<qsizetype> hits;
    const qsizetype length = text.size();
    while (from < target.Long().size()) {
        const qsizetype start = from;
        const QString block = target.Long().mid(start, kBlock + length - 1);
        qsizetype at = block.indexOf(text, 0, SensitivityOf(options));
        from = start + kBlock;
        while (at >= 0) {
            const bool taken = !options.wholeWord || target.IsWholeWord(start + at, length);
            if (taken)
                TakeUnlessReplaced(hits, start + at, QStringView(block).sliced(at, length), replacement);
            at += taken ? length : 1;
            from = std::max(from, start + at);
            at = block.indexOf(text, at, SensitivityOf(options));
        }
    }
    return hits;
}

std::vector<qsizetype> HitsUp(const RichTextBox& target, const QString& text, qsizetype from,
                              const QString& replacement, const FindOptions& options) {
    std::vector<qsizetype> hits;
    const qsizetype length = text.size();
    while (from >= length) { // hits end at `from` or before it
        const qsizetype start = std::max<qsizetype>(from - kBlock - length + 1, 0);
        const QString block = target.Long().mid(start, from - start);
        qsizetype end = block.size();
        from = start > 0 ? start + length - 1 : 0;
        while (end >= length) {
            const qsizetype at = block.lastIndexOf(text, end - length, SensitivityOf(options));
            if (at < 0)
                break;
            const bool taken = !options.wholeWord || IsWholeWord(target.Long(), start + at, length);
            if (taken)
                TakeUnlessReplaced(hits, start + at, QStringView(block).sliced(at, length), replacement);
            end = at + (taken ? 0 : length - 1);
            from = std::min(from, start + end);
        }
    }
    return hits;
}

qsizetype ReplaceHits(DocumentWindow& window, RichTextBox& target, const std::vector<qsizetype>& hits,
                      qsizetype length, const QString& replacement) {
    RichTextBox& other = &target == &window.rtxtXML ? window.rtxtXML2 : window.rtxtXML;
    std::vector<qsizetype> places = hits;
    std::sort(places.begin(), places.end());
    const RichContent before = target.Content();
    const RichContent after{
        text::LongText::Like(WithReplacements(before.text, places, length, replacement), before.text),
        controls::MovedRuns(before.runs, places, length, replacement.size())};
    RecordSteps(window, before.text, hits, length, replacement);
    {
        const QScopedValueRollback ownWriting(window.bControlChange, true);
        target.SetContent(after);
        other.SetContent(after);
    }
    window.bTextChanged = window.bTextChanged || window.bLoaded;
    window.miTextSizeLevel = GetTextSizeLevel(after.text.size());
    const UndoRecord& last = window.undoStack.back();
    target.SetSelStart(last.InsPos);
    target.SetSelLength(replacement.size());
    SetTextStatus(target, window.currentStatus);
    SetUndoRedoMenuToolBar(window);
    return last.InsPos;
}
