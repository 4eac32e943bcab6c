// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"
#include <QString>
#include <vector>

// A rich text written as RTF and read again: text, colours and one font. Other programs read what is written
// here, and what they write is read as far as it is text and colour.

namespace controls {

/// The text as an RTF document. `runs` are in the order of their starts; one beyond the text is left out,
/// one that begins inside a line end or with the blank behind "<!--" begins behind it. `fontSize` is in
/// points.
///
/// The form is one that text substitutions can run on: characters of printable ASCII stand as they are, all
/// others as \uN? (units of 16 bits, signed), a line end (CR LF) as \par with a line end behind it, a tab as
/// \tab; each control word in the body has its own delimiter, a blank or that line end. The colour table,
/// only there when the text has a colour other than 0, stands on a line of its own; the body begins with
/// \viewkind4\uc1\pard\ and the next control word.
///
/// Two characters are written as \'hh although they are printable: a digit behind "<!--", a digit or blank
/// behind "-->". Colouring puts a control word without a delimiter there, which would take them for its own.
QString WriteRtf(const QString& text, const std::vector<ColourRun>& runs, const QString& fontName,
                 double fontSize);

/// Reads an RTF document: line ends come as CR LF, colours that the document doesn't define as 0. `runs`
/// begin where the first colour other than 0 does, and no two in a row are of one colour. Whatever stands in
/// a destination that isn't the body is left out; a document that is cut off or wrongly nested is read as far
/// as it goes. Returns false, with both results untouched, for a string that isn't RTF. Linear in the size of
/// the string.
bool ReadRtf(const QString& rtf, QString& text, std::vector<ColourRun>& runs);

} // namespace controls
