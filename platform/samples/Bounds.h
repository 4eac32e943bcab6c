// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace samples {

/// Values close to a bound of a range, on both sides of it, for any ordered type: the bound itself, and what
/// comes of it when one of its numbers is counted up or down by a little. Some may be no values at all.
/// `fraction`: digits behind the point at most.
std::vector<std::u16string> ValuesNear(const std::u16string& bound, std::size_t fraction);

} // namespace samples
