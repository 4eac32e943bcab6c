// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Components.h"
#include "platform/samples/Costs.h"
#include "platform/samples/Instance.h"
#include "platform/samples/SimpleValues.h"
#include <map>
#include <memory>
#include <set>
#include <string>

namespace samples {

/// How much of what a schema allows a sample has.
enum class Amount {
    Minimal, ///< nothing that may be left out
    Typical, ///< most of what may be left out, some of it several times
    All      ///< everything once, branch by branch where an instance can have several
};

/// Builds the elements of one sample. What a type or a declaration needs without end is cut short as early as
/// the schema allows it.
class Builder {
public:
    Builder(Components& components, SimpleValues& values, const Costs& costs, Amount amount,
            std::uint64_t seed)
        : components_(components), values_(values), costs_(costs), amount_(amount), random_(seed) {}

    std::unique_ptr<Element> Build(XSElementDeclaration& root);
    /// What there is no value for, or no content: for the user.
    const std::set<std::u16string>& Lacks() const { return lacks_; }
    /// Simple types that no value was found for.
    const std::set<SimpleType*>& Empty() const { return empty_; }

private:
    void Fill(Element& element, XSElementDeclaration& declaration);
    void FillWith(Element& element, XSElementDeclaration& declaration, XSTypeDefinition& type);
    XSTypeDefinition* ChooseType(XSElementDeclaration& declaration);
    void AddAttributes(Element& element, XSComplexTypeDefinition& type);
    void AddText(Element& element, XSElementDeclaration& declaration, SimpleType& type);
    void AddParticle(Element& element, XSParticle& particle);
    void AddTerm(Element& element, XSParticle& particle);
    void AddGroup(Element& element, XSModelGroup& group);
    void AddDeclared(Element& element, XSElementDeclaration& declaration);
    void AddElement(Element& element, XSElementDeclaration& declaration);
    void AddAny(Element& element, XSWildcard& wildcard);
    std::size_t Count(XSParticle& particle);
    XSParticle* ChooseBranch(XSModelGroup& group);
    bool HasNewBranch(XSParticle& particle);
    bool IsGenerous() const;
    std::u16string ValueOf(SimpleType& type, const std::u16string& owner);

    Components& components_;
    SimpleValues& values_;
    const Costs& costs_;
    Amount amount_;
    Random random_;
    std::map<XSTypeDefinition*, int> open_;    ///< types of the elements around, how often
    std::set<XSTypeDefinition*> shown_;        ///< whose content has been shown whole
    std::set<const void*> branches_;           ///< of choices, and stand-ins, that have been shown
    std::map<SimpleType*, std::size_t> given_; ///< values that have to differ
    std::set<std::u16string> lacks_;
    std::set<SimpleType*> empty_;
    std::size_t elements_ = 0;
    int depth_ = 0, cut_ = 0;
};

} // namespace samples
