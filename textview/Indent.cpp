// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Indent.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"

namespace textview {

namespace {

using controls::RichTextBox;
using text::LongText;

QString LineEnd() {
    return QStringLiteral("\r\n");
}
QString LineEndAndTab() {
    return QStringLiteral("\r\n\t");
}

/// Whole lines, each with the line end before it; the text's first line has none.
struct Lines {
    qsizetype start, end;
    bool first;
};

bool LineEndsAt(const LongText& text, qsizetype position) {
    return position >= 2 && text.mid(position - 2, 2) == LineEnd();
}

Lines SelectedLines(const RichTextBox& richText) {
    constexpr qsizetype kFirstPlaces = 3; // a line end's length and one
    const LongText& text = richText.Long();
    const qsizetype lineStart =
        richText.SelStart() >= kFirstPlaces ? GetLineStartPos(richText, richText.SelStart(), LineEnd()) : 0;
    Lines lines{std::max<qsizetype>(lineStart - 1, 0), richText.SelStart() + richText.SelLength(),
                lineStart == 0};
    const qsizetype least = lines.first ? lines.start : lines.start + 2; // the line end before them stays in
    if (LineEndsAt(text, lines.end) && lines.end - 2 >= least)
        lines.end -= 2;
    return lines;
}

/// A stretch with its colours and fillers.
struct Stretch {
    QString text;
    std::vector<controls::ColourRun> runs;
    std::vector<qsizetype> fillers;

    bool Replace(const QString& find, const QString& replace) {
        const std::vector<qsizetype> places = text::PlacesOf(find, text);
        text = text::WithReplacements(text, places, find.size(), replace);
        Move(places, find.size(), replace.size());
        return !places.empty();
    }
    void PutTabInFront() {
        text.prepend(u'\t');
        Move({0}, 0, 1);
    }
    bool TakeTabFromFront() {
        if (!text.startsWith(u'\t'))
            return false;
        text.remove(0, 1);
        Move({0}, 1, 0);
        return true;
    }

private:
    void Move(const std::vector<qsizetype>& places, qsizetype removed, qsizetype added) {
        runs = controls::MovedRuns(runs, places, removed, added);
        fillers = controls::MovedFillers(fillers, places, removed, added);
    }
};

Stretch Between(const RichTextBox& richText, qsizetype start, qsizetype end) {
    return {richText.Long().mid(start, end - start), controls::RunsOf(richText.Runs(), start, end - start),
            controls::FillersOf(richText.Fillers(), start, end - start)};
}

void Write(RichTextBox& richText, qsizetype start, qsizetype end, const Stretch& fresh) {
    richText.SetSelStart(start);
    richText.SetSelLength(end - start);
    richText.SetSelContent(fresh.text, fresh.runs, fresh.fillers);
}

void WriteLines(RichTextBox& richText, const Lines& lines, const Stretch& fresh) {
    Write(richText, lines.start, lines.end, fresh);
    const qsizetype from = lines.first ? 0 : lines.start + 2;
    richText.SetSelStart(from);
    richText.SetSelLength(lines.start + fresh.text.size() - from);
}

} // namespace

void RTabKey(RichTextBox& richText) {
    if (richText.SelLength() < 1)
        richText.SetSelText(QStringLiteral("\t"));
    else
        SetIncreasePrefix(richText, LineEnd(), LineEndAndTab());
}

void DecreaseIndent(RichTextBox& richText) {
    if (richText.SelLength() < 1)
        SetPrefixCurrentLine(richText, richText.SelStart(), LineEndAndTab(), LineEnd());
    else
        SetDecreasePrefix(richText, LineEndAndTab(), LineEnd());
}

void SetIncreasePrefix(RichTextBox& richText, const QString& find, const QString& replace) {
    const Lines lines = SelectedLines(richText);
    Stretch stretch = Between(richText, lines.start, lines.end);
    stretch.Replace(find, replace);
    if (lines.first)
        stretch.PutTabInFront();
    WriteLines(richText, lines, stretch);
}

void SetDecreasePrefix(RichTextBox& richText, const QString& find, const QString& replace) {
    const Lines lines = SelectedLines(richText);
    Stretch stretch = Between(richText, lines.start, lines.end);
    const bool lost = stretch.Replace(find, replace);
    if ((lines.first && stretch.TakeTabFromFront()) || lost)
        WriteLines(richText, lines, stretch);
}

void SetPrefixCurrentLine(RichTextBox& richText, qsizetype position, const QString& find,
                          const QString& replace) {
    const auto [lineStart, lineEnd] = GetLineStartEndPos(richText, position, LineEnd());
    const LongText& text = richText.Long();
    const qsizetype start = lineStart - 1;
    const qsizetype end = lineEnd == text.size() ? lineEnd : lineEnd - 1;
    Stretch line = Between(richText, start, end);
    if (!line.Replace(find, replace))
        return;
    Write(richText, start, end, line);
    // The caret stays with its character.
    const qsizetype shorter = end - start - line.text.size();
    richText.SetSelStart(std::max(position - shorter, start + replace.size()));
}

LinePlaces GetLineStartEndPos(const RichTextBox& richText, qsizetype position, const QString& separator) {
    const LongText& text = richText.Long();
    const qsizetype before =
        position < separator.size() ? -1 : text.lastIndexOf(separator, position - separator.size());
    const qsizetype behind = text.indexOf(separator, position, Qt::CaseSensitive);
    return {before < 0 ? 1 : before + 1, behind < 0 ? text.size() : behind + 1};
}

qsizetype GetLineStartPos(const RichTextBox& richText, qsizetype position, const QString& separator) {
    const LongText& text = richText.Long();
    if (position <= 0)
        return 0;
    // Whole in front of the character at the position; at the text's end, of the last character.
    const qsizetype last = std::min(position, text.size() - 1) + 1 - separator.size();
    return last < 0 ? 0 : text.lastIndexOf(separator, last) + 1;
}

} // namespace textview
