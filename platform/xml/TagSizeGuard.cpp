// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/TagSizeGuard.h"

namespace xml {

namespace {

constexpr qsizetype kShortestAttribute = 5; // a blank, one letter, '=', two quotes

/// Counts attributes in the markup that it is shown piece by piece.
class AttributeCount {
public:
    enum class Found { Nothing, End, TooMany };

    Found look(QChar c) {
        if (!quote_.isNull()) {
            if (c == quote_)
                quote_ = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote_ = c;
        } else if (c == u'>') {
            return Found::End;
        } else if (c != u'=') {
            ++letters_;
        } else if (++count_ > kMaxAttributes || count_ * letters_ > kMaxCompared) {
            return Found::TooMany;
        }
        return Found::Nothing;
    }

private:
    std::size_t count_ = 0;
    std::size_t letters_ = 0; // outside quotes
    QChar quote_;
};

} // namespace

/// Place of the attribute that is one too many in the markup at start_; -1: there is none before `end`.
qsizetype TagSizeGuard::oneTooMany(qsizetype end) const {
    if (text_.at(start_) != u'<' || QStringView(u"!?/").contains(text_.at(start_ + 1)))
        return -1;
    AttributeCount count;
    auto found = AttributeCount::Found::Nothing;
    qsizetype at = start_;
    text_.visit(start_, end - start_, [&](QStringView piece) {
        for (qsizetype i = 0; i < piece.size() && found == AttributeCount::Found::Nothing; ++i, ++at)
            found = count.look(piece[i]);
        return found == AttributeCount::Found::Nothing;
    });
    return found == AttributeCount::Found::TooMany ? at - 1 : -1;
}

// A tag holds one '<' only, so only a long way from one to the next can hide one; in most texts these are
// rare and few characters are looked at.
void TagSizeGuard::findNext() {
    constexpr qsizetype kStep = static_cast<qsizetype>(kMaxAttributes) * kShortestAttribute;
    limit_ = -1;
    while (text_.size() - next_ > kStep) {
        start_ = next_;
        next_ = text_.lastIndexOf(u"<", start_ + kStep);
        if (next_ > start_)
            continue;
        next_ = text_.indexOf(u"<", start_ + 1, Qt::CaseSensitive);
        if (next_ < 0)
            next_ = text_.size();
        limit_ = oneTooMany(next_);
        if (limit_ >= 0)
            return;
    }
}

} // namespace xml
