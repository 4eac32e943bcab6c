// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Instance.h"
#include "platform/samples/SimpleValues.h"
#include <set>
#include <string>

namespace samples {

/// Changes values of an instance so that references lead somewhere and keys differ, as far as other values of
/// their types allow it. What couldn't be done is added to `lacks`, for the user.
void SettleReferences(Element& root, SimpleValues& values, std::set<std::u16string>& lacks);
void SettleKeys(Element& root, SimpleValues& values, std::set<std::u16string>& lacks);

} // namespace samples
