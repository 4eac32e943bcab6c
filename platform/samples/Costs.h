// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Components.h"
#include <set>
#include <unordered_map>

namespace samples {

/// How many elements the smallest instance has, for each component that an element can need. The least fixed
/// point: what needs itself without end has no finite instance. What is built by the cheapest way ends.
class Costs {
public:
    static constexpr double kEndless = 1e300;

    /// Looks at all that an element can need.
    Costs(Components& components, XSElementDeclaration& root, const std::set<SimpleType*>& empty);

    double Of(XSElementDeclaration& element) const; ///< with the cheapest of its types
    double Of(XSTypeDefinition& type) const;        ///< of its content
    double Of(XSParticle& particle) const;          ///< as often as it has to be
    double Once(XSParticle& particle) const;
    /// Whether an element may be nil in the place of content with elements.
    bool MayBeNil(XSElementDeclaration& element) const;

private:
    double Compute(XSElementDeclaration& element);
    double Compute(XSTypeDefinition& type);
    double OfGroup(XSModelGroup& group) const;
    void Meet(XSElementDeclaration& element);
    void Meet(XSParticle* particle);
    void MeetBelow(XSElementDeclaration& element);

    Components& components_;
    const std::set<SimpleType*>& empty_; ///< simple types for which no value was found
    std::unordered_map<XSElementDeclaration*, double> elements_;
    std::unordered_map<XSTypeDefinition*, double> types_;
    struct Met {
        XSElementDeclaration* element; ///< one of the two
        XSTypeDefinition* type;
    };
    std::vector<Met> order_;
};

} // namespace samples
