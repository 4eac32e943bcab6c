// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LongText.h"
#include "platform/text/LongTextPieces.h"
#include <algorithm>

namespace text {

LongText::LongText() : pieces_(std::make_shared<Pieces>()) {}

qsizetype LongText::size() const {
    return pieces_->total().units;
}

QString LongText::toString() const {
    return mid(0);
}

QString LongText::mid(qsizetype position, qsizetype length) const {
    position = std::clamp<qsizetype>(position, 0, size());
    length = length < 0 ? size() - position : std::min(length, size() - position);
    QString result;
    if (length == 0)
        return result;
    std::size_t i = pieces_->pieceAt(position);
    const Piece& only = *pieces_->list[i];
    const qsizetype inPiece = position - pieces_->before[i].units;
    if (inPiece + length <= only.units)
        return only.mid(inPiece, length);
    result.reserve(length);
    for (qsizetype from = inPiece; length > 0; ++i, from = 0) {
        const qsizetype part = std::min(pieces_->list[i]->units - from, length);
        pieces_->list[i]->append(result, from, part);
        length -= part;
    }
    return result;
}

QChar LongText::at(qsizetype position) const {
    if (position < 0 || position >= size())
        return {};
    const std::size_t i = pieces_->pieceAt(position);
    return pieces_->list[i]->at(position - pieces_->before[i].units);
}

void LongText::replace(qsizetype position, qsizetype removed, QStringView text) {
    position = std::clamp<qsizetype>(position, 0, size());
    removed = std::clamp<qsizetype>(removed, 0, size() - position);
    if (removed == 0 && text.isEmpty())
        return;
    auto pieces = pieces_.use_count() == 1 ? std::const_pointer_cast<Pieces>(pieces_)
                                           : std::make_shared<Pieces>(*pieces_);
    const std::size_t count = pieces->list.size();
    if (count == 0) {
        pieces->splice(0, 0, text.toString());
    } else {
        // At the end of the text the last piece takes what is added.
        const std::size_t first = pieces->pieceAt(std::min(position, size() - 1));
        const std::size_t last = pieces->pieceAt(std::min(position + removed, size() - 1));
        const qsizetype keptInFront = position - pieces->before[first].units;
        const qsizetype keptFrom = position + removed - pieces->before[last].units;
        QString fresh = pieces->list[first]->mid(0, keptInFront);
        fresh += text;
        pieces->list[last]->append(fresh, keptFrom, pieces->list[last]->units - keptFrom);
        pieces->splice(first, last + 1, std::move(fresh));
    }
    pieces_ = std::move(pieces);
}

bool LongText::operator==(const LongText& other) const {
    if (pieces_ == other.pieces_)
        return true;
    if (size() != other.size())
        return false;
    std::size_t i = 0, j = 0;
    qsizetype a = 0, b = 0; // places in both current pieces
    while (i < pieces_->list.size()) {
        const auto& one = pieces_->list[i];
        const auto& two = other.pieces_->list[j];
        const qsizetype part = std::min(one->units - a, two->units - b);
        if ((one != two || a != b) && !one->equals(a, *two, b, part))
            return false;
        a += part;
        b += part;
        if (a == one->units)
            ++i, a = 0;
        if (b == two->units)
            ++j, b = 0;
    }
    return true;
}

bool LongText::operator==(QStringView other) const {
    if (size() != other.size())
        return false;
    return std::all_of(pieces_->list.begin(), pieces_->list.end(), [&other](const auto& piece) {
        const bool same = piece->equals(other.first(piece->units));
        other = other.sliced(piece->units);
        return same;
    });
}

void LongText::visit(qsizetype position, qsizetype length,
                     const std::function<bool(QStringView)>& visit) const {
    position = std::clamp<qsizetype>(position, 0, size());
    length = std::clamp<qsizetype>(length, 0, size() - position);
    for (Reader reader(*this, position); length > 0 && reader.next();) {
        const QStringView part = reader.piece().first(std::min(reader.piece().size(), length));
        if (!visit(part))
            return;
        length -= part.size();
    }
}

bool LongText::holdsOnly(QStringView units) const {
    bool only = true;
    visit(0, size(), [&](QStringView piece) {
        only = std::all_of(piece.begin(), piece.end(), [units](QChar unit) { return units.contains(unit); });
        return only;
    });
    return only;
}

// --- lines -----------------------------------------------------------------------------------------------

qsizetype LongText::lineCount() const {
    return pieces_->total().lineEnds + 1;
}

qsizetype LongText::lineOf(qsizetype position) const {
    if (position <= 0 || pieces_->list.empty())
        return 0;
    if (position >= size())
        return pieces_->total().lineEnds;
    const std::size_t i = pieces_->pieceAt(position);
    const Piece& piece = *pieces_->list[i];
    const qsizetype part = position - pieces_->before[i].units;
    const qsizetype ends = piece.latin ? std::count(piece.bytes.begin(), piece.bytes.begin() + part, '\n')
                                       : QStringView(piece.wide).first(part).count(u'\n');
    return pieces_->before[i].lineEnds + ends;
}

qsizetype LongText::lineStart(qsizetype line) const {
    if (line <= 0)
        return 0;
    if (line >= lineCount())
        return size();
    const auto behind =
        std::lower_bound(pieces_->before.begin(), pieces_->before.end(), line,
                         [](const Pieces::Before& one, qsizetype wanted) { return one.lineEnds < wanted; });
    const std::size_t i = static_cast<std::size_t>(behind - pieces_->before.begin()) - 1;
    const Piece& piece = *pieces_->list[i];
    qsizetype place = -1;
    for (qsizetype rest = line - pieces_->before[i].lineEnds; rest > 0; --rest)
        place = piece.latin ? piece.bytes.indexOf('\n', place + 1) : piece.wide.indexOf(u'\n', place + 1);
    return pieces_->before[i].units + place + 1;
}

// --- rows ------------------------------------------------------------------------------------------------

qsizetype LongText::rowCount() const {
    const bool emptyLast = pieces_->list.empty() || pieces_->list.back()->endsLine();
    return pieces_->total().rows + (emptyLast ? 1 : 0);
}

LongText::Row LongText::row(qsizetype row) const {
    Row result;
    if (row < 0 || row >= pieces_->total().rows) {
        result.start = size();
        return result;
    }
    const auto behind =
        std::upper_bound(pieces_->before.begin(), pieces_->before.end(), row,
                         [](qsizetype wanted, const Pieces::Before& one) { return wanted < one.rows; });
    const std::size_t i = static_cast<std::size_t>(behind - pieces_->before.begin()) - 1;
    const Piece& piece = *pieces_->list[i];
    const auto n = static_cast<std::size_t>(row - pieces_->before[i].rows);
    const qsizetype start = piece.rows[n];
    const qsizetype end = n + 1 < piece.rows.size() ? piece.rows[n + 1] : piece.units;
    result.start = pieces_->before[i].units + start;
    if (end > start && piece.at(end - 1) == u'\n')
        result.lineEnd = end - start > 1 && piece.at(end - 2) == u'\r' ? 2 : 1;
    result.length = end - start - result.lineEnd;
    result.startsLine = start > 0 ? piece.at(start - 1) == u'\n' : i == 0 || pieces_->list[i - 1]->endsLine();
    return result;
}

qsizetype LongText::rowOf(qsizetype position) const {
    if (position >= size())
        return rowCount() - 1;
    if (position <= 0)
        return 0;
    const std::size_t i = pieces_->pieceAt(position);
    const auto& rows = pieces_->list[i]->rows;
    const auto part = static_cast<std::uint16_t>(position - pieces_->before[i].units);
    return pieces_->before[i].rows + (std::upper_bound(rows.begin(), rows.end(), part) - rows.begin()) - 1;
}

std::size_t LongText::bytes() const {
    std::size_t sum = 0;
    for (const auto& piece : pieces_->list)
        sum += sizeof(Piece) +
               static_cast<std::size_t>(piece->bytes.capacity() + 2 * piece->wide.capacity()) +
               piece->rows.capacity() * sizeof(std::uint16_t);
    return sum;
}

// --- reader -----------------------------------------------------------------------------------------------

LongText::Reader::Reader(const LongText& text, qsizetype from) : pieces_(text.pieces_) {
    from = std::clamp<qsizetype>(from, 0, text.size());
    if (from == text.size()) {
        next_ = pieces_->list.size();
        return;
    }
    next_ = pieces_->pieceAt(from);
    skip_ = from - pieces_->before[next_].units;
}

LongText::Reader::~Reader() = default;

bool LongText::Reader::next() {
    if (next_ == pieces_->list.size()) {
        view_ = {};
        return false;
    }
    const Piece& piece = *pieces_->list[next_];
    start_ = pieces_->before[next_].units + skip_;
    view_ = piece.view(skip_, piece.units - skip_, scratch_);
    skip_ = 0;
    ++next_;
    return true;
}

} // namespace text
