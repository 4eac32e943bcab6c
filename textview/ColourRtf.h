// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>
#include <vector>

// Syntax colouring as substitutions on an RTF string. Nothing here knows where a tag or a comment begins:
// each markup character is wrapped in colour words, and later substitutions take back what an earlier one did
// in the wrong place. That costs a constant number of passes over the text.
//
// What follows from it and is wanted: inside a comment the first coloured character ends the comment's
// colour;
// "<!--x-->" gains a blank behind its opener, because the substitution brings one along and finds none to
// take in its place; the text ahead of the first coloured character is shown in the first colour of the
// table.

namespace textview {

inline constexpr int kNoColours = 3; ///< the level of texts that are too large to be coloured

/// One substitution over the whole string, header included: global, case-sensitive, left to right.
struct ColourStep {
    QString search;
    QString replace;
};

/// The substitutions of a colouring level in their order; none for level 3.
const std::vector<ColourStep>& ColourSteps(int level);
void RunColourStep(QString& rtf, const ColourStep& step);

/// What takes the place of the anchor (see ColourRTF): the level's colour table, a line end, and the anchor
/// with the first colour switched on. The colours are those of the options.
QString ColourHead(const Options& options, int level);

/// Takes the colour table out together with the line end behind it; without one the string stays.
void RemoveRTFColorTable(QString& rtf);

/// The whole pass for levels 0 to 2: the old table goes, the head takes the anchor's place, the level's steps
/// run. A string without the anchor "\viewkind4\uc1\pard\" gets no table, so its colours show as the default.
/// Level 3 leaves the string as it is.
QString ColourRTF(QString rtf, const Options& options, int level);

} // namespace textview
