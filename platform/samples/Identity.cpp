// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Identity.h"
#include <algorithm>
#include <map>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>
#include <xercesc/framework/psvi/XSIDCDefinition.hpp>
#include <xercesc/framework/psvi/XSNamedMap.hpp>

namespace samples {

namespace {

using Text = std::u16string;
using Constraint = xercesc::XSIDCDefinition;
using Tuple = std::vector<Text>;

constexpr std::size_t kMostOthers = 20000; // values that are tried for one that has to differ

// --- the paths of constraints ------------------------------------------------------------------------------

std::vector<Text> Parts(const Text& text, char16_t between) {
    std::vector<Text> parts(1);
    for (const char16_t letter : text) {
        if (letter == between)
            parts.emplace_back();
        else if (letter != u' ' && letter != u'\t' && letter != u'\n' && letter != u'\r')
            parts.back() += letter;
    }
    return parts;
}

// The declaration of a prefix is out of reach here: names are compared without.
Text LocalPart(const Text& step) {
    const std::size_t colon = step.rfind(u':');
    return colon == Text::npos ? step : step.substr(colon + 1);
}

bool IsAttributeStep(const Text& step) {
    return step.starts_with(u"@") || step.starts_with(u"attribute::");
}

void AddAllBelow(Element& element, std::vector<Element*>& all) {
    ForAll(element, [&](Element& one) { all.push_back(&one); });
}

// What a path of elements leads to; an empty step stands for the second slash of ".//".
std::vector<Element*> Follow(Element& from, const std::vector<Text>& steps) {
    std::vector<Element*> at{&from};
    for (const Text& step : steps) {
        std::vector<Element*> next;
        for (Element* const one : at) {
            if (step == u".")
                next.push_back(one);
            else if (step.empty())
                AddAllBelow(*one, next);
            else {
                for (const auto& child : one->children) {
                    if (LocalPart(step) == u"*" || LocalPart(step) == child->name)
                        next.push_back(child.get());
                }
            }
        }
        at = std::move(next);
    }
    return at;
}

std::vector<Element*> Selected(Element& scope, Constraint& constraint) {
    std::vector<Element*> all;
    for (const Text& path : Parts(TextOf(constraint.getSelectorStr()), u'|')) {
        for (Element* const one : Follow(scope, Parts(path, u'/'))) {
            if (std::find(all.begin(), all.end(), one) == all.end() || all.size() > 1000)
                all.push_back(one);
        }
    }
    return all;
}

Attribute* Made(Element& element, const Text& name, SimpleValues& values) {
    XSTypeDefinition* const type = element.namedType     ? element.namedType
                                   : element.declaration ? element.declaration->getTypeDefinition()
                                                         : nullptr;
    auto* const uses = AsComplex(type) ? AsComplex(type)->getAttributeUses() : nullptr;
    for (XMLSize_t i = 0; uses && i < uses->size(); ++i) {
        xercesc::XSAttributeDeclaration& declaration = *uses->elementAt(i)->getAttrDeclaration();
        SimpleType& simple = *declaration.getTypeDefinition();
        const auto value = TextOf(declaration.getName()) == name ? values.Value(simple, 0) : std::nullopt;
        if (!value)
            continue;
        element.attributes.push_back(
            {TextOf(declaration.getNamespace()), name, {*value, &simple, false}, false});
        return &element.attributes.back();
    }
    return nullptr;
}

Value* FieldOf(Element& element, const Text& field, bool make, SimpleValues& values) {
    for (const Text& path : Parts(field, u'|')) {
        std::vector<Text> steps = Parts(path, u'/');
        const Text last = steps.back();
        if (IsAttributeStep(last))
            steps.pop_back();
        const Text name = last.starts_with(u"@") ? LocalPart(last.substr(1)) : LocalPart(last);
        for (Element* const one : Follow(element, steps)) {
            if (!IsAttributeStep(last))
                return &one->value;
            for (Attribute& attribute : one->attributes) {
                if (attribute.name == name)
                    return &attribute.value;
            }
            if (Attribute* const made = make ? Made(*one, name, values) : nullptr)
                return &made->value;
        }
    }
    return nullptr;
}

// --- the values --------------------------------------------------------------------------------------------

class Keys {
public:
    Keys(SimpleValues& values, std::set<Text>& lacks) : values_(values), lacks_(lacks) {}

    void Settle(Element& scope, Constraint& constraint) {
        const bool refers = constraint.getCategory() == Constraint::IC_KEYREF;
        std::set<Tuple>& met = tuples_[&constraint];
        std::size_t turn = 0;
        std::set<Tuple> here;
        for (Element* const one : Selected(scope, constraint)) {
            const std::vector<Value*> fields = FieldsOf(*one, constraint);
            if (std::find(fields.begin(), fields.end(), nullptr) != fields.end())
                continue;
            if (refers)
                Refer(fields, tuples_[constraint.getRefKey()], turn++);
            else
                Differ(fields, here, TextOf(constraint.getName()));
        }
        met.insert(here.begin(), here.end());
    }

private:
    std::vector<Value*> FieldsOf(Element& element, Constraint& constraint) {
        const bool key = constraint.getCategory() == Constraint::IC_KEY;
        std::vector<Value*> fields;
        const xercesc::StringList* const all = constraint.getFieldStrs();
        // Twice: an attribute that is made may move the others.
        for (const bool make : {key, false}) {
            fields.clear();
            for (XMLSize_t i = 0; all && i < all->size(); ++i)
                fields.push_back(FieldOf(element, TextOf(all->elementAt(i)), make, values_));
        }
        return fields;
    }
    static Tuple TupleOf(const std::vector<Value*>& fields) {
        Tuple tuple;
        for (const Value* const one : fields)
            tuple.push_back(one->text);
        return tuple;
    }

    void Differ(const std::vector<Value*>& fields, std::set<Tuple>& met, const Text& name) {
        if (met.insert(TupleOf(fields)).second)
            return;
        for (Value* const one : fields) {
            if (one->fixed || !one->type)
                continue;
            const Text before = one->text;
            for (std::size_t n = next_[one->type]; n < kMostOthers; ++n) {
                const std::optional<Text> other = values_.Value(*one->type, n);
                if (!other)
                    break;
                one->text = *other;
                if (met.insert(TupleOf(fields)).second) {
                    next_[one->type] = n;
                    return;
                }
            }
            one->text = before;
        }
        lacks_.insert(u"There are not enough different values for \"" + name + u"\".");
    }

    void Refer(const std::vector<Value*>& fields, const std::set<Tuple>& known, std::size_t turn) {
        if (known.empty() || known.contains(TupleOf(fields)))
            return;
        auto tuple = known.begin();
        std::advance(tuple, static_cast<std::ptrdiff_t>(turn % known.size()));
        for (std::size_t i = 0; i < fields.size() && i < tuple->size(); ++i) {
            if (!fields[i]->fixed)
                fields[i]->text = (*tuple)[i];
        }
    }

    SimpleValues& values_;
    std::set<Text>& lacks_;
    std::map<Constraint*, std::set<Tuple>> tuples_;
    std::map<SimpleType*, std::size_t> next_;
};

struct Placed {
    Element* scope;
    Constraint* constraint;
};

} // namespace

// What is inside comes first: outer keys see its values as they stay. References come behind all keys.
void SettleKeys(Element& root, SimpleValues& values, std::set<Text>& lacks) {
    std::vector<Placed> all;
    ForAll(root, [&](Element& element) {
        auto* const map = element.declaration ? element.declaration->getIdentityConstraints() : nullptr;
        for (XMLSize_t i = 0; map && i < map->getLength(); ++i)
            all.push_back({&element, map->item(i)});
    });
    std::reverse(all.begin(), all.end());
    Keys keys(values, lacks);
    for (const bool references : {false, true}) {
        for (const Placed& one : all) {
            if ((one.constraint->getCategory() == Constraint::IC_KEYREF) == references)
                keys.Settle(*one.scope, *one.constraint);
        }
    }
}

} // namespace samples
