// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/RichTextBox.h"
#include "platform/text/TextTools.h"
#include <algorithm>
#include <iterator>
#include <utility>

namespace controls {

namespace {

// Equal texts mostly share their storage, and then nothing has to be compared.
bool Same(const QString& one, const QString& other) {
    return one.size() == other.size() && (one.constData() == other.constData() || one == other);
}

bool Same(const std::vector<ColourRun>& one, const std::vector<ColourRun>& other) {
    return std::equal(
        one.begin(), one.end(), other.begin(), other.end(),
        [](const ColourRun& a, const ColourRun& b) { return a.start == b.start && a.colour == b.colour; });
}

// Moves the runs along with a replaced piece of text. The new piece takes the colour that stood at its place;
// of the runs that began inside the removed piece the last one goes on behind it.
void ShiftRuns(std::vector<ColourRun>& runs, qsizetype at, qsizetype removed, qsizetype added) {
    std::vector<ColourRun> shifted;
    for (ColourRun run : runs) {
        const bool inside = run.start >= at && run.start < at + removed;
        if (inside && (run.start > at || added == 0))
            run.start = at + added;
        else if (run.start >= at + removed && !(run.start == at && at == 0))
            run.start += added - removed;
        if (!shifted.empty() && shifted.back().start == run.start)
            shifted.back() = run;
        else
            shifted.push_back(run);
    }
    runs = std::move(shifted);
}

// The piece in which two texts differ: both start with `at` equal units and end with equal ones behind it.
struct Difference {
    qsizetype at, removed, added;
};

Difference Compare(const QString& before, const QString& after) {
    const auto at =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first - before.begin();
    const qsizetype most = std::min(before.size(), after.size()) - at;
    const auto tail =
        std::mismatch(before.rbegin(), before.rbegin() + most, after.rbegin()).first - before.rbegin();
    return {at, before.size() - at - tail, after.size() - at - tail};
}

bool SplitsLineEnd(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at] == u'\n' && text[at - 1] == u'\r';
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

} // namespace

void RichTextBox::Fetch() const {
    if (!source_)
        return;
    const auto source = std::exchange(source_, nullptr);
    const QString fresh = text::ToCrLf(source());
    if (!runs_.empty()) {
        const Difference difference = Compare(text_, fresh);
        ShiftRuns(runs_, difference.at, difference.removed, difference.added);
    }
    text_ = fresh;
}

const QString& RichTextBox::Text() const {
    Fetch();
    return text_;
}

void RichTextBox::SetText(const QString& text) {
    SetTextRTF({text, {}});
}

RichContent RichTextBox::TextRTF() const {
    Fetch();
    return {text_, runs_};
}

void RichTextBox::SetTextRTF(const RichContent& content) {
    Fetch();
    const QString fresh = text::ToCrLf(content.text);
    std::vector<ColourRun> runs = content.runs;
    if (fresh.size() != content.text.size())
        FitRuns(runs, content.text);
    const bool textDiffers = !Same(fresh, text_), runsDiffer = !Same(runs, runs_);
    const bool caretMoves = selStart_ != 0 || selLength_ != 0;
    text_ = fresh;
    runs_ = std::move(runs);
    selStart_ = selLength_ = 0;
    if (textDiffers || runsDiffer)
        contentReplaced();
    else if (caretMoves)
        selectionChanged();
    if (textDiffers)
        Change();
}

void RichTextBox::SetSelStart(qsizetype start) {
    Fetch();
    start = std::clamp<qsizetype>(start, 0, text_.size());
    const bool moves = start != selStart_ || selLength_ != 0;
    selStart_ = start;
    selLength_ = 0;
    if (moves)
        selectionChanged();
}

void RichTextBox::SetSelLength(qsizetype length) {
    Fetch();
    CutSelection();
    length = std::clamp<qsizetype>(length, 0, text_.size() - selStart_);
    if (std::exchange(selLength_, length) != length)
        selectionChanged();
}

QString RichTextBox::SelText() const {
    Fetch();
    return text_.mid(selStart_, selLength_);
}

// The user's selection is taken as the widget tells it; the text may have become shorter since.
void RichTextBox::CutSelection() {
    selStart_ = std::clamp<qsizetype>(selStart_, 0, text_.size());
    selLength_ = std::clamp<qsizetype>(selLength_, 0, text_.size() - selStart_);
}

void RichTextBox::SetSelText(const QString& text) {
    Fetch();
    CutSelection();
    const QString piece = text::ToCrLf(text);
    // A selection never takes half a line end away.
    const qsizetype end =
        selStart_ + selLength_ + (selLength_ > 0 && SplitsLineEnd(text_, selStart_ + selLength_) ? 1 : 0);
    const qsizetype at = selStart_ - (SplitsLineEnd(text_, selStart_) ? 1 : 0);
    const qsizetype removed = selLength_ > 0 ? end - at : 0;
    const bool differs = QStringView(text_).mid(at, removed) != piece;
    if (differs) {
        text_.replace(at, removed, piece);
        ShiftRuns(runs_, at, removed, piece.size());
    }
    selStart_ = at + piece.size();
    selLength_ = 0;
    if (differs) {
        textReplaced(at, removed, piece);
        Change();
    } else if (removed != 0) {
        selectionChanged();
    }
}

void RichTextBox::SetFont(const QString& name, double size) {
    if (name == fontName_ && size == fontSize_)
        return;
    fontName_ = name;
    fontSize_ = size;
    fontChanged();
}

TextPlace RichTextBox::CaretPlace() const {
    if (source_ && caretSource)
        return caretSource();
    const QStringView before = QStringView(Text()).left(selStart_);
    return {before.count(u'\n') + 1, before.size() - before.lastIndexOf(u'\n')};
}

void RichTextBox::UserEdited(std::function<QString()> source) {
    source_ = std::move(source);
    Change();
}

void RichTextBox::UserSelected(qsizetype start, qsizetype length) {
    selStart_ = std::max<qsizetype>(start, 0);
    selLength_ = std::max<qsizetype>(length, 0);
}

void RichTextBox::Type(const QString& text) {
    SetSelText(text);
}

} // namespace controls
