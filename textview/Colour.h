// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <cstdint>

// Colouring of rich texts: a whole content by its RTF (see ColourRtf.h), a short selection and a typed
// character one by one. The one-character routines have fixed colours, the defaults of the options: a
// character typed after a change of colours keeps the fixed one until the next full pass (quirk 21).

namespace textview {

/// The longest selection that is coloured; a longer one isn't worth the time.
inline constexpr qsizetype kLongestColoured = 512;

/// Colours the whole content by the level of its length; level 3 leaves it. The hourglass shows meanwhile.
void setRichTextXMLColor(Application& app, controls::RichTextBox& richText, int level);

/// Colours a selection of up to kLongestColoured characters, by the colouring level of the frame's active
/// window. The selection stays.
void SetSeltextColor(Application& app, controls::RichTextBox& richText);

/// Colours the character at a 1-based position and leaves it selected. Other than markup turns black, unless
/// the selection of that moment has exactly the default colour of comments: what is put into such a comment,
/// character by character, stays grey.
void SetOneXMLCharColor(Application& app, controls::RichTextBox& richText, qsizetype position, int level);

/// Sets the insertion colour for a character (its code unit) that is about to be typed, by the same rule. The
/// position doesn't matter; the character goes where the caret is.
void SetOneXMLCharColorByKeyAscii(Application& app, controls::RichTextBox& richText, qsizetype position,
                                  int keyAscii, int level);

/// Selects a stretch and gives it a colour (0x00BBGGRR); cut to the text.
void SetCharRangeColor(controls::RichTextBox& richText, qsizetype start, qsizetype length,
                       std::uint32_t color);

/// A key press in a text pane (`second`: the lower one), before its character goes in: both panes take its
/// colour, and the other pane takes the selection. At the very start of the text the colour stays as it was.
void ColourTypedKey(DocumentWindow& window, bool second, int keyAscii);

} // namespace textview
