// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextRow.h"
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr int kTabColumns = 4;
constexpr qsizetype kSegment = 128;    // units
constexpr qsizetype kSetWhole = 256;   // a shorter row has one segment
constexpr double kNoLimit = 8'000'000; // a line never breaks

bool IsPlain(QChar unit) {
    return unit >= u' ' && unit <= u'~';
}

/// The width that all printable ASCII characters have, or 0.
double CommonAdvance(const QFont& font) {
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(u'x');
    for (char16_t unit = u' '; unit <= u'~'; ++unit)
        if (std::abs(metrics.horizontalAdvance(QChar(unit)) - width) > 0.001)
            return 0;
    constexpr int kMany = 64;
    return std::abs(metrics.horizontalAdvance(QString(kMany, u'x')) - kMany * width) < 0.01 ? width : 0;
}

// Controls, separators and place holders would break the line, or vanish: signs of one unit stand for them.
QChar Sign(QChar unit) {
    const char16_t code = unit.unicode();
    if (code < 0x20 && code != u'\t')
        return QChar(static_cast<char16_t>(0x2400 + code));
    if (code == 0x7F)
        return QChar(0x2421);
    if (code == 0x2028 || code == 0x2029)
        return QChar(0x2424);
    return code == 0xFFFC ? QChar(QChar::ReplacementCharacter) : unit;
}

QString Visible(QString text) {
    const auto hidden = [](QChar unit) { return Sign(unit) != unit; };
    if (std::any_of(text.cbegin(), text.cend(), hidden))
        for (QChar& unit : text)
            unit = Sign(unit);
    return text;
}

bool RunsRightToLeft(QChar unit) {
    const char16_t code = unit.unicode();
    if (code < 0x0590 || (code >= 0x2E80 && code < 0xD800))
        return false;
    if (unit.isHighSurrogate())
        return code == 0xD802 || code == 0xD803 || code == 0xD83A || code == 0xD83B;
    switch (unit.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
    case QChar::DirFSI:
        return true;
    default:
        return false;
    }
}

// Letters that look the same whatever stands beside them.
bool StandsAlone(QChar unit) {
    const char16_t code = unit.unicode();
    return IsPlain(unit) || (code >= 0xA1 && code < 0x0300) || (code >= 0x0400 && code < 0x0483) ||
           (code >= 0x3041 && code < 0xD7A4 && !unit.isMark()) || (code >= 0xFF01 && code < 0xFFE7);
}

/// Where a row may be cut: the starts of its segments. What a tab is wide depends on what stands before it,
/// and right-to-left text goes over the whole row.
std::vector<qsizetype> Cuts(QStringView text) {
    std::vector<qsizetype> starts{0};
    if (text.size() <= kSetWhole || std::any_of(text.begin(), text.end(), RunsRightToLeft))
        return starts;
    for (qsizetype at = std::max(text.lastIndexOf(u'\t') + 1, kSegment); at < text.size(); ++at)
        if (at - starts.back() >= kSegment && StandsAlone(text[at - 1]) && StandsAlone(text[at]))
            starts.push_back(at);
    return starts;
}

} // namespace

RowFont::RowFont(const QFont& wanted) : font(wanted) {
    const QFontMetricsF metrics(font);
    ascent = static_cast<int>(std::ceil(metrics.ascent()));
    height = std::max(1, ascent + static_cast<int>(std::ceil(metrics.descent())));
    blank = std::max(1.0, metrics.horizontalAdvance(u' '));
    advance = CommonAdvance(font);
}

TextRow::TextRow(const RowText& row, const RowFont& font, QList<QTextLayout::FormatRange> extra)
    : text_(Visible(row.text)), font_(font), formats_(std::move(extra)) {
    for (const RowColour& colour : row.colours) {
        QTextLayout::FormatRange range{colour.start, colour.length, {}};
        range.format.setForeground(QColor(colour.colour));
        formats_.push_back(range);
    }
    const std::vector<qsizetype> starts = Cuts(text_);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const qsizetype end = i + 1 < starts.size() ? starts[i + 1] : text_.size();
        const QStringView units = QStringView(text_).mid(starts[i], end - starts[i]);
        const bool plain = font_.advance > 0 && std::all_of(units.begin(), units.end(), IsPlain);
        segments_.push_back({starts[i], units.size(), plain, 0, nullptr});
    }
}

QList<QTextLayout::FormatRange> TextRow::FormatsOf(const Segment& segment,
                                                   const QList<QTextLayout::FormatRange>& formats) const {
    QList<QTextLayout::FormatRange> result;
    for (const QTextLayout::FormatRange& range : formats) {
        const qsizetype start = std::max<qsizetype>(range.start, segment.start);
        const qsizetype end = std::min<qsizetype>(range.start + range.length, segment.start + segment.length);
        if (start < end)
            result.push_back(
                {static_cast<int>(start - segment.start), static_cast<int>(end - start), range.format});
    }
    return result;
}

const QTextLayout& TextRow::Layout(std::size_t index) const {
    Segment& segment = segments_[index];
    if (segment.layout)
        return *segment.layout;
    segment.layout = std::make_unique<QTextLayout>(text_.mid(segment.start, segment.length), font_.font);
    QTextLayout& layout = *segment.layout;
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabStopDistance(kTabColumns * font_.blank);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    layout.setFormats(FormatsOf(segment, formats_));
    layout.beginLayout();
    layout.createLine().setLineWidth(kNoLimit);
    layout.endLayout();
    return layout;
}

double TextRow::WidthOf(std::size_t index) const {
    const Segment& segment = segments_[index];
    if (segment.plain)
        return font_.advance * static_cast<double>(segment.length);
    const QTextLine line = Layout(index).lineAt(0);
    return std::max(line.naturalTextWidth(), line.cursorToX(static_cast<int>(segment.length)));
}

double TextRow::Left(std::size_t index) const {
    for (; placed_ < index; ++placed_)
        segments_[placed_ + 1].x = segments_[placed_].x + WidthOf(placed_);
    return segments_[index].x;
}

std::size_t TextRow::SegmentAt(qsizetype offset) const {
    const auto behind = std::upper_bound(segments_.begin(), segments_.end(), offset,
                                         [](qsizetype at, const Segment& s) { return at < s.start; });
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(behind - segments_.begin() - 1, 0));
}

double TextRow::XOf(qsizetype offset) const {
    offset = std::clamp<qsizetype>(offset, 0, text_.size());
    const std::size_t index = SegmentAt(offset);
    const auto inside = static_cast<int>(offset - segments_[index].start);
    return Left(index) + (inside == 0 && index > 0 ? 0 : Layout(index).lineAt(0).cursorToX(inside));
}

qsizetype TextRow::OffsetAt(double x) const {
    std::size_t index = 0;
    while (index + 1 < segments_.size() && Left(index + 1) <= x)
        ++index;
    return segments_[index].start + Layout(index).lineAt(0).xToCursor(x - Left(index));
}

double TextRow::Width() const {
    const double perUnit = WidthOf(0) / static_cast<double>(std::max<qsizetype>(segments_[0].length, 1));
    double width = 0;
    for (std::size_t i = 0; i < segments_.size(); ++i)
        width += segments_[i].plain || segments_[i].layout
                     ? WidthOf(i)
                     : perUnit * static_cast<double>(segments_[i].length);
    return width;
}

void TextRow::Draw(QPainter& painter, QPointF place, double left, double right,
                   const QList<QTextLayout::FormatRange>& selections) const {
    for (std::size_t i = 0; i < segments_.size() && Left(i) <= right; ++i) {
        if (i + 1 < segments_.size() && Left(i + 1) < left)
            continue;
        const QTextLayout& layout = Layout(i);
        layout.draw(&painter, place + QPointF(Left(i), -layout.lineAt(0).ascent()),
                    FormatsOf(segments_[i], selections));
    }
}

} // namespace desktop
