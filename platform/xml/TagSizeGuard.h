// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringView>

namespace xml {

/// Attributes that one element may have. The parser library compares each attribute with all before it, so a
/// tag with a million of them would not end.
inline constexpr std::size_t kMaxAttributes = 10'000;

/// Finds places that look like a tag with more than kMaxAttributes attributes. What stands in a comment or a
/// CDATA section looks the same: the parser's state must tell them apart.
class TagSizeGuard {
public:
    explicit TagSizeGuard(QStringView text) : text_(text) { findNext(); }

    /// Whether there is a (further) such place.
    bool found() const { return limit_ >= 0; }
    qsizetype start() const { return start_; } ///< its '<'
    qsizetype limit() const { return limit_; } ///< the unit at which it is one attribute too many
    /// Goes on to the next one.
    void findNext();

private:
    qsizetype oneTooMany(qsizetype end) const;

    QStringView text_;
    qsizetype start_ = 0;
    qsizetype next_ = 0;
    qsizetype limit_ = -1;
};

} // namespace xml
