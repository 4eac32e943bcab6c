// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <string>
#include <vector>
#include <xercesc/framework/psvi/XSSimpleTypeDefinition.hpp>

namespace samples {

using SimpleType = xercesc::XSSimpleTypeDefinition;

inline constexpr std::size_t kNoBound = static_cast<std::size_t>(-1);

/// What all steps of a simple type's derivation ask for together.
struct Facets {
    std::u16string builtIn; ///< the type of the language that it comes from; of a list: its items come from
    SimpleType::VARIETY variety = SimpleType::VARIETY_ATOMIC;
    std::vector<std::u16string> bounds;      ///< of its range, both ends, inclusive or not
    std::size_t least = 0, most = kNoBound;  ///< its length, in whatever the type counts
    std::size_t fraction = kNoBound;         ///< digits behind the point at most
    std::vector<std::u16string> patterns;    ///< of each step; all are to match
    std::vector<std::u16string> enumeration; ///< of the last step that has one
};
Facets FacetsOf(SimpleType& type);

/// A type that refers to IDs of the document, one or a list of them.
bool RefersToIds(SimpleType& type);
/// Whether a type comes from one of the language's by its name.
bool ComesFrom(SimpleType& type, const char16_t* builtIn);

std::u16string TextOf(const XMLCh* text); ///< empty for null
bool IsOfTheLanguage(xercesc::XSObject& component);

} // namespace samples
