// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/Fault.h"

namespace controls {

/// Throws the Fault of that number with the text that belongs to it.
[[noreturn]] void Throw(int number);

} // namespace controls
