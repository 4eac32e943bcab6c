// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QLatin1String>
#include <QString>
#include <cstddef>
#include <span>

// The menu entries that insert schema elements.
namespace schema {

struct InsertEntry {
    const char* entry;
    const char* element; ///< local name of what it inserts, and its caption
    bool inserts = true;
};
inline constexpr std::size_t kInsertEntries = 42;
std::span<const InsertEntry, kInsertEntries> InsertEntries();

/// Whether an entry is offered at an element with a local name, which counts in its very case.
bool OffersInsert(const QString& element, QLatin1String entry);

} // namespace schema
