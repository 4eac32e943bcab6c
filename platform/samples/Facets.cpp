// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Facets.h"
#include <algorithm>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

namespace samples {

namespace {

std::vector<std::u16string> ListOf(const xercesc::StringList* list) {
    std::vector<std::u16string> all;
    for (XMLSize_t i = 0; list && i < list->size(); ++i)
        all.push_back(TextOf(list->elementAt(i)));
    return all;
}

// The patterns of a step come in pieces, cut at each bar, be it between patterns or inside one.
std::u16string Joined(const std::vector<std::u16string>& pieces) {
    std::u16string whole = pieces.front();
    for (std::size_t i = 1; i < pieces.size(); ++i)
        whole += u'|' + pieces[i];
    return whole;
}

std::size_t NumberOf(SimpleType& type, SimpleType::FACET facet, std::size_t otherwise) {
    std::size_t number = 0;
    const std::u16string digits = TextOf(type.getLexicalFacetValue(facet));
    for (const char16_t digit : digits)
        number = number * 10 + (digit >= u'0' && digit <= u'9' ? static_cast<std::size_t>(digit - u'0') : 0);
    return digits.empty() ? otherwise : number;
}

// The library tells the facets of number and length with those of the types below.
void TakeLast(SimpleType& type, Facets& facets) {
    for (const auto bound : {SimpleType::FACET_MININCLUSIVE, SimpleType::FACET_MINEXCLUSIVE,
                             SimpleType::FACET_MAXINCLUSIVE, SimpleType::FACET_MAXEXCLUSIVE}) {
        if (const std::u16string value = TextOf(type.getLexicalFacetValue(bound)); !value.empty())
            facets.bounds.push_back(value);
    }
    const std::size_t length = NumberOf(type, SimpleType::FACET_LENGTH, kNoBound);
    facets.least = NumberOf(type, SimpleType::FACET_MINLENGTH, length == kNoBound ? 0 : length);
    facets.most = NumberOf(type, SimpleType::FACET_MAXLENGTH, length);
    facets.fraction = NumberOf(type, SimpleType::FACET_FRACTIONDIGITS, kNoBound);
}

SimpleType* BaseOf(SimpleType& type) {
    xercesc::XSTypeDefinition* const base = type.getBaseType();
    const bool simple =
        base && base != &type && base->getTypeCategory() == xercesc::XSTypeDefinition::SIMPLE_TYPE;
    return simple ? static_cast<SimpleType*>(base) : nullptr;
}

} // namespace

std::u16string TextOf(const XMLCh* text) {
    return text ? std::u16string(text) : std::u16string();
}

bool IsOfTheLanguage(xercesc::XSObject& component) {
    return TextOf(component.getNamespace()) == xercesc::SchemaSymbols::fgURI_SCHEMAFORSCHEMA;
}

Facets FacetsOf(SimpleType& type) {
    Facets facets;
    facets.variety = type.getVariety();
    TakeLast(type, facets);
    SimpleType* at = &type;
    while (at && !IsOfTheLanguage(*at)) {
        if (const auto pieces = ListOf(at->getLexicalPattern()); !pieces.empty())
            facets.patterns.push_back(Joined(pieces));
        if (facets.enumeration.empty())
            facets.enumeration = ListOf(at->getLexicalEnumeration());
        at = BaseOf(*at);
    }
    facets.builtIn = at ? TextOf(at->getName()) : std::u16string();
    return facets;
}

bool ComesFrom(SimpleType& type, const char16_t* builtIn) {
    for (SimpleType* at = &type; at; at = BaseOf(*at)) {
        if (IsOfTheLanguage(*at) && TextOf(at->getName()) == builtIn)
            return true;
    }
    return false;
}

bool RefersToIds(SimpleType& type) {
    if (type.getVariety() == SimpleType::VARIETY_LIST)
        return type.getItemType() && ComesFrom(*type.getItemType(), u"IDREF");
    return ComesFrom(type, u"IDREF");
}

} // namespace samples
