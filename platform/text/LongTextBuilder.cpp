// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LongTextBuilder.h"
#include "platform/text/LongTextPieces.h"
#include <algorithm>
#include <utility>

namespace text {

namespace {

constexpr qsizetype kGathered = 4 * kLongestPiece; // units that wait to be cut

// Pieces at the end of a list that a text ends with as well, beginning behind `from`.
template <typename List> std::size_t EqualBehind(const List& list, const LongText& text, qsizetype from) {
    std::size_t count = 0;
    for (qsizetype end = text.size(); count < list.size(); ++count) {
        const auto& piece = *list[list.size() - 1 - count];
        if (end - piece.units < from)
            break;
        bool same = true;
        qsizetype at = 0;
        text.visit(end - piece.units, piece.units, [&](QStringView part) {
            QString scratch;
            same = piece.view(at, part.size(), scratch) == part;
            at += part.size();
            return same;
        });
        if (!same)
            break;
        end -= piece.units;
    }
    return count;
}

} // namespace

LongText::Builder::Builder() : made_(std::make_shared<Pieces>()), inFront_(false) {}

LongText::Builder::Builder(LongText old) : old_(std::move(old)), made_(std::make_shared<Pieces>()) {}

LongText::Builder::~Builder() = default;
LongText::Builder::Builder(Builder&&) noexcept = default;

// A piece as in the old text is the old one.
void LongText::Builder::cut(QStringView piece) {
    const auto& oldList = old_.pieces_->list;
    const std::size_t i = made_->list.size();
    inFront_ = inFront_ && i < oldList.size() && oldList[i]->equals(piece);
    made_->list.push_back(inFront_ ? oldList[i] : std::make_shared<Piece>(piece));
}

void LongText::Builder::cutWholePieces() {
    QStringView rest = QStringView(rest_).first(used_);
    while (rest.size() > kLongestPiece) {
        const auto& oldList = old_.pieces_->list;
        const std::size_t i = made_->list.size();
        // The old text may have been edited: its pieces aren't cut as those of a new one.
        const bool likeOld = inFront_ && i < oldList.size() && oldList[i]->endsLine() &&
                             oldList[i]->equals(rest.first(oldList[i]->units));
        const qsizetype size = likeOld ? oldList[i]->units : FirstPiece(rest);
        cut(rest.first(size));
        rest = rest.sliced(size);
    }
    std::copy(rest.begin(), rest.end(), rest_.data());
    used_ = rest.size();
}

void LongText::Builder::append(QStringView part) {
    while (!part.isEmpty()) {
        if (used_ + part.size() > rest_.size() && rest_.size() < kGathered)
            rest_.resize(std::min(kGathered, std::max(used_ + part.size(), 2 * rest_.size())));
        const qsizetype size = std::min(part.size(), kGathered - used_);
        std::copy_n(part.begin(), size, rest_.data() + used_);
        used_ += size;
        part = part.sliced(size);
        if (used_ == kGathered)
            cutWholePieces();
    }
}

LongText LongText::Builder::finish() {
    cutWholePieces();
    if (used_ > 0)
        cut(QStringView(rest_).first(used_));
    made_->sum();
    LongText result;
    result.pieces_ = std::move(made_);
    if (old_.isEmpty())
        return result;
    if (result == old_)
        return std::move(old_);
    // What both end with is taken from the old text.
    const Pieces& old = *old_.pieces_;
    std::size_t front = 0;
    while (front < old.list.size() && front < result.pieces_->list.size() &&
           old.list[front] == result.pieces_->list[front])
        ++front;
    const std::size_t behind = EqualBehind(old.list, result, old.before[front].units);
    const qsizetype tail = old.total().units - old.before[old.list.size() - behind].units;
    if (tail == 0)
        return result;
    const qsizetype border = result.size() - tail;
    auto pieces = std::make_shared<Pieces>(*result.pieces_);
    const std::size_t torn = border == 0 ? 0 : pieces->pieceAt(border);
    const QString seam = pieces->list[torn]->mid(0, border - pieces->before[torn].units);
    pieces->list.resize(torn);
    pieces->append(old, old.list.size() - behind);
    if (!seam.isEmpty())
        pieces->splice(torn, torn, seam);
    result.pieces_ = std::move(pieces);
    return result;
}

LongText::LongText(QStringView text) {
    Builder builder;
    builder.append(text);
    *this = builder.finish();
}

LongText LongText::Like(QStringView text, const LongText& other) {
    Builder builder(other);
    builder.append(text);
    return builder.finish();
}

} // namespace text
