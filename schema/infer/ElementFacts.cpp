// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/ElementFacts.h"
#include <algorithm>

namespace schema {

std::uint32_t OrderFacts::NumberOf(std::uint32_t element) {
    const auto found = numbers.constFind(element);
    if (found != numbers.constEnd())
        return *found;
    const auto number = static_cast<std::uint32_t>(children.size());
    numbers.insert(element, number);
    children.push_back({element, 0, 0, 0});
    if (IsWide()) {
        follows.clear();
        profiles.clear();
        manyProfiles = true;
        return number;
    }
    for (std::vector<bool>& row : follows)
        row.resize(children.size());
    follows.emplace_back(children.size());
    return number;
}

bool DocumentFacts::HaveEmptyElements() const {
    return std::any_of(elements.begin(), elements.end(), [](const auto& one) {
        return one->count > 0 && !one->text && one->order.children.empty();
    });
}

std::uint32_t DocumentFacts::NumberOf(const ExpandedName& name) {
    const auto found = numbers.find(name);
    if (found != numbers.end())
        return found->second;
    tooMany = tooMany || elements.size() >= kMostElements;
    const auto number = static_cast<std::uint32_t>(elements.size());
    elements.push_back(std::make_unique<ElementFacts>());
    elements.back()->name = name;
    numbers.emplace(name, number);
    return number;
}

} // namespace schema
