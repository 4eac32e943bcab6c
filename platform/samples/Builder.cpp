// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Builder.h"
#include <algorithm>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>

namespace samples {

namespace {

using xercesc::XSConstants;

constexpr std::size_t kTypicalElements = 300, kAllElements = 20000; // then nothing that may be left out
constexpr int kTypicalDepth = 8, kAllDepth = 60;
constexpr int kDeepest = 4900;         // levels that a document may have
constexpr std::size_t kMostTurns = 50; // of a repeated choice, each with another branch

std::size_t MostOf(XSParticle& particle) {
    return particle.getMaxOccursUnbounded() ? kNoBound : particle.getMaxOccurs();
}

bool IsFixed(XSConstants::VALUE_CONSTRAINT constraint) {
    return constraint == XSConstants::VALUE_CONSTRAINT_FIXED;
}

} // namespace

bool Builder::IsGenerous() const {
    if (amount_ == Amount::Minimal || cut_ > 0)
        return false;
    const bool all = amount_ == Amount::All;
    return elements_ < (all ? kAllElements : kTypicalElements) && depth_ < (all ? kAllDepth : kTypicalDepth);
}

std::unique_ptr<Element> Builder::Build(XSElementDeclaration& root) {
    auto element = std::make_unique<Element>();
    Fill(*element, root);
    return element;
}

void Builder::Fill(Element& element, XSElementDeclaration& declaration) {
    element.space = TextOf(declaration.getNamespace());
    element.name = TextOf(declaration.getName());
    element.declaration = &declaration;
    ++elements_;
    if (depth_ > kDeepest) {
        lacks_.insert(u"The smallest instance has more levels than a document may have.");
        return;
    }
    XSTypeDefinition* const type = ChooseType(declaration);
    if (!type) {
        lacks_.insert(u"The element \"" + element.name + u"\" has no type that an instance can have.");
        return;
    }
    if (type != declaration.getTypeDefinition())
        element.namedType = type;
    const bool again = open_[type] > 0;
    if (costs_.MayBeNil(declaration) && (again || costs_.Of(*type) >= Costs::kEndless)) {
        element.nil = true;
        return;
    }
    // A type inside itself, and one that has been shown, is cut short.
    const bool cut = again || (amount_ == Amount::All && AsComplex(type) && !shown_.insert(type).second &&
                               AsComplex(type)->getParticle());
    ++open_[type];
    ++depth_;
    cut_ += cut ? 1 : 0;
    FillWith(element, declaration, *type);
    cut_ -= cut ? 1 : 0;
    --depth_;
    --open_[type];
}

// The declared type where it has an instance, else the one with the smallest.
XSTypeDefinition* Builder::ChooseType(XSElementDeclaration& declaration) {
    const std::vector<XSTypeDefinition*>& types = components_.Types(declaration);
    XSTypeDefinition* best = nullptr;
    for (XSTypeDefinition* const one : types) {
        if (one == declaration.getTypeDefinition() && costs_.Of(*one) < Costs::kEndless)
            return one;
        if (!best || costs_.Of(*one) < costs_.Of(*best))
            best = one;
    }
    return best;
}

void Builder::FillWith(Element& element, XSElementDeclaration& declaration, XSTypeDefinition& type) {
    XSComplexTypeDefinition* const complex = AsComplex(&type);
    if (complex)
        AddAttributes(element, *complex);
    if (SimpleType* const text = TextTypeOf(&type))
        return AddText(element, declaration, *text);
    element.mixed = complex && complex->getContentType() == XSComplexTypeDefinition::CONTENTTYPE_MIXED;
    if (element.mixed && declaration.getConstraintType() != XSConstants::VALUE_CONSTRAINT_NONE) {
        element.value = {TextOf(declaration.getConstraintValue()), nullptr, true};
        return; // with elements beside it the value would be another one
    }
    if (element.mixed && IsGenerous())
        element.value.text = u"text";
    if (complex && complex->getParticle())
        AddParticle(element, *complex->getParticle());
}

void Builder::AddAttributes(Element& element, XSComplexTypeDefinition& type) {
    xercesc::XSAttributeUseList* const uses = type.getAttributeUses();
    for (XMLSize_t i = 0; uses && i < uses->size(); ++i) {
        xercesc::XSAttributeUse& use = *uses->elementAt(i);
        xercesc::XSAttributeDeclaration& declaration = *use.getAttrDeclaration();
        SimpleType& simple = *declaration.getTypeDefinition();
        if (!use.getRequired() && (!IsGenerous() || ComesFrom(simple, u"ENTITY") || empty_.contains(&simple)))
            continue;
        Attribute made{
            TextOf(declaration.getNamespace()), TextOf(declaration.getName()), {}, use.getRequired()};
        const bool own = use.getConstraintType() != XSConstants::VALUE_CONSTRAINT_NONE;
        const auto constraint = own ? use.getConstraintType() : declaration.getConstraintType();
        if (constraint != XSConstants::VALUE_CONSTRAINT_NONE)
            made.value = {TextOf(own ? use.getConstraintValue() : declaration.getConstraintValue()), &simple,
                          IsFixed(constraint)};
        else
            made.value = {ValueOf(simple, made.name), &simple, false};
        if (made.required || !empty_.contains(&simple))
            element.attributes.push_back(std::move(made));
    }
}

void Builder::AddText(Element& element, XSElementDeclaration& declaration, SimpleType& type) {
    const auto constraint = declaration.getConstraintType();
    if (constraint != XSConstants::VALUE_CONSTRAINT_NONE)
        element.value = {TextOf(declaration.getConstraintValue()), &type, IsFixed(constraint)};
    else
        element.value = {ValueOf(type, element.name), &type, false};
}

// IDs differ everywhere, whatever their types; other values are the first ones, in typical samples any.
std::u16string Builder::ValueOf(SimpleType& type, const std::u16string& owner) {
    const bool identifies = ComesFrom(type, u"ID");
    std::size_t n = identifies ? given_[nullptr]++ : 0;
    if (!identifies && amount_ == Amount::Typical)
        n = random_.Below(4);
    std::optional<std::u16string> value = values_.Value(type, n);
    if (!value && !identifies)
        value = values_.Value(type, 0);
    if (value)
        return *value;
    empty_.insert(&type);
    lacks_.insert(u"No value was found for the type of \"" + owner + u"\".");
    return {};
}

// --- content -----------------------------------------------------------------------------------------------

std::size_t Builder::Count(XSParticle& particle) {
    const std::size_t least = particle.getMinOccurs(), most = MostOf(particle);
    if (!IsGenerous() || costs_.Once(particle) >= Costs::kEndless || most == 0)
        return least;
    if (amount_ == Amount::All)
        return std::max<std::size_t>(least, 1);
    const std::size_t wanted = random_.Below(5) == 0 && least == 0 ? 0 : most > 1 ? 1 + random_.Below(3) : 1;
    return std::clamp(wanted, least, most);
}

void Builder::AddParticle(Element& element, XSParticle& particle) {
    const std::size_t count = Count(particle), most = MostOf(particle);
    for (std::size_t i = 0; i < count; ++i)
        AddTerm(element, particle);
    if (count == 0 || amount_ != Amount::All)
        return;
    for (std::size_t i = count; i < std::min(most, kMostTurns) && IsGenerous() && HasNewBranch(particle); ++i)
        AddTerm(element, particle);
}

void Builder::AddTerm(Element& element, XSParticle& particle) {
    switch (particle.getTermType()) {
    case XSParticle::TERM_ELEMENT:
        return AddDeclared(element, *particle.getElementTerm());
    case XSParticle::TERM_MODELGROUP:
        return AddGroup(element, *particle.getModelGroupTerm());
    case XSParticle::TERM_WILDCARD:
        return AddAny(element, *particle.getWildcardTerm());
    default:
        return;
    }
}

void Builder::AddGroup(Element& element, XSModelGroup& group) {
    xercesc::XSParticleList* const parts = group.getParticles();
    if (group.getCompositor() == XSModelGroup::COMPOSITOR_CHOICE) {
        if (XSParticle* const branch = ChooseBranch(group))
            AddParticle(element, *branch);
        return;
    }
    for (XMLSize_t i = 0; parts && i < parts->size(); ++i)
        AddParticle(element, *parts->elementAt(i));
}

// The cheapest one; else one that hasn't been shown, or any.
XSParticle* Builder::ChooseBranch(XSModelGroup& group) {
    xercesc::XSParticleList* const parts = group.getParticles();
    XSParticle* best = nullptr;
    std::vector<XSParticle*> open;
    for (XMLSize_t i = 0; parts && i < parts->size(); ++i) {
        XSParticle* const one = parts->elementAt(i);
        if (costs_.Of(*one) >= Costs::kEndless || MostOf(*one) == 0)
            continue;
        if (!best || costs_.Of(*one) < costs_.Of(*best))
            best = one;
        const bool ends = costs_.Once(*one) < Costs::kEndless;
        if (ends && (amount_ != Amount::All || !branches_.contains(one)))
            open.push_back(one);
    }
    if (IsGenerous() && !open.empty())
        best = amount_ == Amount::All ? open.front() : open[random_.Below(open.size())];
    branches_.insert(best);
    return best;
}

// Whether showing a particle once more would show something new.
bool Builder::HasNewBranch(XSParticle& particle) {
    if (particle.getTermType() == XSParticle::TERM_ELEMENT) {
        const auto& all = components_.Substitutes(*particle.getElementTerm());
        return std::any_of(all.begin(), all.end(), [&](XSElementDeclaration* one) {
            return all.size() > 1 && !branches_.contains(one) && costs_.Of(*one) < Costs::kEndless;
        });
    }
    if (particle.getTermType() != XSParticle::TERM_MODELGROUP)
        return false;
    XSModelGroup& group = *particle.getModelGroupTerm();
    xercesc::XSParticleList* const parts = group.getParticles();
    const bool choice = group.getCompositor() == XSModelGroup::COMPOSITOR_CHOICE;
    for (XMLSize_t i = 0; parts && i < parts->size(); ++i) {
        XSParticle& one = *parts->elementAt(i);
        const bool ends = costs_.Once(one) < Costs::kEndless && MostOf(one) > 0;
        if (ends && ((choice && !branches_.contains(&one)) || (!choice && HasNewBranch(one))))
            return true;
    }
    return false;
}

// A declaration, or one of those that can stand for it.
void Builder::AddDeclared(Element& element, XSElementDeclaration& declaration) {
    const std::vector<XSElementDeclaration*>& all = components_.Substitutes(declaration);
    XSElementDeclaration* best = nullptr;
    for (XSElementDeclaration* const one : all) {
        if (!best || costs_.Of(*one) < costs_.Of(*best))
            best = one;
        if (IsGenerous() && costs_.Of(*one) < Costs::kEndless && !branches_.contains(one)) {
            best = one;
            break;
        }
    }
    if (!best) {
        lacks_.insert(u"The element \"" + TextOf(declaration.getName()) +
                      u"\" is abstract, and nothing can stand for it.");
        return;
    }
    if (all.size() > 1 && amount_ == Amount::All)
        branches_.insert(best);
    AddElement(element, *best);
}

void Builder::AddElement(Element& element, XSElementDeclaration& declaration) {
    auto made = std::make_unique<Element>();
    made->parent = &element;
    Fill(*made, declaration);
    element.children.push_back(std::move(made));
}

void Builder::AddAny(Element& element, XSWildcard& wildcard) {
    XSElementDeclaration* best = nullptr;
    if (wildcard.getProcessContents() != XSWildcard::PC_SKIP) {
        for (XSElementDeclaration* const one : components_.ElementsFor(wildcard)) {
            if (!best || costs_.Of(*one) < costs_.Of(*best))
                best = one;
        }
    }
    if (best && costs_.Of(*best) < Costs::kEndless &&
        (wildcard.getProcessContents() == XSWildcard::PC_STRICT || IsGenerous()))
        return AddElement(element, *best);
    auto made = std::make_unique<Element>();
    made->parent = &element;
    for (const char16_t* const space : {u"urn:any", u"urn:other", u""}) {
        made->space = space;
        if (Components::Takes(wildcard, space))
            break;
    }
    const xercesc::StringList* const list = wildcard.getNsConstraintList();
    if (!Components::Takes(wildcard, made->space) && list && list->size() > 0)
        made->space = TextOf(list->elementAt(0));
    made->name = u"any";
    while (components_.Element(made->space, made->name))
        made->name += u'_';
    if (wildcard.getProcessContents() == XSWildcard::PC_STRICT)
        lacks_.insert(u"No declared element fits a place for any element.");
    element.children.push_back(std::move(made));
}

} // namespace samples
