// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Components.h"
#include <memory>
#include <string>
#include <vector>

namespace samples {

/// A value of an instance, of an attribute or an element's text.
struct Value {
    std::u16string text;
    SimpleType* type = nullptr; ///< null: of no type that is known
    bool fixed = false;         ///< it can't be another one
};

struct Attribute {
    std::u16string space, name;
    Value value;
    bool required = true;
};

/// An element of an instance.
struct Element {
    std::u16string space, name;
    Element* parent = nullptr;
    XSElementDeclaration* declaration = nullptr; ///< null where a wildcard takes anything
    XSTypeDefinition* namedType = nullptr;       ///< that xsi:type names
    bool nil = false, mixed = false;
    std::vector<Attribute> attributes;
    Value value;
    std::vector<std::unique_ptr<Element>> children;
};

/// Calls `act` with an element and all below it, in document order.
template <typename Act> void ForAll(Element& element, const Act& act) {
    act(element);
    for (const auto& child : element.children)
        ForAll(*child, act);
}

/// What goes around the elements in the text.
struct Binding {
    std::u16string encoding;      ///< told by the declaration
    std::u16string location;      ///< of the schema; empty: the document isn't bound
    std::u16string locationSpace; ///< the namespace that the location is for
};

/// The document as text, each element in a line, its prefixes declared at the root.
std::u16string TextOf(Element& root, const Binding& binding);

} // namespace samples
