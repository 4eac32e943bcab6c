// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Components.h"
#include <algorithm>
#include <xercesc/framework/psvi/XSNamedMap.hpp>

namespace samples {

namespace {

using xercesc::XSConstants;

constexpr std::size_t kMostStandIns = 200; // for one declaration; more make no better sample

// Whether a type comes from another one in none of the ways that are blocked.
bool MayStandFor(XSTypeDefinition* type, XSTypeDefinition* base, short blocked) {
    while (type && type != base) {
        const XSComplexTypeDefinition* const complex = AsComplex(type);
        const short way = complex ? complex->getDerivationMethod() : XSConstants::DERIVATION_RESTRICTION;
        if ((way & blocked) != 0 || type->getBaseType() == type)
            return false;
        type = type->getBaseType();
    }
    return type == base;
}

short BlockedBy(XSElementDeclaration& element) {
    const XSComplexTypeDefinition* const type = AsComplex(element.getTypeDefinition());
    return static_cast<short>(element.getDisallowedSubstitutions() |
                              (type ? type->getProhibitedSubstitutions() : 0));
}

} // namespace

XSComplexTypeDefinition* AsComplex(XSTypeDefinition* type) {
    const bool complex = type && type->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE;
    return complex ? static_cast<XSComplexTypeDefinition*>(type) : nullptr;
}

SimpleType* AsSimple(XSTypeDefinition* type) {
    const bool simple = type && type->getTypeCategory() == XSTypeDefinition::SIMPLE_TYPE;
    return simple ? static_cast<SimpleType*>(type) : nullptr;
}

SimpleType* TextTypeOf(XSTypeDefinition* type) {
    const XSComplexTypeDefinition* const complex = AsComplex(type);
    return complex ? complex->getSimpleType() : AsSimple(type);
}

Components::Components(xercesc::XSModel& model) {
    auto* const elements = model.getComponents(XSConstants::ELEMENT_DECLARATION);
    for (XMLSize_t i = 0; elements && i < elements->getLength(); ++i) {
        auto* const one = static_cast<XSElementDeclaration*>(elements->item(i));
        byName_[{TextOf(one->getNamespace()), TextOf(one->getName())}] = one;
    }
    for (const auto& [name, one] : byName_) {
        elements_.push_back(one);
        if (one->getSubstitutionGroupAffiliation())
            members_[one->getSubstitutionGroupAffiliation()].push_back(one);
    }
    std::map<std::pair<std::u16string, std::u16string>, XSTypeDefinition*> types;
    auto* const all = model.getComponents(XSConstants::TYPE_DEFINITION);
    for (XMLSize_t i = 0; all && i < all->getLength(); ++i) {
        auto* const one = static_cast<XSTypeDefinition*>(all->item(i));
        if (!one->getAnonymous() && !IsOfTheLanguage(*one))
            types[{TextOf(one->getNamespace()), TextOf(one->getName())}] = one;
    }
    for (const auto& [name, one] : types)
        derived_[one->getBaseType()].push_back(one);
}

XSElementDeclaration* Components::Element(const std::u16string& space, const std::u16string& name) const {
    const auto found = byName_.find({space, name});
    return found == byName_.end() ? nullptr : found->second;
}

void Components::AddSubstitutes(XSElementDeclaration& head, XSElementDeclaration& at,
                                std::vector<XSElementDeclaration*>& all) {
    if (all.size() >= kMostStandIns)
        return;
    if (!at.getAbstract() &&
        (&at == &head || MayStandFor(at.getTypeDefinition(), head.getTypeDefinition(), BlockedBy(head))))
        all.push_back(&at);
    const auto members = members_.find(&at);
    if (members == members_.end() || head.isDisallowedSubstitution(XSConstants::DERIVATION_SUBSTITUTION))
        return;
    for (XSElementDeclaration* const member : members->second)
        AddSubstitutes(head, *member, all);
}

const std::vector<XSElementDeclaration*>& Components::Substitutes(XSElementDeclaration& head) {
    const auto [at, added] = substitutes_.try_emplace(&head);
    if (added) {
        // A reference has a component of its own in some models: the global one has the members.
        XSElementDeclaration* const global =
            head.getScope() == XSConstants::SCOPE_GLOBAL
                ? Element(TextOf(head.getNamespace()), TextOf(head.getName()))
                : nullptr;
        std::vector<XSElementDeclaration*> all;
        AddSubstitutes(global ? *global : head, global ? *global : head, all);
        at->second = std::move(all);
    }
    return at->second;
}

void Components::AddTypes(XSTypeDefinition* base, XSTypeDefinition* at, short blocked,
                          std::vector<XSTypeDefinition*>& all) {
    const XSComplexTypeDefinition* const complex = AsComplex(at);
    if (all.size() < kMostStandIns && !(complex && complex->getAbstract()) && MayStandFor(at, base, blocked))
        all.push_back(at);
    const auto derived = derived_.find(at);
    if (derived == derived_.end() || all.size() >= kMostStandIns)
        return;
    for (XSTypeDefinition* const one : derived->second)
        AddTypes(base, one, blocked, all);
}

const std::vector<XSTypeDefinition*>& Components::Types(XSElementDeclaration& element) {
    const auto [at, added] = types_.try_emplace(&element);
    if (!added)
        return at->second;
    XSTypeDefinition* const own = element.getTypeDefinition();
    // All types of the schema come from the language's widest ones: they stand for themselves.
    if (own && (IsOfTheLanguage(*own) || !AsComplex(own)))
        at->second = {own};
    else if (own)
        AddTypes(own, own, BlockedBy(element), at->second);
    return at->second;
}

bool Components::Takes(XSWildcard& wildcard, const std::u16string& space) {
    const xercesc::StringList* const list = wildcard.getNsConstraintList();
    bool listed = false;
    for (XMLSize_t i = 0; list && i < list->size(); ++i)
        listed = listed || TextOf(list->elementAt(i)) == space;
    switch (wildcard.getConstraintType()) {
    case XSWildcard::NSCONSTRAINT_NOT:
        return !listed && !space.empty();
    case XSWildcard::NSCONSTRAINT_DERIVATION_LIST:
        return listed;
    default:
        return true;
    }
}

std::vector<XSElementDeclaration*> Components::ElementsFor(XSWildcard& wildcard) const {
    std::vector<XSElementDeclaration*> all;
    for (XSElementDeclaration* const one : elements_) {
        if (all.size() < kMostStandIns && !one->getAbstract() && Takes(wildcard, TextOf(one->getNamespace())))
            all.push_back(one);
    }
    return all;
}

} // namespace samples
