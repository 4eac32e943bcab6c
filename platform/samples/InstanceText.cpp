// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Instance.h"
#include <map>
#include <xercesc/util/XMLUniDefs.hpp>

namespace samples {

namespace {

using Text = std::u16string;

constexpr char16_t kXml[] = u"http://www.w3.org/XML/1998/namespace";
constexpr char16_t kInstance[] = u"http://www.w3.org/2001/XMLSchema-instance";

Text Escaped(const Text& value, bool attribute) {
    Text all;
    for (const char16_t letter : value) {
        if (letter == u'&')
            all += u"&amp;";
        else if (letter == u'<')
            all += u"&lt;";
        else if (letter == u'>')
            all += u"&gt;";
        else if (letter == u'"' && attribute)
            all += u"&quot;";
        else if (letter == u'\r' || (attribute && (letter == u'\t' || letter == u'\n')))
            all += letter == u'\t' ? u"&#9;" : letter == u'\n' ? u"&#10;" : u"&#13;";
        else
            all += letter;
    }
    return all;
}

// The library tells a notation's name behind its namespace and a colon.
bool IsNotation(const Value& value) {
    return value.type && ComesFrom(*value.type, u"NOTATION");
}

class Writer {
public:
    Text Write(Element& root, const Binding& binding) {
        ForAll(root, [&](Element& one) { Gather(one); });
        defaultSpace_ = plain_ ? Text() : root.space;
        Text declarations;
        for (const auto& [space, prefix] : prefixes_) {
            if (space != defaultSpace_ || attributeSpaces_.contains(space))
                declarations += u" xmlns:" + prefix + u"=\"" + Escaped(space, true) + u'"';
        }
        if (!defaultSpace_.empty())
            declarations = u" xmlns=\"" + Escaped(defaultSpace_, true) + u'"' + declarations;
        if (usesInstance_ || !binding.location.empty())
            declarations += Text(u" xmlns:xsi=\"") + kInstance + u'"';
        if (!binding.location.empty())
            declarations += Location(binding);
        text_ = u"<?xml version=\"1.0\" encoding=\"" + binding.encoding + u"\"?>\r\n";
        Put(root, 0, declarations);
        return std::move(text_) + u"\r\n";
    }

private:
    static Text Location(const Binding& binding) {
        const Text place = Escaped(binding.location, true);
        return binding.locationSpace.empty()
                   ? u" xsi:noNamespaceSchemaLocation=\"" + place + u'"'
                   : u" xsi:schemaLocation=\"" + Escaped(binding.locationSpace, true) + u' ' + place + u'"';
    }

    void Gather(Element& element) {
        plain_ = plain_ || element.space.empty();
        Need(element.space);
        usesInstance_ = usesInstance_ || element.nil || element.namedType;
        if (element.namedType)
            NeedInValue(TextOf(element.namedType->getNamespace()));
        if (IsNotation(element.value))
            NeedInValue(SpaceOf(element.value));
        for (const Attribute& one : element.attributes) {
            if (!one.space.empty() && one.space != kXml)
                NeedInValue(one.space);
            if (IsNotation(one.value))
                NeedInValue(SpaceOf(one.value));
        }
    }
    static Text SpaceOf(const Value& notation) {
        const std::size_t colon = notation.text.rfind(u':');
        return colon == Text::npos ? Text() : notation.text.substr(0, colon);
    }
    void Need(const Text& space) {
        if (space.empty() || space == kXml || prefixes_.contains(space))
            return;
        const std::string number = std::to_string(prefixes_.size() + 1);
        prefixes_[space] = u"ns" + Text(number.begin(), number.end());
    }
    void NeedInValue(const Text& space) {
        Need(space);
        attributeSpaces_[space] = true;
    }

    Text Prefixed(const Text& space, const Text& name, bool element) const {
        if (space == kXml)
            return u"xml:" + name;
        if (space.empty() || (element && space == defaultSpace_))
            return name;
        return prefixes_.at(space) + u':' + name;
    }
    Text Written(const Value& value) const {
        if (!IsNotation(value) || value.text.find(u':') == Text::npos)
            return value.text;
        return Prefixed(SpaceOf(value), value.text.substr(value.text.rfind(u':') + 1), false);
    }

    void Put(Element& element, std::size_t level, const Text& declarations) {
        const Text name = Prefixed(element.space, element.name, true);
        text_ += u'<' + name + declarations;
        if (element.namedType)
            text_ += u" xsi:type=\"" +
                     Prefixed(TextOf(element.namedType->getNamespace()), TextOf(element.namedType->getName()),
                              false) +
                     u'"';
        if (element.nil)
            text_ += u" xsi:nil=\"true\"";
        for (const Attribute& one : element.attributes)
            text_ += u' ' + Prefixed(one.space, one.name, false) + u"=\"" +
                     Escaped(Written(one.value), true) + u'"';
        if (element.children.empty() && element.value.text.empty()) {
            text_ += u"/>";
            return;
        }
        text_ += u'>' + Escaped(Written(element.value), false);
        for (const auto& child : element.children) {
            NewLine(level + 1);
            Put(*child, level + 1, {});
        }
        if (!element.children.empty())
            NewLine(level);
        text_ += u"</" + name + u'>';
    }
    void NewLine(std::size_t level) { text_ += u"\r\n" + Text(std::min<std::size_t>(level, 40), u'\t'); }

    std::map<Text, Text> prefixes_;
    std::map<Text, bool> attributeSpaces_; ///< that need a prefix even where they are the default
    Text defaultSpace_, text_;
    bool plain_ = false; ///< some element has no namespace, so none can be the default
    bool usesInstance_ = false;
};

} // namespace

std::u16string TextOf(Element& root, const Binding& binding) {
    return Writer().Write(root, binding);
}

} // namespace samples
