// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"
#include <vector>

namespace controls {

/// Moves runs along with a replaced stretch of the text.
void ShiftRuns(std::vector<ColourRun>& runs, qsizetype at, qsizetype removed, qsizetype added);

} // namespace controls
