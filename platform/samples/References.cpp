// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Identity.h"
#include <algorithm>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>

namespace samples {

namespace {

using Text = std::u16string;

std::vector<Text> IdsOf(Element& root) {
    std::vector<Text> ids;
    const auto take = [&](const Value& value) {
        if (value.type && ComesFrom(*value.type, u"ID") && !value.text.empty())
            ids.push_back(value.text);
    };
    ForAll(root, [&](Element& element) {
        take(element.value);
        for (const Attribute& one : element.attributes)
            take(one.value);
    });
    return ids;
}

bool Refers(const Value& value) {
    return value.type && !value.fixed && !value.text.empty() && RefersToIds(*value.type);
}

// Gives the first element that may have an ID one.
Text MakeId(Element& root, SimpleValues& values) {
    Text made;
    ForAll(root, [&](Element& element) {
        XSTypeDefinition* type = element.namedType;
        if (!type && element.declaration)
            type = element.declaration->getTypeDefinition();
        XSComplexTypeDefinition* const complex = AsComplex(type);
        auto* const uses = complex ? complex->getAttributeUses() : nullptr;
        for (XMLSize_t i = 0; uses && i < uses->size() && made.empty(); ++i) {
            xercesc::XSAttributeDeclaration& declaration = *uses->elementAt(i)->getAttrDeclaration();
            SimpleType& simple = *declaration.getTypeDefinition();
            if (!ComesFrom(simple, u"ID"))
                continue;
            made = values.Value(simple, 0).value_or(Text());
            element.attributes.push_back({TextOf(declaration.getNamespace()),
                                          TextOf(declaration.getName()),
                                          {made, &simple, false},
                                          false});
        }
    });
    return made;
}

// As many as stood there.
void Refer(Value& value, const std::vector<Text>& ids, std::size_t turn) {
    const auto count = static_cast<std::size_t>(std::count(value.text.begin(), value.text.end(), u' ')) + 1;
    value.text.clear();
    for (std::size_t i = 0; i < count; ++i)
        value.text += (i == 0 ? u"" : u" ") + ids[(turn + i) % ids.size()];
}

} // namespace

void SettleReferences(Element& root, SimpleValues& values, std::set<Text>& lacks) {
    std::vector<Text> ids = IdsOf(root);
    bool needed = false;
    ForAll(root, [&](Element& element) {
        needed = needed || Refers(element.value);
        for (const Attribute& one : element.attributes)
            needed = needed || Refers(one.value);
    });
    if (!needed)
        return;
    if (ids.empty()) {
        if (const Text made = MakeId(root, values); !made.empty())
            ids.push_back(made);
    }
    std::size_t turn = 0;
    ForAll(root, [&](Element& element) {
        if (ids.empty())
            std::erase_if(element.attributes,
                          [](const Attribute& one) { return !one.required && Refers(one.value); });
        for (Attribute& one : element.attributes) {
            if (Refers(one.value) && !ids.empty())
                Refer(one.value, ids, turn++);
            else if (Refers(one.value))
                lacks.insert(u"\"" + one.name + u"\" has to refer to an ID, and the document has none.");
        }
        if (Refers(element.value) && !ids.empty())
            Refer(element.value, ids, turn++);
    });
}

} // namespace samples
