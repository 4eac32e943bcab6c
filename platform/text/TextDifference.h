// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"

namespace text {

/// The one stretch in which a text became another one.
struct TextChange {
    qsizetype start = 0;   ///< in both texts
    qsizetype removed = 0; ///< units of the old text
    qsizetype added = 0;   ///< units of the new text, which begin at `start` as well
    bool operator==(const TextChange&) const = default;
};

/// The shortest such stretch; an empty one for equal texts. Pieces that both texts share aren't looked into,
/// so that it costs next to nothing between a text and what an edit made of it.
TextChange Difference(const LongText& before, const LongText& after);

} // namespace text
