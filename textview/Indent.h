// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"
#include <QString>

// Indenting by Tab. An indent is one tab character; a line's indent is found as the tab behind the line end
// before it. Positions are 0-based, lineStart and lineEnd 1-based.
namespace textview {

/// Without a selection a tab takes the caret's place; with one each of its lines gets a tab in front.
void RTabKey(controls::RichTextBox& richText);
/// Each line of the selection that has one loses a tab: what RTabKey did is taken back (quirk 52). Without a
/// selection the line of the caret loses its tab, unless it is the first.
void DecreaseIndent(controls::RichTextBox& richText);

/// Replaces `find` by `replace` in the lines of the selection, with the line ends before them, and selects
/// the lines. A selection that begins in the first three places begins at the text's start, and a tab is put
/// in front. A line end at the selection's end stays out, and with it the next line.
void SetIncreasePrefix(controls::RichTextBox& richText, const QString& find, const QString& replace);
/// The reverse: the text's very first tab goes in place of the one put in front.
void SetDecreasePrefix(controls::RichTextBox& richText, const QString& find, const QString& replace);
/// Replaces `find` in the line around a position, with the line end before it.
void SetPrefixCurrentLine(controls::RichTextBox& richText, qsizetype position, const QString& find,
                          const QString& replace);

/// The places of the separators around a position.
struct LinePlaces {
    qsizetype lineStart, lineEnd;
};
/// 1 and the text's length where there is none.
LinePlaces GetLineStartEndPos(const controls::RichTextBox& richText, qsizetype position,
                              const QString& separator);
/// The place of the separator before a position; 0 without one, and for position 0.
qsizetype GetLineStartPos(const controls::RichTextBox& richText, qsizetype position,
                          const QString& separator);

} // namespace textview
