// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <string_view>

namespace xml {

/// Hands a text to the parser as UTF-8, piece by piece, and tells which character a byte came from.
/// A fixed declaration goes ahead of it, so that the parser never looks at the encoding that the text names.
class Utf8Feed {
public:
    /// Feeds `text` from unit `start` on. The text must live as long as the feed.
    Utf8Feed(const text::LongText& text, qsizetype start)
        : text_(text), reader_(text, start), start_(start) {}

    /// Writes up to `room` bytes (at least 4) to `out`; the number written, 0 at the end.
    int read(char* out, int room);

    /// From now on the text is at its end.
    void stop() { stopped_ = true; }

    /// The first unit that was not handed over yet.
    qsizetype next() const { return stopped_ ? text_.size() : before_ + at_; }

    /// The 0-based unit that stands at the given byte of what was fed; the text's size for its end.
    qsizetype place(unsigned long byte) const;

    /// The first character that cannot be UTF-8 or that the parser would take for the end (half of a pair,
    /// U+0000); the parser got the byte 01 for it and nothing behind it. -1: none was met.
    qsizetype badPlace() const { return badPlace_; }

private:
    static constexpr std::string_view kDeclaration = "<?xml version=\"1.0\"?>";

    int convert(char* out, int room);
    char* convertPiece(char* to, const char* end);
    char* convertOther(char* out);

    const text::LongText text_;
    text::LongText::Reader reader_;
    qsizetype start_;
    QStringView piece_;         ///< the piece that is being fed; a pair never stands in two
    qsizetype before_ = start_; ///< units in front of it
    qsizetype at_ = 0;          ///< units of it that were fed
    qsizetype badPlace_ = -1;
    bool stopped_ = false;
    bool declared_ = false;
};

} // namespace xml
