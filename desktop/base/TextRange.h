// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QtGlobal>

namespace desktop {

/// A stretch of text, in 16-bit units.
struct TextRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

} // namespace desktop
