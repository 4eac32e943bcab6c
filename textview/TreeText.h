// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Report.h"
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"

// Text to tree and tree to text.
namespace textview {

/// Units of a text that is parsed at each change of tree or text; a larger one when there is time (quirk 29).
inline constexpr qsizetype kTriedAtOnce = 4'000'000;

/// What becomes of the text once the tree is built from it.
enum class Afterwards {
    WriteAnew, ///< the text view shows the tree's own form of it where it is on show, unless the user
               ///< declines
    KeepText   ///< it stays as it is (quirk 39), but for a view that is empty
};

/// Copies a document's text (without the blanks that the view shows beside it) into the tree, whole: new
/// nodes, new keys; a blank text leaves the root alone. A text that doesn't parse is
/// told and leaves the tree as it is (a tree without a document gets the default one); the text view comes up
/// with the character at the error selected. `selectNumber` is the number of the node to select (0: the first
/// one). What came of the parse; nothing for a blank text and after a fault, which is reported.
mXMLEdit::Parsed XMLToTree(DocumentWindow& window, const FetchedText& text, long selectNumber,
                           Afterwards afterwards = Afterwards::WriteAnew, edit::Tone tone = edit::Tone::Box);

/// Brings the text up to date after a change in the tree, with one undo step if it differs. Tree and text
/// agree then; where that fails all stands as before.
void TreeChangeTextView(DocumentWindow& window);

} // namespace textview
