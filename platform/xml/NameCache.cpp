// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/NameCache.h"

namespace xml {

std::uint32_t NameCache::add(const xmlChar* name) {
    if (used_ * 2 >= slots_.size()) {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.name)
                insert(slot);
        }
    }
    const Slot entry{name, store_.nameId(QString::fromUtf8(reinterpret_cast<const char*>(name)))};
    insert(entry);
    ++used_;
    return entry.id;
}

void NameCache::insert(Slot entry) {
    std::size_t slot = hash(entry.name);
    while (slots_[slot].name)
        slot = (slot + 1) & (slots_.size() - 1);
    slots_[slot] = entry;
}

} // namespace xml
