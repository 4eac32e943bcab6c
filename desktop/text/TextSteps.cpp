// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextSteps.h"
#include <QTextBoundaryFinder>
#include <algorithm>

namespace desktop {

namespace {

using text::LongText;

/// A row with its text and a finder in it. Rows are short, and no character goes over their ends, so that
/// all steps are found inside one.
struct Place {
    Place(const LongText& text, qsizetype position, QTextBoundaryFinder::BoundaryType type)
        : number(text.rowOf(position)), row(text.row(number)), units(text.mid(row.start, row.length)),
          finder(type, units), offset(position - row.start) {}
    qsizetype number;
    LongText::Row row;
    QString units;
    QTextBoundaryFinder finder;
    qsizetype offset;

    bool AtEnd() const { return offset >= row.length; }
    qsizetype Behind() const { return row.start + row.length + row.lineEnd; }
    bool MoveTo(qsizetype at) {
        finder.setPosition(at);
        return finder.isAtBoundary();
    }
};

qsizetype Cut(const LongText& text, qsizetype position) {
    return std::clamp<qsizetype>(position, 0, text.size());
}

bool IsBlank(QChar unit) {
    return unit.isSpace();
}

bool IsMark(QChar unit) {
    return (unit.isPunct() || unit.isSymbol()) && unit != u'_';
}

// Finders part every mark from the next one and blanks from each other; a reader takes "</" as one.
bool Joined(QStringView units, qsizetype at) {
    const QChar before = units[at - 1], behind = units[at];
    return (IsBlank(before) && IsBlank(behind)) || (IsMark(before) && IsMark(behind));
}

bool StartsWord(const Place& place, qsizetype at) {
    return !IsBlank(place.units[at]) && !Joined(place.units, at);
}

} // namespace

qsizetype NextPlace(const LongText& text, qsizetype position) {
    Place place(text, Cut(text, position), QTextBoundaryFinder::Grapheme);
    if (place.AtEnd())
        return std::min(place.Behind(), text.size());
    place.finder.setPosition(place.offset);
    const qsizetype next = place.finder.toNextBoundary();
    return place.row.start + (next < 0 ? place.row.length : next);
}

qsizetype PreviousPlace(const LongText& text, qsizetype position) {
    position = Cut(text, position);
    Place place(text, position, QTextBoundaryFinder::Grapheme);
    if (place.offset > place.row.length)
        return place.row.start + place.row.length;
    if (place.offset == 0) {
        if (place.number == 0)
            return 0;
        const LongText::Row before = text.row(place.number - 1);
        if (before.lineEnd > 0)
            return before.start + before.length;
        place = Place(text, before.start, QTextBoundaryFinder::Grapheme);
        place.offset = before.length;
    }
    place.finder.setPosition(place.offset);
    return place.row.start + std::max<qsizetype>(place.finder.toPreviousBoundary(), 0);
}

qsizetype NextWord(const LongText& text, qsizetype position) {
    Place place(text, Cut(text, position), QTextBoundaryFinder::Word);
    if (place.AtEnd())
        return std::min(place.Behind(), text.size());
    place.finder.setPosition(place.offset);
    for (;;) {
        const qsizetype at = place.finder.toNextBoundary();
        if (at < 0 || at >= place.row.length)
            return place.row.start + place.row.length;
        if (StartsWord(place, at))
            return place.row.start + at;
    }
}

qsizetype PreviousWord(const LongText& text, qsizetype position) {
    position = Cut(text, position);
    Place place(text, position, QTextBoundaryFinder::Word);
    if (place.offset == 0 || place.offset > place.row.length)
        return PreviousPlace(text, position);
    place.finder.setPosition(place.offset);
    for (;;) {
        const qsizetype at = place.finder.toPreviousBoundary();
        if (at <= 0)
            return place.row.start;
        if (StartsWord(place, at))
            return place.row.start + at;
    }
}

TextRange WordAt(const LongText& text, qsizetype position) {
    Place place(text, Cut(text, position), QTextBoundaryFinder::Word);
    if (place.row.length == 0)
        return {place.row.start, place.row.start};
    const qsizetype inside = std::min(place.offset, place.row.length - 1);
    qsizetype start = inside, end = inside + 1;
    while (start > 0 && (!place.MoveTo(start) || Joined(place.units, start)))
        --start;
    while (end < place.row.length && (!place.MoveTo(end) || Joined(place.units, end)))
        ++end;
    return {place.row.start + start, place.row.start + end};
}

TextRange LineAt(const LongText& text, qsizetype position) {
    const qsizetype line = text.lineOf(Cut(text, position));
    return {text.lineStart(line), text.lineStart(line + 1)};
}

// What is behind the last character of a part of a long line is the next row's.
qsizetype RowEnd(const LongText& text, qsizetype position) {
    const qsizetype number = text.rowOf(position);
    const LongText::Row row = text.row(number);
    const bool goesOn = row.lineEnd == 0 && number + 1 < text.rowCount();
    return goesOn ? PreviousPlace(text, row.start + row.length) : row.start + row.length;
}

qsizetype SettledPlace(const LongText& text, qsizetype position) {
    position = Cut(text, position);
    Place place(text, position, QTextBoundaryFinder::Grapheme);
    if (place.AtEnd())
        return place.row.start + place.row.length;
    return place.MoveTo(place.offset) ? position : PreviousPlace(text, position);
}

} // namespace desktop
