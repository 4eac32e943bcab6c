// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/SimpleValues.h"
#include "platform/samples/Bounds.h"
#include "platform/samples/BuiltIns.h"
#include <algorithm>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/validators/datatype/DatatypeValidatorFactory.hpp>
#include <xercesc/validators/schema/SchemaGrammar.hpp>

namespace samples {

namespace {

using Text = std::u16string;
using xercesc::DatatypeValidator;

constexpr std::size_t kProposals = 300;  // for one more value
constexpr std::size_t kWork = 20000;     // characters of proposals: the library takes long for long ones
constexpr std::size_t kLongest = 100000; // characters, items

// As the validator wants it: the parser has treated white space before.
Text Treated(const Text& value, short whiteSpace) {
    Text treated;
    const bool collapses = whiteSpace == DatatypeValidator::COLLAPSE;
    for (const char16_t letter : value) {
        const bool blank = letter == u' ' || letter == u'\t' || letter == u'\n' || letter == u'\r';
        if (collapses && blank && (treated.empty() || treated.back() == u' '))
            continue;
        treated += blank && whiteSpace != DatatypeValidator::PRESERVE ? u' ' : letter;
    }
    if (collapses && treated.ends_with(u' '))
        treated.pop_back();
    return treated;
}

} // namespace

DatatypeValidator* SimpleValues::ValidatorOf(SimpleType& type) {
    const auto [at, added] = validators_.try_emplace(&type, nullptr);
    if (!added)
        return at->second;
    const Text name = TextOf(type.getName()), key = TextOf(type.getNamespace()) + u',' + name;
    auto grammars = pool_.getGrammarEnumerator();
    while (!at->second && !IsOfTheLanguage(type) && grammars.hasMoreElements()) {
        xercesc::Grammar& grammar = grammars.nextElement();
        if (grammar.getGrammarType() == xercesc::Grammar::SchemaGrammarType)
            at->second =
                static_cast<xercesc::SchemaGrammar&>(grammar).getDatatypeRegistry()->getDatatypeValidator(
                    key.c_str());
    }
    if (!at->second)
        at->second = xercesc::DatatypeValidatorFactory().getDatatypeValidator(name.c_str());
    return at->second;
}

bool SimpleValues::Accepts(SimpleType& type, const Text& value) {
    DatatypeValidator* const validator = ValidatorOf(type);
    if (!validator)
        return true;
    try {
        validator->validate(Treated(value, validator->getWSFacet()).c_str());
        return true;
    } catch (const xercesc::XMLException&) {
        return false;
    }
}

std::optional<Text> SimpleValues::Value(SimpleType& type, std::size_t n) {
    Known& known = known_[&type];
    if (!known.begun) {
        known.begun = true; // a union may be a member of its own members
        known.facets = FacetsOf(type);
        Begin(type, known);
    }
    const std::size_t most = kProposals * (n + 1), work = kWork + kWork / 10 * n;
    while (known.values.size() <= n && known.asked < most && known.work < work) {
        ++known.asked;
        Another(type, known);
    }
    return n < known.values.size() ? std::optional(known.values[n]) : std::nullopt;
}

// The library matches some patterns for ever, or until it has no stack left, against values that they don't
// fit: those that do are all it gets to see.
void SimpleValues::Propose(SimpleType& type, Known& known, Text value) {
    if (!known.met.insert(value).second)
        return;
    DatatypeValidator* const validator = ValidatorOf(type);
    if (known.words && validator && !known.words->Match(Treated(value, validator->getWSFacet())))
        return;
    known.work += value.size();
    if (Accepts(type, value))
        known.values.push_back(std::move(value));
}

void SimpleValues::Begin(SimpleType& type, Known& known) {
    BeginWords(known);
    for (const Text& value : known.facets.enumeration)
        Propose(type, known, value);
    if (!known.facets.enumeration.empty()) {
        known.asked = kNoBound / 2; // there are no others
        return;
    }
    if (known.facets.variety == SimpleType::VARIETY_ATOMIC)
        BeginAtomic(type, known);
}

void SimpleValues::BeginAtomic(SimpleType& type, Known& known) {
    const Facets& facets = known.facets;
    if (facets.least > 0 || facets.most != kNoBound) {
        for (const std::size_t length : {facets.least, std::min(facets.least + 1, facets.most)}) {
            if (length < kLongest && length > 0 && facets.patterns.empty())
                Propose(type, known, ValueOfLength(facets.builtIn, length, 0));
        }
    }
    for (const Text& value : BuiltInOf(facets.builtIn).usual) {
        if (!value.empty() || facets.most == 0)
            Propose(type, known, value);
    }
    for (const Text& bound : facets.bounds) {
        for (const Text& value : ValuesNear(bound, facets.fraction))
            Propose(type, known, value);
    }
}

// The words match the patterns and look like values of the type.
void SimpleValues::BeginWords(Known& known) {
    if (known.facets.patterns.empty())
        return;
    const bool atom = known.facets.variety == SimpleType::VARIETY_ATOMIC;
    const Text look = atom ? BuiltInOf(known.facets.builtIn).expression : Text();
    try {
        known.words = std::make_unique<PatternWords>(known.facets.patterns, look);
    } catch (const xercesc::XMLException&) { // it is no value's: others are proposed
    }
}

void SimpleValues::Another(SimpleType& type, Known& known) {
    if (known.facets.variety == SimpleType::VARIETY_UNION)
        AnotherOfUnion(type, known);
    else if (known.facets.variety == SimpleType::VARIETY_LIST)
        AnotherOfList(type, known);
    else
        AnotherAtom(type, known);
    if (!known.words)
        return;
    const Facets& facets = known.facets;
    const bool counts = facets.variety == SimpleType::VARIETY_ATOMIC && BuiltInOf(facets.builtIn).hasLength;
    const std::size_t most = counts ? std::min(facets.most, kLongest) : kLongest;
    if (const auto word = known.words->Word(counts ? facets.least : 0, most, random_))
        Propose(type, known, *word);
}

void SimpleValues::AnotherOfUnion(SimpleType& type, Known& known) {
    xercesc::XSSimpleTypeDefinitionList* const members = type.getMemberTypes();
    const std::size_t count = members ? members->size() : 0;
    if (count == 0)
        return;
    // The first members first, and each of them with its next value in turn.
    SimpleType& member = *members->elementAt((known.asked - 1) % count);
    if (const auto value = Value(member, (known.asked - 1) / count))
        Propose(type, known, *value);
}

void SimpleValues::AnotherOfList(SimpleType& type, Known& known) {
    SimpleType* const item = type.getItemType();
    const Facets& facets = known.facets;
    const std::size_t turn = known.asked - 1,
                      least = std::max<std::size_t>(facets.least, facets.most > 0 ? 1 : 0);
    const std::size_t length = std::min(least + turn % 3, facets.most);
    if (!item || length > kLongest)
        return;
    Text value;
    for (std::size_t i = 0; i < length; ++i) {
        std::optional<Text> part = Value(*item, i == 0 ? turn / 3 : 0);
        if (!part)
            return;
        value += (i == 0 ? u"" : u" ") + *part;
    }
    Propose(type, known, value);
}

void SimpleValues::AnotherAtom(SimpleType& type, Known& known) {
    const Facets& facets = known.facets;
    const std::size_t turn = known.asked - 1;
    Propose(type, known, NumberedValue(facets.builtIn, turn));
    const std::size_t most = std::min(facets.most, facets.least + 12);
    for (std::size_t length : {facets.least, most}) {
        if (length > 0 && length < kLongest && (facets.least > 0 || facets.most != kNoBound))
            Propose(type, known, ValueOfLength(facets.builtIn, length, turn));
    }
    // A range far from the usual numbers is walked from what was found in it.
    if (!facets.bounds.empty() && !known.values.empty() && turn > 0) {
        const Text found = known.values[random_.Below(known.values.size())];
        for (const Text& value : ValuesNear(found, facets.fraction))
            Propose(type, known, value);
    }
}

} // namespace samples
