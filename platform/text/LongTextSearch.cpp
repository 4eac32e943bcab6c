// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/AnyCaseSearch.h"
#include "platform/text/LongTextPieces.h"
#include <algorithm>
#include <cstring>

namespace text {

namespace {

constexpr qsizetype kLongWanted = LongText::kLongestRow;

bool IsLatin(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 256; });
}

qsizetype IndexOf(QStringView text, QStringView what, Qt::CaseSensitivity sensitivity) {
    return sensitivity == Qt::CaseSensitive ? text.indexOf(what) : IndexOfAnyCase(text, what, 0);
}

} // namespace

// Each piece is searched by itself, with so much of the next ones behind it that a hit over the border isn't
// missed. Bytes are searched as bytes.
qsizetype LongText::indexOf(QStringView what, qsizetype from, Qt::CaseSensitivity sensitivity) const {
    from = std::max<qsizetype>(from, 0);
    if (what.isEmpty() || from + what.size() > size())
        return -1;
    if (what.size() > kLongWanted)
        return longIndexOf(what, from, sensitivity);
    const bool asBytes = sensitivity == Qt::CaseSensitive && IsLatin(what);
    const QByteArray wanted = asBytes ? what.toLatin1() : QByteArray();
    QString scratch;
    for (std::size_t i = pieces_->pieceAt(from); i < pieces_->list.size(); ++i) {
        const Piece& piece = *pieces_->list[i];
        const qsizetype start = pieces_->before[i].units;
        const qsizetype skip = std::max<qsizetype>(from - start, 0);
        if (asBytes && piece.latin) {
            const char* const data = piece.bytes.constData();
            const void* const hit = memmem(data + skip, static_cast<std::size_t>(piece.units - skip),
                                           wanted.constData(), static_cast<std::size_t>(wanted.size()));
            if (hit)
                return start + (static_cast<const char*>(hit) - data);
        } else if (const qsizetype hit =
                       IndexOf(piece.view(skip, piece.units - skip, scratch), what, sensitivity);
                   hit >= 0) {
            return start + skip + hit;
        }
        // Over the border.
        const qsizetype border = start + piece.units;
        const qsizetype first = std::max(border - what.size() + 1, std::max(from, start));
        if (what.size() > 1 && border < size() && first < border) {
            const QString seam = mid(first, border - first + what.size() - 1);
            if (const qsizetype hit = seam.indexOf(what, 0, sensitivity); hit >= 0)
                return first + hit;
        }
    }
    return -1;
}

// The beginning of a long text is looked for, and the rest compared where it stands.
qsizetype LongText::longIndexOf(QStringView what, qsizetype from, Qt::CaseSensitivity sensitivity) const {
    while ((from = indexOf(what.first(kLongWanted), from, sensitivity)) >= 0 &&
           from + what.size() <= size()) {
        qsizetype at = kLongWanted;
        bool same = true;
        visit(from + at, what.size() - at, [&](QStringView piece) {
            same = piece.compare(what.sliced(at, piece.size()), sensitivity) == 0;
            at += piece.size();
            return same;
        });
        if (same)
            return from;
        ++from;
    }
    return -1;
}

qsizetype LongText::lastIndexOf(QStringView what, qsizetype from) const {
    from = std::min(from, size() - what.size());
    if (what.isEmpty() || from < 0)
        return -1;
    QString scratch;
    for (std::size_t i = pieces_->pieceAt(from) + 1; i-- > 0;) {
        // All places in this piece where a hit may begin, and what such a hit may reach.
        const Piece& piece = *pieces_->list[i];
        const qsizetype start = pieces_->before[i].units;
        const qsizetype reach = std::min(start + piece.units, from + 1) - start + what.size() - 1;
        if (reach > piece.units)
            scratch = mid(start, reach);
        const QStringView part = reach > piece.units ? QStringView(scratch) : piece.view(0, reach, scratch);
        if (const qsizetype hit = part.lastIndexOf(what, -1); hit >= 0)
            return start + hit;
    }
    return -1;
}

} // namespace text
