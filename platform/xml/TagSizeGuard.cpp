// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/TagSizeGuard.h"

namespace xml {

namespace {

constexpr qsizetype kShortestAttribute = 5; // a blank, one letter, '=', two quotes

} // namespace

/// Place of the attribute that is one too many in the markup at start_; -1: there is none before `end`.
qsizetype TagSizeGuard::oneTooMany(qsizetype end) const {
    if (text_[start_] != u'<' || QStringView(u"!?/").contains(text_[start_ + 1]))
        return -1;
    std::size_t count = 0;
    std::size_t letters = 0; // outside quotes
    QChar quote;
    for (qsizetype i = start_; i < end; ++i) {
        const QChar c = text_[i];
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'>') {
            return -1;
        } else if (c != u'=') {
            ++letters;
        } else if (++count > kMaxAttributes || count * letters > kMaxCompared) {
            return i;
        }
    }
    return -1;
}

// A tag holds one '<' only, so only a long way from one to the next can hide one; in most texts these are
// rare and few characters are looked at.
void TagSizeGuard::findNext() {
    constexpr qsizetype kStep = static_cast<qsizetype>(kMaxAttributes) * kShortestAttribute;
    limit_ = -1;
    while (text_.size() - next_ > kStep) {
        start_ = next_;
        next_ = text_.lastIndexOf(u'<', start_ + kStep);
        if (next_ > start_)
            continue;
        next_ = text_.indexOf(u'<', start_ + 1);
        if (next_ < 0)
            next_ = text_.size();
        limit_ = oneTooMany(next_);
        if (limit_ >= 0)
            return;
    }
}

} // namespace xml
