// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/infer/ElementFacts.h"
#include <vector>

namespace schema {

/// One place in the content of an element: one of some children, so many times.
struct Factor {
    static constexpr std::uint32_t kMany = 0;
    std::vector<std::uint32_t> children; ///< their numbers in the order facts
    std::uint32_t least = 0, most = 1;   ///< kMany: as often as one likes
};

/// The order of an element's children as a schema tells it. Each child stands in one place, so that a reader
/// always knows where it is.
struct ContentModel {
    bool all = false; ///< each child at most once, in any order: `factors` has one for each
    std::vector<Factor> factors;
};

/// A model that takes every order that was seen, and others like them. `count`: of the elements.
ContentModel ContentModelOf(const OrderFacts& order, std::uint64_t count);

} // namespace schema
