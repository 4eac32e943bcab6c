// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace xml {

/// What the document type declaration says of the attributes of one element.
struct ElementRules {
    std::vector<Attribute> defaults; ///< in the order of the declarations
    std::unordered_map<std::uint32_t, bool>
        known; ///< by attribute name: whether it is of a type other than CDATA

    /// Blanks around and between the words of such an attribute are no part of its value.
    bool isTokens(std::uint32_t attribute) const {
        const auto found = known.find(attribute);
        return found != known.end() && found->second;
    }
};

/// The attribute declarations of a document, by the number of the element's name.
class AttributeRules {
public:
    bool isEmpty() const { return rules_.empty(); }

    /// Takes a declaration; `value` is the default or nullptr. The first declaration of an attribute counts,
    /// later ones are passed over.
    void add(std::uint32_t element, std::uint32_t attribute, bool tokens,
             const text::StringPool::Ref* value) {
        ElementRules& rules = rules_[element];
        if (rules.known.emplace(attribute, tokens).second && value)
            rules.defaults.push_back(Attribute{attribute, *value});
    }

    /// nullptr: nothing is declared for the element.
    const ElementRules* of(std::uint32_t element) const {
        const auto found = rules_.find(element);
        return found == rules_.end() ? nullptr : &found->second;
    }

private:
    std::unordered_map<std::uint32_t, ElementRules> rules_;
};

/// A value of words: no blanks at its ends, one between two words.
inline std::string JoinedTokens(const char* value) {
    std::string joined;
    for (const char* p = value; *p != '\0'; ++p) {
        if (*p != ' ')
            joined += *p;
        else if (!joined.empty() && joined.back() != ' ')
            joined += ' ';
    }
    if (!joined.empty() && joined.back() == ' ')
        joined.pop_back();
    return joined;
}

} // namespace xml
