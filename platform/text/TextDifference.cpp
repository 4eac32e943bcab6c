// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextDifference.h"
#include "platform/text/LongTextPieces.h"
#include <algorithm>

namespace text {

namespace {

// The largest number up to `most` that holds; with a number each smaller one holds too.
template <typename Holds> qsizetype Largest(qsizetype most, Holds holds) {
    if (holds(most))
        return most;
    qsizetype good = 0;
    while (most - good > 1) {
        const qsizetype middle = good + (most - good) / 2;
        (holds(middle) ? good : most) = middle;
    }
    return good;
}

} // namespace

class PieceComparison {
public:
    PieceComparison(const LongText& before, const LongText& after)
        : old_(*before.pieces_), new_(*after.pieces_) {}

    /// Units that both begin with.
    qsizetype front() const {
        Place a, b;
        qsizetype same = 0;
        while (a.piece < old_.list.size() && b.piece < new_.list.size()) {
            const qsizetype part = std::min(rest(old_, a.piece, a), rest(new_, b.piece, b));
            const auto& one = old_.list[a.piece];
            const auto& two = new_.list[b.piece];
            const qsizetype equal =
                one == two && a.used == b.used ? part : Largest(part, [&](qsizetype length) {
                    return one->equals(a.used, *two, b.used, length);
                });
            same += equal;
            if (equal < part)
                break;
            step(old_, a.piece, a, part);
            step(new_, b.piece, b, part);
        }
        return same;
    }

    /// Units that both end with, `most` of them, which is no more than either has.
    qsizetype back(qsizetype most) const {
        Place a, b;
        qsizetype same = 0;
        while (same < most) {
            const std::size_t i = old_.list.size() - 1 - a.piece;
            const std::size_t j = new_.list.size() - 1 - b.piece;
            const qsizetype part = std::min({rest(old_, i, a), rest(new_, j, b), most - same});
            const auto& one = old_.list[i];
            const auto& two = new_.list[j];
            const qsizetype equal =
                one == two && a.used == b.used ? part : Largest(part, [&](qsizetype length) {
                    return one->equals(one->units - a.used - length, *two, two->units - b.used - length,
                                       length);
                });
            same += equal;
            if (equal < part)
                break;
            step(old_, i, a, part);
            step(new_, j, b, part);
        }
        return same;
    }

private:
    /// Pieces gone by, and units of the one that comes next.
    struct Place {
        std::size_t piece = 0;
        qsizetype used = 0;
    };
    // The sums tell a piece's length without a look at the piece.
    static qsizetype rest(const LongText::Pieces& pieces, std::size_t piece, const Place& place) {
        return pieces.before[piece + 1].units - pieces.before[piece].units - place.used;
    }
    static void step(const LongText::Pieces& pieces, std::size_t piece, Place& place, qsizetype part) {
        place = rest(pieces, piece, place) == part ? Place{place.piece + 1, 0}
                                                   : Place{place.piece, place.used + part};
    }

    const LongText::Pieces& old_;
    const LongText::Pieces& new_;
};

TextChange Difference(const LongText& before, const LongText& after) {
    const PieceComparison pieces(before, after);
    const qsizetype start = pieces.front();
    const qsizetype back = pieces.back(std::min(before.size(), after.size()) - start);
    return {start, before.size() - start - back, after.size() - start - back};
}

} // namespace text
