// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Costs.h"
#include <algorithm>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>

namespace samples {

namespace {

constexpr double kNil = 0.5; // dearer than content without elements, and cheaper than any with one

// Only a document type declares entities.
bool IsEntity(SimpleType& type) {
    return ComesFrom(type, u"ENTITY") || (type.getVariety() == SimpleType::VARIETY_LIST &&
                                          type.getItemType() && ComesFrom(*type.getItemType(), u"ENTITY"));
}

double Bounded(double cost) {
    return std::min(cost, Costs::kEndless);
}

} // namespace

// What was met last stands lowest as a rule, so few rounds do; each takes all from there up.
Costs::Costs(Components& components, XSElementDeclaration& root, const std::set<SimpleType*>& empty)
    : components_(components), empty_(empty) {
    Meet(root);
    for (std::size_t at = 0; at < order_.size(); ++at) {
        if (order_[at].element)
            MeetBelow(*order_[at].element);
        else if (const XSComplexTypeDefinition* const type = AsComplex(order_[at].type))
            Meet(type->getParticle());
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (auto one = order_.rbegin(); one != order_.rend(); ++one) {
            double& known = one->element ? elements_[one->element] : types_[one->type];
            const double cost = one->element ? Compute(*one->element) : Compute(*one->type);
            changed = changed || cost < known;
            known = std::min(cost, known);
        }
    }
}

void Costs::MeetBelow(XSElementDeclaration& element) {
    for (XSTypeDefinition* const type : components_.Types(element)) {
        if (types_.try_emplace(type, kEndless).second)
            order_.push_back({nullptr, type});
    }
    for (XSElementDeclaration* const one : components_.Substitutes(element))
        Meet(*one);
}

void Costs::Meet(XSElementDeclaration& element) {
    if (elements_.try_emplace(&element, kEndless).second)
        order_.push_back({&element, nullptr});
}

void Costs::Meet(XSParticle* particle) {
    if (!particle || (particle->getMaxOccurs() == 0 && !particle->getMaxOccursUnbounded()))
        return;
    if (particle->getTermType() == XSParticle::TERM_ELEMENT)
        return Meet(*particle->getElementTerm());
    if (particle->getTermType() == XSParticle::TERM_WILDCARD) {
        for (XSElementDeclaration* const one : components_.ElementsFor(*particle->getWildcardTerm()))
            Meet(*one);
    }
    if (particle->getTermType() != XSParticle::TERM_MODELGROUP)
        return;
    xercesc::XSParticleList* const parts = particle->getModelGroupTerm()->getParticles();
    for (XMLSize_t i = 0; parts && i < parts->size(); ++i)
        Meet(parts->elementAt(i));
}

double Costs::Compute(XSElementDeclaration& element) {
    double least = kEndless;
    for (XSTypeDefinition* const type : components_.Types(element))
        least = std::min(least, Of(*type));
    return element.getNillable() ? Bounded(1 + std::min(least, kNil)) : Bounded(1 + least);
}

double Costs::Compute(XSTypeDefinition& type) {
    if (SimpleType* const text = TextTypeOf(&type); text && (empty_.contains(text) || IsEntity(*text)))
        return kEndless;
    const XSComplexTypeDefinition* const complex = AsComplex(&type);
    if (!complex)
        return 0;
    auto* const uses = const_cast<XSComplexTypeDefinition*>(complex)->getAttributeUses();
    for (XMLSize_t i = 0; uses && i < uses->size(); ++i) {
        xercesc::XSAttributeUse& use = *uses->elementAt(i);
        if (use.getRequired() && empty_.contains(use.getAttrDeclaration()->getTypeDefinition()))
            return kEndless;
    }
    return complex->getParticle() ? Of(*complex->getParticle()) : 0;
}

double Costs::Of(XSElementDeclaration& element) const {
    const auto found = elements_.find(&element);
    return found == elements_.end() ? kEndless : found->second;
}

double Costs::Of(XSTypeDefinition& type) const {
    const auto found = types_.find(&type);
    return found == types_.end() ? kEndless : found->second;
}

double Costs::Of(XSParticle& particle) const {
    const auto least = static_cast<double>(particle.getMinOccurs());
    return least <= 0 ? 0 : Bounded(least * Once(particle));
}

double Costs::Once(XSParticle& particle) const {
    switch (particle.getTermType()) {
    case XSParticle::TERM_ELEMENT: {
        double least = kEndless;
        for (XSElementDeclaration* const one : components_.Substitutes(*particle.getElementTerm()))
            least = std::min(least, Of(*one));
        return least;
    }
    case XSParticle::TERM_MODELGROUP:
        return OfGroup(*particle.getModelGroupTerm());
    case XSParticle::TERM_WILDCARD: {
        XSWildcard& wildcard = *particle.getWildcardTerm();
        double least = wildcard.getProcessContents() == XSWildcard::PC_STRICT ? kEndless : 1;
        for (XSElementDeclaration* const one : components_.ElementsFor(wildcard))
            least = std::min(least, Of(*one));
        return least;
    }
    default:
        return 0;
    }
}

double Costs::OfGroup(XSModelGroup& group) const {
    xercesc::XSParticleList* const parts = group.getParticles();
    const bool choice = group.getCompositor() == XSModelGroup::COMPOSITOR_CHOICE;
    double cost = choice && parts && parts->size() > 0 ? kEndless : 0;
    for (XMLSize_t i = 0; parts && i < parts->size(); ++i) {
        const double part = Of(*parts->elementAt(i));
        cost = choice ? std::min(cost, part) : Bounded(cost + part);
    }
    return cost;
}

bool Costs::MayBeNil(XSElementDeclaration& element) const {
    const auto& types = components_.Types(element);
    return element.getNillable() &&
           element.getConstraintType() != xercesc::XSConstants::VALUE_CONSTRAINT_FIXED &&
           std::all_of(types.begin(), types.end(), [&](XSTypeDefinition* type) { return Of(*type) > kNil; });
}

} // namespace samples
