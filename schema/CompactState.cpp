// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactState.h"
#include <algorithm>
#include <limits>

namespace schema {

namespace {

constexpr std::uint64_t kNoRevision = std::numeric_limits<std::uint64_t>::max();

}

CompactState& CompactOf(DocumentWindow& window) {
    return window.rooms.of<CompactState>();
}

void BuildInstanceAnew(DocumentWindow& window) {
    CompactOf(window).builtRevision = kNoRevision; // also where the edit is taken back
}

void SetCvSVSplitPosition(DocumentWindow& window, double position) {
    CompactOf(window).msngCvV = std::max(position, 0.0);
}

void SetCvSHSplitPosition(DocumentWindow& window, double position) {
    CompactOf(window).msngCvH = std::max(position, 0.0);
}

} // namespace schema
