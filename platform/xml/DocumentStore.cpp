// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/DocumentStore.h"
#include "platform/xml/XPathTree.h"
#include <new>

namespace xml {

DocumentStore::DocumentStore() {
    for (const char* name : {"#document", "#text", "#comment", "#cdata-section", "xml:space"})
        nameId(QString::fromLatin1(name));
    nodes[nodes.addRun(1)] = NodeRecord{0, 0, DOCUMENT, kDocumentName, 0, 0};
}

DocumentStore::~DocumentStore() = default;

std::uint32_t DocumentStore::nameId(const QString& name) {
    if (const auto known = findName(name))
        return *known;
    constexpr std::size_t kMaxNames = std::size_t{1} << 28;
    if (names.size() == kMaxNames)
        throw std::bad_alloc();
    const auto id = static_cast<std::uint32_t>(names.size());
    names.push_back(name);
    nameIds_.emplace(name, id);
    return id;
}

std::optional<std::uint32_t> DocumentStore::findName(const QString& name) const {
    const auto found = nameIds_.find(name);
    return found == nameIds_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace xml
