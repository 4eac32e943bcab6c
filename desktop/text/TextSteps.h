// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/TextRange.h"
#include "platform/text/LongText.h"

namespace desktop {

// Where a caret goes from a position: by characters as a reader sees them (a letter with its accents, a pair
// of surrogates, a whole line end count as one), and by words. None of these leaves the text.

qsizetype NextPlace(const text::LongText& text, qsizetype position);
qsizetype PreviousPlace(const text::LongText& text, qsizetype position);

/// The start of the next word or run of marks, or the line's end if that comes first. From there it goes to
/// the next line.
qsizetype NextWord(const text::LongText& text, qsizetype position);
qsizetype PreviousWord(const text::LongText& text, qsizetype position);

/// The word, run of marks or run of blanks that holds the character behind a position; at a line's end the
/// one before it.
TextRange WordAt(const text::LongText& text, qsizetype position);
/// The line at a position with its end.
TextRange LineAt(const text::LongText& text, qsizetype position);

/// The last place of the row at a position.
qsizetype RowEnd(const text::LongText& text, qsizetype position);

/// The position, or the nearest before it where a caret may stand.
qsizetype SettledPlace(const text::LongText& text, qsizetype position);

} // namespace desktop
