// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <functional>

namespace schema {

/// The number that a node has by now; 0 for one that is gone.
using NumberMap = std::function<long(long)>;

/// Which numbered nodes of a text are which of the text that it became. Those whose tags stand outside the
/// stretch that has changed are the same; those inside it are where their number is.
NumberMap KeptNumbers(const text::LongText& before, const text::LongText& after);

} // namespace schema
