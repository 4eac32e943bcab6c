// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QFont>
#include <QTextLayout>
#include <memory>
#include <vector>

namespace desktop {

/// How rows are set. All measures are in device-independent pixels.
struct RowFont {
    RowFont() = default;
    explicit RowFont(const QFont& font);
    QFont font;
    int height = 1;     ///< of every row
    int ascent = 0;     ///< from a row's top to the base line
    double blank = 1;   ///< width of a blank
    double advance = 0; ///< of each printable ASCII character; 0 when they differ
};

/// A part of a row in a colour of its own.
struct RowColour {
    int start, length;
    QRgb colour;
    bool operator==(const RowColour&) const = default;
};

/// What a row shows: its text without the line's end, and colours.
struct RowText {
    QString text;
    std::vector<RowColour> colours;
    bool operator==(const RowText&) const = default;
};

/// A row of text that has been set. Rows are set from left to right, whatever their first letter is. A long
/// row is set in segments, and only those that are asked about.
class TextRow {
public:
    /// `extra`: further formats, for text that an input method is composing.
    TextRow(const RowText& row, const RowFont& font, QList<QTextLayout::FormatRange> extra = {});

    /// Distance of a caret before the unit `offset` from the row's start.
    double XOf(qsizetype offset) const;
    /// The place of a caret nearest to `x`; never inside a character.
    qsizetype OffsetAt(double x) const;
    /// What hasn't been set yet is taken to be as wide as the row's beginning.
    double Width() const;

    /// Draws what is between `left` and `right` (distances from the row's start); the row starts at `place`,
    /// on the base line. Selections count units of the row.
    void Draw(QPainter& painter, QPointF place, double left, double right,
              const QList<QTextLayout::FormatRange>& selections) const;

private:
    struct Segment {
        qsizetype start, length;
        bool plain; ///< printable ASCII in a font where its width is known
        double x;   ///< known for all segments up to placed_
        std::unique_ptr<QTextLayout> layout;
    };
    const QTextLayout& Layout(std::size_t segment) const;
    double WidthOf(std::size_t segment) const;
    double Left(std::size_t segment) const;
    std::size_t SegmentAt(qsizetype offset) const;
    QList<QTextLayout::FormatRange> FormatsOf(const Segment& segment,
                                              const QList<QTextLayout::FormatRange>& formats) const;

    QString text_; ///< with signs instead of characters that can't be seen
    const RowFont& font_;
    QList<QTextLayout::FormatRange> formats_;
    mutable std::vector<Segment> segments_;
    mutable std::size_t placed_ = 0;
};

} // namespace desktop
