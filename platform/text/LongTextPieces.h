// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QByteArray>

namespace text {

/// A piece of a long text; it never changes. Each piece begins a row: it ends behind a "\n", or inside a line
/// that is longer than a row.
struct LongText::Piece {
    explicit Piece(QStringView text);
    qsizetype size() const { return units; }
    QChar at(qsizetype position) const {
        return latin ? QChar(static_cast<uchar>(bytes[position])) : wide[position];
    }
    QString mid(qsizetype position, qsizetype length) const;
    bool equals(QStringView text) const;
    /// Whether a stretch of it is a stretch of the other.
    bool equals(qsizetype from, const Piece& other, qsizetype otherFrom, qsizetype length) const;
    /// A stretch of it, in `scratch` where it has to be made.
    QStringView view(qsizetype position, qsizetype length, QString& scratch) const;
    bool endsLine() const { return units > 0 && at(units - 1) == u'\n'; }
    void append(QString& to, qsizetype position, qsizetype length) const;

    QByteArray bytes; ///< where every unit is below 256
    QString wide;     ///< else
    bool latin = true;
    qsizetype units = 0;
    qsizetype lineEnds = 0;
    std::vector<std::uint16_t> rows; ///< where rows begin, the first at 0
};

/// The pieces in order, with sums over all before each of them.
struct LongText::Pieces {
    struct Before {
        qsizetype units = 0, lineEnds = 0, rows = 0;
    };
    std::vector<std::shared_ptr<const Piece>> list;
    std::vector<Before> before{Before{}}; ///< one more than pieces: the last one sums up all

    void sum();
    const Before& total() const { return before.back(); }
    std::size_t pieceAt(qsizetype position) const; ///< of a position inside the text
    /// Puts `text` in the place of the pieces from `first` to before `last`, together with neighbours where
    /// a row, a line's end or a pair would otherwise be torn.
    void splice(std::size_t first, std::size_t last, QString text);
    /// Puts the pieces of another text from `from` on at the end.
    void append(const Pieces& other, std::size_t from);
};

/// Units of the first piece of a text that goes on behind it; all of a short one.
qsizetype FirstPiece(QStringView text);

inline constexpr qsizetype kLongestPiece = 4 * LongText::kLongestRow; // units

} // namespace text
