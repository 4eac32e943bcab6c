// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"

namespace xml {

// The parser library compares the name of each attribute with all before it, so a tag with a million of them
// would not end, and a thousand names that differ only in their last of a thousand letters are as bad.

/// Attributes that one element may have.
inline constexpr std::size_t kMaxAttributes = 10'000;
/// Letters that may be compared for one element: attributes times the lengths of all their names.
inline constexpr std::size_t kMaxCompared = 4'000'000'000;

/// Counts the letters that are compared for all elements of a text.
class ComparedAttributes {
public:
    /// A text of so many units may have elements with several hundred attributes all over, and a few with
    /// thousands.
    void start(std::size_t textLength) { left_ = kMaxCompared + kPerUnit * textLength; }

    /// Takes off one element. False when it is too much.
    bool charge(std::size_t attributes, std::size_t nameLengths) {
        const std::size_t cost = attributes * nameLengths;
        const bool enough = cost <= left_;
        left_ = enough ? left_ - cost : 0;
        return enough;
    }

private:
    static constexpr std::size_t kPerUnit = 300;
    std::size_t left_ = 0;
};

/// Finds places that look like a tag with more attributes than one may have. What stands in a comment or a
/// CDATA section looks the same: the parser's state must tell them apart.
class TagSizeGuard {
public:
    explicit TagSizeGuard(text::LongText text) : text_(std::move(text)) { findNext(); }

    /// Whether there is a (further) such place.
    bool found() const { return limit_ >= 0; }
    qsizetype start() const { return start_; } ///< its '<'
    qsizetype limit() const { return limit_; } ///< the unit at which it is one attribute too many
    /// Goes on to the next one.
    void findNext();

private:
    qsizetype oneTooMany(qsizetype end) const;

    const text::LongText text_;
    qsizetype start_ = 0;
    qsizetype next_ = 0;
    qsizetype limit_ = -1;
};

} // namespace xml
