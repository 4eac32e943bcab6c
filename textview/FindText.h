// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"
#include "platform/controls/RichTextSearch.h"
#include <QString>

// Finding a text in a text pane, downwards and upwards.

namespace textview {

/// What the find dialog's boxes say.
struct FindOptions {
    bool wholeWord = false;
    bool matchCase = false;
    bool noHighlight = false; ///< a hit takes the caret and isn't selected
    bool operator==(const FindOptions&) const = default;
};

/// Searches from a 0-based position to the end of the text. A hit takes the caret and is selected; -1 and no
/// change without one. An empty `text` is never found.
qsizetype FindText(controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options);
/// The same upwards: the last hit that ends at `start` or before it.
qsizetype FindTextRev(controls::RichTextBox& target, const QString& text, qsizetype start,
                      const FindOptions& options);

/// A hit that was found takes the caret; gives it back. -1 changes nothing.
qsizetype TakeHit(controls::RichTextBox& target, qsizetype hit, qsizetype length, const FindOptions& options);

/// The same without any change of the pane.
qsizetype SearchDown(controls::RichTextBox& target, const QString& text, qsizetype start,
                     const FindOptions& options);
qsizetype SearchUp(const controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options);

/// Whether the characters on both sides of a hit are neither letters from A to Z nor numeric.
bool IsWholeWord(const controls::SearchHit& hit);

} // namespace textview
