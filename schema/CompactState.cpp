// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactState.h"
#include <algorithm>

namespace schema {

CompactState& CompactOf(DocumentWindow& window) {
    return window.rooms.of<CompactState>();
}

void BuildInstanceAnew(DocumentWindow& window) {
    CompactOf(window).builtRevision = window.tvXML.Revision() - 1;
}

void SetCvSVSplitPosition(DocumentWindow& window, double position) {
    CompactOf(window).msngCvV = std::max(position, 0.0);
}

void SetCvSHSplitPosition(DocumentWindow& window, double position) {
    CompactOf(window).msngCvH = std::max(position, 0.0);
}

} // namespace schema
