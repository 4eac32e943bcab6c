// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Facets.h"
#include <map>
#include <string>
#include <vector>
#include <xercesc/framework/psvi/XSComplexTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSElementDeclaration.hpp>
#include <xercesc/framework/psvi/XSModel.hpp>
#include <xercesc/framework/psvi/XSModelGroup.hpp>
#include <xercesc/framework/psvi/XSParticle.hpp>
#include <xercesc/framework/psvi/XSWildcard.hpp>

namespace samples {

using xercesc::XSComplexTypeDefinition;
using xercesc::XSElementDeclaration;
using xercesc::XSModelGroup;
using xercesc::XSParticle;
using xercesc::XSTypeDefinition;
using xercesc::XSWildcard;

XSComplexTypeDefinition* AsComplex(XSTypeDefinition* type); ///< null for a simple one
SimpleType* AsSimple(XSTypeDefinition* type);               ///< null for a complex one
/// The simple type of an element's text: the type itself, or that of simple content; null without one.
SimpleType* TextTypeOf(XSTypeDefinition* type);

/// The global components of a schema, and what can stand for what.
class Components {
public:
    explicit Components(xercesc::XSModel& model);
    Components(const Components&) = delete;
    Components& operator=(const Components&) = delete;

    const std::vector<XSElementDeclaration*>& Elements() const { return elements_; } ///< by name
    /// Null where there is none of that name.
    XSElementDeclaration* Element(const std::u16string& space, const std::u16string& name) const;
    /// All that an instance may have in the place of a declaration, itself first; none of them is abstract.
    const std::vector<XSElementDeclaration*>& Substitutes(XSElementDeclaration& head);
    /// The types that an element of a declaration may have, its own first; none of them is abstract. The
    /// others are named by xsi:type.
    const std::vector<XSTypeDefinition*>& Types(XSElementDeclaration& element);
    /// The global elements that a wildcard takes, and whether it takes a namespace.
    std::vector<XSElementDeclaration*> ElementsFor(XSWildcard& wildcard) const;
    static bool Takes(XSWildcard& wildcard, const std::u16string& space);

private:
    void AddSubstitutes(XSElementDeclaration& head, XSElementDeclaration& at,
                        std::vector<XSElementDeclaration*>& all);
    void AddTypes(XSTypeDefinition* base, XSTypeDefinition* at, short blocked,
                  std::vector<XSTypeDefinition*>& all);

    std::vector<XSElementDeclaration*> elements_;
    std::map<std::pair<std::u16string, std::u16string>, XSElementDeclaration*> byName_;
    std::map<XSElementDeclaration*, std::vector<XSElementDeclaration*>> members_; ///< of a head, direct ones
    std::map<XSTypeDefinition*, std::vector<XSTypeDefinition*>> derived_;         ///< global ones, direct
    std::map<XSElementDeclaration*, std::vector<XSElementDeclaration*>> substitutes_;
    std::map<XSElementDeclaration*, std::vector<XSTypeDefinition*>> types_;
};

} // namespace samples
