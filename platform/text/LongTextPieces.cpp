// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LongTextPieces.h"
#include <algorithm>

namespace text {

namespace {

constexpr qsizetype kPiece = kLongestPiece;
constexpr qsizetype kSmall = 2048; // a smaller piece takes its neighbour in

// Whether a cut between two units would tear what belongs together.
bool Tears(QChar before, QChar behind) {
    return (before == u'\r' && behind == u'\n') || (before.isHighSurrogate() && behind.isLowSurrogate());
}

// Without a way out in the middle, so that many units are looked at in one step.
bool IsLatin(QStringView text) {
    unsigned all = 0;
    for (const char16_t* unit = text.utf16(); unit != text.utf16() + text.size(); ++unit)
        all |= *unit;
    return all < 256;
}

} // namespace

qsizetype FirstPiece(QStringView text) {
    if (text.size() <= kPiece)
        return text.size();
    if (const qsizetype end = text.first(kPiece).lastIndexOf(u'\n'); end >= 0)
        return end + 1;
    // A short rest would get longer by a piece with each letter that is typed in front of it.
    const qsizetype cut = text.size() < kPiece + kSmall ? kPiece / 2 : kPiece;
    return Tears(text[cut - 1], text[cut]) ? cut - 1 : cut;
}

LongText::Piece::Piece(QStringView text) : units(text.size()) {
    latin = IsLatin(text);
    if (latin)
        bytes = text.toLatin1();
    else
        wide = text.toString();
    qsizetype start = 0;
    while (start < units) {
        rows.push_back(static_cast<std::uint16_t>(start));
        qsizetype end = text.indexOf(u'\n', start);
        const bool ends = end >= 0;
        end = ends ? end + 1 : units;
        lineEnds += ends ? 1 : 0;
        const qsizetype shown =
            end - start - (ends ? 1 : 0) - (ends && end - start > 1 && text[end - 2] == u'\r' ? 1 : 0);
        for (qsizetype rest = shown; rest > kLongestRow;) {
            qsizetype row = kLongestRow;
            if (Tears(text[start + row - 1], text[start + row]))
                --row;
            start += row;
            rest -= row;
            rows.push_back(static_cast<std::uint16_t>(start));
        }
        start = end;
    }
}

QString LongText::Piece::mid(qsizetype position, qsizetype length) const {
    return latin ? QString::fromLatin1(bytes.constData() + position, length) : wide.mid(position, length);
}

bool LongText::Piece::equals(QStringView text) const {
    return latin ? text == QLatin1String(bytes) : text == wide;
}

bool LongText::Piece::equals(qsizetype from, const Piece& other, qsizetype otherFrom,
                             qsizetype length) const {
    const auto bytesOf = [length](const Piece& piece, qsizetype at) {
        return QLatin1String(piece.bytes.constData() + at, length);
    };
    const auto unitsOf = [length](const Piece& piece, qsizetype at) {
        return QStringView(piece.wide).sliced(at, length);
    };
    if (latin)
        return other.latin ? bytesOf(*this, from) == bytesOf(other, otherFrom)
                           : bytesOf(*this, from) == unitsOf(other, otherFrom);
    return other.latin ? unitsOf(*this, from) == bytesOf(other, otherFrom)
                       : unitsOf(*this, from) == unitsOf(other, otherFrom);
}

QStringView LongText::Piece::view(qsizetype position, qsizetype length, QString& scratch) const {
    if (!latin)
        return QStringView(wide).sliced(position, length);
    scratch.resize(0);
    scratch.append(QLatin1String(bytes.constData() + position, length));
    return scratch;
}

void LongText::Piece::append(QString& to, qsizetype position, qsizetype length) const {
    if (latin)
        to.append(QLatin1String(bytes.constData() + position, length));
    else
        to.append(QStringView(wide).mid(position, length));
}

void LongText::Pieces::sum() {
    before.resize(list.size() + 1);
    Before sums;
    for (std::size_t i = 0; i < list.size(); ++i) {
        before[i] = sums;
        const Piece& piece = *list[i];
        sums.units += piece.units;
        sums.lineEnds += piece.lineEnds;
        sums.rows += static_cast<qsizetype>(piece.rows.size());
    }
    before.back() = sums;
}

std::size_t LongText::Pieces::pieceAt(qsizetype position) const {
    const auto behind =
        std::upper_bound(before.begin(), before.end() - 1, position,
                         [](qsizetype wanted, const Before& one) { return wanted < one.units; });
    return static_cast<std::size_t>(behind - before.begin()) - 1;
}

void LongText::Pieces::splice(std::size_t first, std::size_t last, QString text) {
    const auto end = [&](std::size_t i) { return list[i]->at(list[i]->units - 1); };
    // A short line goes on behind the piece that ends with its beginning.
    const auto goesOn = [&](const Piece& piece) {
        return !piece.endsLine() && piece.units - piece.rows.back() < kLongestRow;
    };
    while (first > 0 && !text.isEmpty() &&
           (Tears(end(first - 1), text.front()) || goesOn(*list[first - 1]))) {
        --first;
        text.prepend(list[first]->mid(0, list[first]->units));
    }
    while (last < list.size()) {
        const bool ended = text.isEmpty() || text.endsWith(u'\n');
        const qsizetype tail = text.size() - (text.lastIndexOf(u'\n') + 1);
        bool torn = !ended && tail < kLongestRow;
        const QChar behind = list[last]->at(0);
        if (!text.isEmpty())
            torn = torn || Tears(text.back(), behind);
        else if (first > 0 && Tears(end(first - 1), behind)) {
            --first;
            text = list[first]->mid(0, list[first]->units);
            torn = true;
        }
        if (!torn && (text.isEmpty() || text.size() >= kSmall))
            break;
        list[last]->append(text, 0, list[last]->units);
        ++last;
    }
    std::vector<std::shared_ptr<const Piece>> fresh;
    for (QStringView rest(text); !rest.isEmpty();) {
        const qsizetype size = FirstPiece(rest);
        fresh.push_back(std::make_shared<Piece>(rest.first(size)));
        rest = rest.sliced(size);
    }
    const auto at = list.erase(list.begin() + static_cast<std::ptrdiff_t>(first),
                               list.begin() + static_cast<std::ptrdiff_t>(last));
    list.insert(at, std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    sum();
}

void LongText::Pieces::append(const Pieces& other, std::size_t from) {
    list.insert(list.end(), other.list.begin() + static_cast<std::ptrdiff_t>(from), other.list.end());
    sum();
}

} // namespace text
