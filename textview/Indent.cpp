// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Indent.h"

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
    Lines lines{richText.SelStart(), richText.SelStart() + richText.SelLength(), false};
    if (lines.start < kFirstPlaces)
        lines.start = -1;
    else if (LineEndsAt(text, lines.start))
        lines.start -= 2;
    else
        lines.start = text.lastIndexOf(LineEnd(), lines.start - 2, Qt::CaseSensitive);
    lines.first = lines.start < 0;
    lines.start = std::max<qsizetype>(lines.start, 0);
    const qsizetype least = lines.first ? lines.start : lines.start + 2; // the line end before them stays in
    if (LineEndsAt(text, lines.end) && lines.end - 2 >= least)
        lines.end -= 2;
    return lines;
}

void WriteLines(RichTextBox& richText, const Lines& lines, const QString& fresh) {
    richText.SetSelStart(lines.start);
    richText.SetSelLength(lines.end - lines.start);
    richText.SetSelText(fresh);
    const qsizetype from = lines.first ? 0 : lines.start + 2;
    richText.SetSelStart(from);
    richText.SetSelLength(lines.start + fresh.size() - from);
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
    QString text = richText.Long().mid(lines.start, lines.end - lines.start);
    text.replace(find, replace);
    if (lines.first)
        text.prepend(u'\t');
    WriteLines(richText, lines, text);
}

void SetDecreasePrefix(RichTextBox& richText, const QString& find, const QString& replace) {
    const Lines lines = SelectedLines(richText);
    const QString before = richText.Long().mid(lines.start, lines.end - lines.start);
    QString text = before;
    text.replace(find, replace);
    if (lines.first && text.startsWith(u'\t'))
        text.remove(0, 1);
    if (text != before)
        WriteLines(richText, lines, text);
}

void SetPrefixCurrentLine(RichTextBox& richText, qsizetype position, const QString& find,
                          const QString& replace) {
    qsizetype lineStart = 0, lineEnd = 0;
    GetLineStartEndPos(richText, lineStart, lineEnd, position, LineEnd());
    const LongText& text = richText.Long();
    const qsizetype start = lineStart - 1;
    const qsizetype end = lineEnd == text.size() ? lineEnd : lineEnd - 1;
    QString line = text.mid(start, end - start);
    if (!line.contains(find))
        return;
    line.replace(find, replace);
    richText.SetSelStart(start);
    richText.SetSelLength(end - start);
    richText.SetSelText(line);
    // The caret stays with its character.
    const qsizetype shorter = end - start - line.size();
    richText.SetSelStart(std::max(position - shorter, start + replace.size()));
}

void GetLineStartEndPos(const RichTextBox& richText, qsizetype& lineStart, qsizetype& lineEnd,
                        qsizetype position, const QString& separator) {
    const LongText& text = richText.Long();
    const qsizetype before =
        position < separator.size()
            ? -1
            : text.lastIndexOf(separator, position - separator.size(), Qt::CaseSensitive);
    const qsizetype behind = text.indexOf(separator, position, Qt::CaseSensitive);
    lineStart = before < 0 ? 1 : before + 1;
    lineEnd = behind < 0 ? text.size() : behind + 1;
}

void GetLineStartPos(const RichTextBox& richText, qsizetype& lineStart, qsizetype position,
                     const QString& separator) {
    const LongText& text = richText.Long();
    lineStart = 0;
    if (position <= 0)
        return;
    // Whole in front of the character at the position; at the text's end, of the last character.
    const qsizetype last = std::min(position, text.size() - 1) + 1 - separator.size();
    if (last >= 0)
        lineStart = text.lastIndexOf(separator, last, Qt::CaseSensitive) + 1;
}

void GetLineColumn(const RichTextBox& richText, qsizetype& line, qsizetype& column) {
    qsizetype lineStart = 0;
    GetLineStartPos(richText, lineStart, richText.SelStart(), LineEnd());
    line = richText.GetLineFromChar(richText.SelStart()) + 1;
    column = richText.SelStart() - lineStart + (lineStart == 0 ? 1 : 0);
}
