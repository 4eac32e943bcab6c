// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/NamespaceScope.h"
#include "platform/xml/ErrorCodes.h"
#include <QHashFunctions>
#include <algorithm>
#include <tuple>

namespace xml {

namespace {

constexpr QStringView kNameOfXmlSpace = u"http://www.w3.org/XML/1998/namespace";
constexpr QStringView kNameOfXmlnsSpace = u"http://www.w3.org/2000/xmlns/";

/// Whether a character that may stand in a name may also be its first.
bool MayStartName(QStringView name) {
    const char16_t c = name[0].unicode();
    const bool digit = c >= u'0' && c <= u'9';
    const bool combining = (c >= 0x0300 && c <= 0x036F) || c == 0x203F || c == 0x2040;
    return !digit && !combining && c != u'-' && c != u'.' && c != 0x00B7;
}

/// What is wrong with a name that has a colon at that place; a code or 0.
int FaultOfForm(QStringView name, qsizetype colon) {
    if (name.indexOf(u':', colon + 1) >= 0)
        return kErrorTwoColons;
    if (colon == 0)
        return kErrorNoPrefix;
    if (colon == name.size() - 1)
        return kErrorNoLocalPart;
    return MayStartName(name.mid(colon + 1)) ? 0 : kErrorLocalPart;
}

} // namespace

std::size_t NamespaceScope::HashOfValue::operator()(text::StringPool::Ref ref) const {
    const text::CompactView view = texts.view(ref);
    return qHashBits(view.data, view.wide ? std::size_t{view.length} * 2 : view.length,
                     static_cast<std::size_t>(QHashSeed::globalSeed()));
}

NamespaceScope::NamespaceScope(const DocumentStore& store)
    : store_(store), spaces_(0, HashOfValue{store.texts}, SameValue{store.texts}) {
    words_ = {{QString(), kNone}, {QStringLiteral("xml"), kXml}, {QStringLiteral("xmlns"), kXmlns}};
    bound_ = {0, kXmlSpace, 0};
}

NamespaceScope::Word NamespaceScope::word(QStringView part) {
    return words_.emplace(part.toString(), static_cast<Word>(words_.size())).first->second;
}

NamespaceScope::Parts NamespaceScope::takeApart(QStringView name) {
    if (name == u"xmlns")
        return {kXmlns, kNone, 0};
    const qsizetype colon = name.indexOf(u':');
    if (colon < 0)
        return {};
    if (const int fault = FaultOfForm(name, colon))
        return {kNone, kNone, fault};
    const Word prefix = word(name.left(colon));
    return {prefix, word(name.mid(colon + 1)), 0};
}

void NamespaceScope::learnNames() {
    while (parts_.size() < store_.names.size())
        parts_.push_back(takeApart(store_.names[parts_.size()]));
    bound_.resize(words_.size());
}

int NamespaceScope::faultOfForm(std::uint32_t name) {
    learnNames();
    return parts_[name].fault;
}

NamespaceFault NamespaceScope::enter(std::uint32_t element, const std::vector<Attribute>& attributes) {
    if (parts_.size() < store_.names.size())
        learnNames();
    ++depth_;
    const Parts& own = parts_[element];
    if (own.fault != 0)
        return {own.fault, element};
    if (!attributes.empty()) {
        if (const NamespaceFault fault = readAttributes(attributes))
            return fault;
    }
    if (own.prefix == kXmlns && own.local != kNone)
        return {kErrorXmlnsElement, element};
    if (own.local != kNone && bound_[own.prefix] == 0)
        return {kErrorUnboundPrefix, element};
    return attributes.empty() ? NamespaceFault{} : checkPrefixed();
}

/// Takes the declarations, and keeps the other attributes with a prefix: their declarations may come later.
NamespaceFault NamespaceScope::readAttributes(const std::vector<Attribute>& attributes) {
    prefixed_.clear();
    for (const Attribute& attribute : attributes) {
        const Parts& parts = parts_[attribute.nameId];
        if (parts.arePlain())
            continue;
        int fault = parts.fault;
        if (fault == 0 && parts.prefix == kXmlns)
            fault = declare(parts.local, attribute.value);
        else
            prefixed_.push_back({parts, 0, attribute.nameId, prefixed_.size()});
        if (fault != 0)
            return {fault, attribute.nameId};
    }
    return {};
}

int NamespaceScope::declare(Word prefix, text::StringPool::Ref value) {
    const text::CompactView name = store_.texts.view(value);
    if (prefix == kXmlns)
        return kErrorXmlnsPrefix;
    if (name == kNameOfXmlSpace)
        return prefix == kXml ? 0 : kErrorXmlNamespace;
    if (prefix == kXml)
        return kErrorXmlPrefix;
    if (name == kNameOfXmlnsSpace)
        return kErrorXmlnsNamespace;
    if (prefix == kNone)
        return 0; // nothing that is checked depends on the default
    if (name.isEmpty())
        return kErrorEmptyNamespace;
    hidden_.push_back({prefix, bound_[prefix], depth_});
    bound_[prefix] = *spaces_.insert(value).first;
    return 0;
}

NamespaceFault NamespaceScope::checkPrefixed() {
    bool several = false;
    for (Prefixed& attribute : prefixed_) {
        attribute.space = bound_[attribute.parts.prefix];
        if (attribute.space == 0)
            return {kErrorUnboundPrefix, attribute.name};
        several = several || attribute.parts.prefix != prefixed_.front().parts.prefix;
    }
    return several ? findSame() : NamespaceFault{}; // under one prefix no two are the same
}

NamespaceFault NamespaceScope::findSame() {
    std::sort(prefixed_.begin(), prefixed_.end(), [](const Prefixed& a, const Prefixed& b) {
        return std::tie(a.space, a.parts.local, a.order) < std::tie(b.space, b.parts.local, b.order);
    });
    const auto same =
        std::adjacent_find(prefixed_.begin(), prefixed_.end(), [](const Prefixed& a, const Prefixed& b) {
            return a.space == b.space && a.parts.local == b.parts.local;
        });
    return same == prefixed_.end() ? NamespaceFault{} : NamespaceFault{kErrorSameAttribute, (same + 1)->name};
}

void NamespaceScope::leave() {
    for (; !hidden_.empty() && hidden_.back().depth == depth_; hidden_.pop_back())
        bound_[hidden_.back().prefix] = hidden_.back().space;
    --depth_;
}

} // namespace xml
