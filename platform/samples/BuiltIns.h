// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace samples {

/// How values of one of the language's simple types are written.
struct BuiltIn {
    std::vector<std::u16string> usual; ///< values that a person would write
    std::u16string expression;         ///< what values look like; empty: like anything
    bool hasLength = false;            ///< its length counts characters
};
const BuiltIn& BuiltInOf(const std::u16string& name);

/// The n-th of endlessly many different values of a type.
std::u16string NumberedValue(const std::u16string& name, std::size_t n);
/// A value of so many characters, or octets for the types that count these; empty for a type without a
/// length.
std::u16string ValueOfLength(const std::u16string& name, std::size_t length, std::size_t n);

} // namespace samples
