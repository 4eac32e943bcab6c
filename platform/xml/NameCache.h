// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/DocumentStore.h"
#include <libxml/xmlstring.h>
#include <vector>

namespace xml {

/// Numbers of names by the address that the parser gives for a name: it keeps each name once, for the whole
/// parse.
class NameCache {
public:
    explicit NameCache(DocumentStore& store) : store_(store), slots_(1024) {}

    std::uint32_t id(const xmlChar* name) {
        std::size_t slot = hash(name);
        while (slots_[slot].name != name) {
            if (!slots_[slot].name)
                return add(name);
            slot = (slot + 1) & (slots_.size() - 1);
        }
        return slots_[slot].id;
    }

    std::size_t size() const { return used_; }

private:
    struct Slot {
        const xmlChar* name = nullptr;
        std::uint32_t id = 0;
    };

    std::size_t hash(const xmlChar* name) const;
    std::uint32_t add(const xmlChar* name);
    void insert(Slot entry);

    DocumentStore& store_;
    std::vector<Slot> slots_; ///< a power of two of them, at most half full
    std::size_t used_ = 0;
};

inline std::size_t NameCache::hash(const xmlChar* name) const {
    const auto bits = reinterpret_cast<std::uintptr_t>(name);
    return ((bits * 0x9E3779B97F4A7C15ULL) >> 32) & (slots_.size() - 1);
}

} // namespace xml
