// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <functional>
#include <memory>
#include <vector>

namespace text {

/// A text of any length that is edited in place. It stands in pieces of some ten thousand units, one byte a
/// character where that is enough. A copy shares all pieces, and an edit makes only the piece anew that it
/// touches, so a copy kept as the past of a text of 100 MB costs next to nothing. Positions are 0-based and
/// count 16-bit units. A line ends with "\n"; a "\r" before it belongs to the line's end.
/// A row is what a view lays out at once: a line, or a part of one that is longer than kLongestRow.
class LongText {
public:
    static constexpr qsizetype kLongestRow = 4096; ///< units

    LongText();
    explicit LongText(QStringView text);
    /// A text that shares every piece with `other` in which both are equal: beginning and end at least.
    static LongText Like(QStringView text, const LongText& other);
    class Builder;
    class Reader;

    qsizetype size() const;
    bool isEmpty() const { return size() == 0; }
    /// Whether it consists of these units alone, as an empty one does. It looks no further than to the first
    /// other.
    bool holdsOnly(QStringView units) const;
    /// The whole text, made anew on each call.
    QString toString() const;
    /// Cut to the text, as QString::mid.
    QString mid(qsizetype position, qsizetype length = -1) const;
    QChar at(qsizetype position) const; ///< a null character outside the text
    /// Replaces `removed` units at `position`; both are cut to the text. The cost is that of a piece.
    void replace(qsizetype position, qsizetype removed, QStringView text);
    /// Equal pieces that are shared aren't compared.
    bool operator==(const LongText& other) const;
    bool operator==(QStringView other) const;

    /// Calls `visit` with the pieces of a stretch in order; it ends early when `visit` returns false.
    void visit(qsizetype position, qsizetype length, const std::function<bool(QStringView)>& visit) const;

    // --- search: -1 for nothing; an empty `what` is never found
    qsizetype indexOf(QStringView what, qsizetype from, Qt::CaseSensitivity sensitivity) const;
    /// The last place at or before `from` where `what` begins.
    qsizetype lastIndexOf(QStringView what, qsizetype from) const;

    // --- lines, from 0
    qsizetype lineCount() const;                ///< 1 for an empty text
    qsizetype lineOf(qsizetype position) const; ///< the line that a position is in
    qsizetype lineStart(qsizetype line) const;  ///< the text's end for a line beyond the last

    // --- rows, from 0
    struct Row {
        qsizetype start = 0;
        qsizetype length = 0; ///< without the line's end
        qsizetype lineEnd =
            0; ///< units of the line's end behind it: 2, 1, or 0 inside a long line and at the end
        bool startsLine = true; ///< not the continuation of a long line
    };
    qsizetype rowCount() const;
    Row row(qsizetype row) const;
    qsizetype rowOf(qsizetype position) const; ///< a position behind a part of a long line is in the next row

    std::size_t bytes() const; ///< memory held, shared pieces counted whole

private:
    struct Piece;
    struct Pieces;
    qsizetype longIndexOf(QStringView what, qsizetype from, Qt::CaseSensitivity sensitivity) const;
    std::shared_ptr<const Pieces> pieces_;
};

/// Walks over a text piece by piece, at no cost of copying where that can be.
class LongText::Reader {
public:
    explicit Reader(const LongText& text, qsizetype from = 0); ///< `from` is cut to the text
    ~Reader();
    /// Goes to the next piece (at first: the one that holds `from`, from there on); false at the end.
    bool next();
    QStringView piece() const { return view_; } ///< good until the next step
    qsizetype start() const { return start_; }  ///< where it stands in the text

private:
    std::shared_ptr<const Pieces> pieces_;
    std::size_t next_ = 0;
    qsizetype start_ = 0;
    qsizetype skip_ = 0;
    QString scratch_;
    QStringView view_;
};

} // namespace text
