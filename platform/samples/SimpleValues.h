// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Facets.h"
#include "platform/samples/PatternWords.h"
#include "platform/samples/Random.h"
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>
#include <xercesc/framework/XMLGrammarPool.hpp>
#include <xercesc/validators/datatype/DatatypeValidator.hpp>

namespace samples {

/// Values of simple types. Whatever is proposed is asked of the library's own validator of the type, so that
/// the check takes what is told here.
class SimpleValues {
public:
    SimpleValues(xercesc::XMLGrammarPool& pool, std::uint64_t seed) : pool_(pool), random_(seed) {}
    SimpleValues(const SimpleValues&) = delete;
    SimpleValues& operator=(const SimpleValues&) = delete;

    /// The n-th of different values. Where a type has fewer, or no more were found within the bounds of the
    /// search, nothing.
    std::optional<std::u16string> Value(SimpleType& type, std::size_t n);
    /// Whether a value is one of the type's, after white space is treated as the type says.
    bool Accepts(SimpleType& type, const std::u16string& value);

private:
    struct Known {
        std::vector<std::u16string> values;
        std::set<std::u16string> met;
        Facets facets;
        std::unique_ptr<PatternWords> words;
        std::size_t asked = 0; ///< proposals so far
        std::size_t work = 0;  ///< their characters
        bool begun = false;
    };
    void Propose(SimpleType& type, Known& known, std::u16string value);
    void Begin(SimpleType& type, Known& known);
    void BeginAtomic(SimpleType& type, Known& known);
    void BeginWords(Known& known);
    void Another(SimpleType& type, Known& known);
    void AnotherOfUnion(SimpleType& type, Known& known);
    void AnotherOfList(SimpleType& type, Known& known);
    void AnotherAtom(SimpleType& type, Known& known);
    xercesc::DatatypeValidator* ValidatorOf(SimpleType& type);

    xercesc::XMLGrammarPool& pool_;
    Random random_;
    std::map<SimpleType*, Known> known_;
    std::map<SimpleType*, xercesc::DatatypeValidator*> validators_;
};

} // namespace samples
