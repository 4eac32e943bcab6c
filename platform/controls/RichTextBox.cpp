// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/RichTextBox.h"
#include "platform/controls/ColourRuns.h"
#include "platform/controls/Rtf.h"
#include "platform/text/TextTools.h"
#include <algorithm>
#include <utility>

namespace controls {

namespace {

constexpr qsizetype kKept = 1'000'000; // units of a whole text that is kept for the next call

bool SplitsLineEnd(const text::LongText& text, qsizetype at) {
    return at > 0 && at < text.size() && text.at(at) == u'\n' && text.at(at - 1) == u'\r';
}

// A content whose line ends had to be written out: its runs move by the units added before them.
void FitRuns(std::vector<ColourRun>& runs, const QString& given) {
    qsizetype at = 0, added = 0;
    for (ColourRun& run : runs) {
        for (const qsizetype end = std::min(run.start, given.size()); at < end; ++at) {
            const bool endsLine = given[at] == u'\r' || given[at] == u'\n';
            const bool secondHalf = given[at] == u'\n' && at > 0 && given[at - 1] == u'\r';
            const bool whole = given[at] == u'\r' && at + 1 < given.size() && given[at + 1] == u'\n';
            added += endsLine && !secondHalf && !whole ? 1 : 0;
        }
        run.start += added;
    }
}

bool IsWordUnit(QChar unit) {
    return unit.isLetterOrNumber();
}

} // namespace

// --- content ---------------------------------------------------------------------------------------------

QString RichTextBox::Text() const {
    if (wholeKnown_)
        return whole_;
    QString whole = text_.toString();
    if (whole.size() <= kKept) {
        whole_ = whole;
        wholeKnown_ = true;
    }
    return whole;
}

void RichTextBox::SetText(const QString& text) {
    SetText(text::LongText::Like(text::ToCrLf(text), text_));
}

void RichTextBox::SetText(const text::LongText& text) {
    SetContent({text, {}});
}

void RichTextBox::SetContent(const RichContent& content) {
    Exchange(content, nullptr);
}

void RichTextBox::SetContent(const RichContent& content, const PlaceMap& where) {
    Exchange(content, &where);
}

void RichTextBox::Exchange(const RichContent& content, const PlaceMap* where) {
    const bool textDiffers = !(content.text == text_), runsDiffer = content.runs != runs_;
    const bool wasSelected = selLength_ > 0, wasMark = mark_;
    const qsizetype start = selStart_, length = selLength_;
    if (textDiffers || runsDiffer)
        contentLeaves();
    text_ = content.text;
    runs_ = content.runs;
    SetFillers(content.fillers);
    wholeKnown_ = wholeKnown_ && !textDiffers;
    if (!wholeKnown_)
        whole_.clear();
    const qsizetype from = where ? (*where)(start) : 0;
    PutSelection(from, where && length > 0 ? (*where)(start + length) - from : 0);
    mark_ = wasMark && selLength_ > 0;
    if (textDiffers || runsDiffer)
        contentReplaced(where);
    else if (start != selStart_ || length != selLength_)
        selectionChanged();
    if (textDiffers)
        Change();
    SelChange(wasSelected);
}

QString RichTextBox::TextRTF() const {
    return WriteRtf(Text(), runs_, fontName_, fontSize_);
}

void RichTextBox::SetTextRTF(const QString& rtf) {
    QString text;
    std::vector<ColourRun> runs;
    if (!ReadRtf(rtf, text, runs)) {
        SetText(rtf);
        return;
    }
    const QString fresh = text::ToCrLf(text);
    if (fresh.size() != text.size())
        FitRuns(runs, text);
    SetContent({text::LongText::Like(fresh, text_), std::move(runs)});
}

// --- selection -------------------------------------------------------------------------------------------

void RichTextBox::SetSelStart(qsizetype start) {
    start = std::clamp<qsizetype>(start, 0, text_.size());
    const bool wasSelected = selLength_ > 0, moves = start != selStart_ || wasSelected;
    PutSelection(start, 0);
    if (!moves)
        return;
    selectionChanged();
    SelChange(wasSelected);
}

void RichTextBox::SetSelLength(qsizetype length) {
    length = std::clamp<qsizetype>(length, 0, text_.size() - selStart_);
    const qsizetype before = std::exchange(selLength_, length);
    mark_ = false;
    if (before == length)
        return;
    TakeTypeColour();
    selectionChanged();
    SelChange(before > 0);
}

void RichTextBox::Mark(qsizetype start, qsizetype length) {
    const bool wasSelected = selLength_ > 0;
    PutSelection(start, length);
    mark_ = selLength_ > 0;
    selectionChanged();
    SelChange(wasSelected);
}

bool RichTextBox::EndMark() {
    const bool mark = mark_;
    if (mark)
        SetSelStart(selStart_);
    return mark;
}

QString RichTextBox::SelText() const {
    return text_.mid(selStart_, selLength_);
}

void RichTextBox::UserSelected(qsizetype start, qsizetype length) {
    const bool wasSelected = selLength_ > 0;
    PutSelection(start, length);
    SelChange(wasSelected);
}

void RichTextBox::SelectAll() {
    UserSelected(0, text_.size());
    allSelected();
}

void RichTextBox::PutSelection(qsizetype start, qsizetype length) {
    selStart_ = std::clamp<qsizetype>(start, 0, text_.size());
    selLength_ = std::clamp<qsizetype>(length, 0, text_.size() - selStart_);
    mark_ = false;
    TakeTypeColour();
}

TextPlace RichTextBox::CaretPlace() const {
    const qsizetype line = text_.lineOf(selStart_);
    return {line + 1, selStart_ - text_.lineStart(line) + 1};
}

// --- changing the text -----------------------------------------------------------------------------------

// Replaces a stretch; the selection is a caret behind it then. Nothing is announced yet.
void RichTextBox::Replace(qsizetype at, qsizetype removed, const QString& piece) {
    BeforeChange();
    text_.replace(at, removed, piece);
    wholeKnown_ = false;
    whole_.clear();
    ShiftRuns(runs_, at, removed, piece.size());
    ShiftFillers(at, removed, piece.size());
    selStart_ = at + piece.size();
    selLength_ = 0;
    mark_ = false;
}

// A stretch never takes half a line end away, nor parts one.
void RichTextBox::TakeWholeLineEnds(qsizetype& at, qsizetype& removed) const {
    qsizetype end = at + removed;
    if (removed > 0 && SplitsLineEnd(text_, end))
        ++end;
    if (SplitsLineEnd(text_, at))
        --at;
    removed = removed > 0 ? end - at : 0;
}

void RichTextBox::TellReplaced(qsizetype at, qsizetype removed, const QString& piece, bool wasSelected) {
    TakeTypeColour();
    textReplaced(at, removed, piece);
    Change();
    SelChange(wasSelected);
}

void RichTextBox::SetSelText(const QString& text) {
    const QString piece = text::ToCrLf(text);
    const bool wasSelected = selLength_ > 0;
    qsizetype at = selStart_, removed = selLength_;
    TakeWholeLineEnds(at, removed);
    if (text_.mid(at, removed) != piece) {
        Replace(at, removed, piece);
        TellReplaced(at, removed, piece, wasSelected);
        return;
    }
    PutSelection(at + piece.size(), 0);
    if (!wasSelected)
        return;
    selectionChanged();
    SelChange(true);
}

void RichTextBox::SetSelContent(const QString& text, std::vector<ColourRun> runs,
                                const std::vector<qsizetype>& fillers) {
    const QString piece = text::ToCrLf(text);
    if (piece.size() != text.size())
        FitRuns(runs, text);
    const bool wasSelected = selLength_ > 0;
    qsizetype at = selStart_, removed = selLength_;
    TakeWholeLineEnds(at, removed);
    Replace(at, removed, piece);
    Paint(at, piece.size(), runs);
    AddFillers(at, fillers);
    TellReplaced(at, removed, piece, wasSelected);
}

void RichTextBox::Paste(const QString& text) {
    if (text.isEmpty())
        return;
    EndMark();
    qsizetype at = selStart_, removed = selLength_;
    TakeWholeLineEnds(at, removed);
    SetSelText(text);
    if (selStart_ > at)
        Pasted(at, selStart_ - at);
}

void RichTextBox::UserReplaced(qsizetype at, qsizetype removed, const QString& text) {
    at = std::clamp<qsizetype>(at, 0, text_.size());
    removed = std::clamp<qsizetype>(removed, 0, text_.size() - at);
    TakeWholeLineEnds(at, removed);
    const QString piece = text::ToCrLf(text);
    if (removed == 0 && piece.isEmpty())
        return;
    const bool wasSelected = selLength_ > 0;
    const std::uint32_t colour = typeColour_;
    Replace(at, removed, piece);
    if (!piece.isEmpty() && (!runs_.empty() || colour != 0))
        Paint(at, piece.size(), {{0, colour}});
    TellReplaced(at, removed, piece, wasSelected);
}

void RichTextBox::Type(const QString& text) {
    EndMark();
    UserReplaced(selStart_, selLength_, text);
}

void RichTextBox::SetFont(const QString& name, double size) {
    if (name == fontName_ && size == fontSize_)
        return;
    fontName_ = name;
    fontSize_ = size;
    fontChanged();
}

// --- search ----------------------------------------------------------------------------------------------

bool RichTextBox::IsWholeWord(const SearchHit& hit) {
    return !IsWordUnit(hit.before) && !IsWordUnit(hit.behind);
}

qsizetype RichTextBox::Find(const QString& text, qsizetype start, qsizetype end, int flags) {
    const auto sensitivity = (flags & rtfMatchCase) != 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
    if (end < 0 || end > text_.size())
        end = text_.size();
    qsizetype hit = -1;
    if ((flags & rtfWholeWord) == 0)
        hit = text_.indexOf(text, start, sensitivity);
    else
        VisitHits(text_, text, start, sensitivity, [&](const SearchHit& found) {
            hit = IsWholeWord(found) ? found.at : -1;
            return hit < 0 ? found.at + 1 : -1;
        });
    if (hit < 0 || hit + text.size() > end)
        return -1;
    if ((flags & rtfNoHighlight) == 0) {
        SetSelStart(hit);
        SetSelLength(text.size());
    }
    return hit;
}

} // namespace controls
