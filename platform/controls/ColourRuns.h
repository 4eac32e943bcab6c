// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"
#include <vector>

namespace controls {

/// Moves runs along with a replaced stretch of the text.
void ShiftRuns(std::vector<ColourRun>& runs, qsizetype at, qsizetype removed, qsizetype added);
/// The same for many places at once, in the order of the text: each `removed` units become `added` ones.
std::vector<ColourRun> MovedRuns(const std::vector<ColourRun>& runs, const std::vector<qsizetype>& places,
                                 qsizetype removed, qsizetype added);
/// The colours of a stretch, counted from its start.
std::vector<ColourRun> RunsOf(const std::vector<ColourRun>& runs, qsizetype start, qsizetype length);
/// The fillers of a stretch, counted likewise.
std::vector<qsizetype> FillersOf(const std::vector<qsizetype>& fillers, qsizetype start, qsizetype length);
/// What is left of fillers where each of the places, in the order of the text, has its `removed` units
/// replaced by `added` ones.
std::vector<qsizetype> MovedFillers(const std::vector<qsizetype>& fillers,
                                    const std::vector<qsizetype>& places, qsizetype removed, qsizetype added);

} // namespace controls
