// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaCommandTable.h"
#include "schema/Extensions.h"
#include "schema/InsertElements.h"
#include "schema/InsertMenu.h"
#include <vector>

namespace schema {

namespace {

using edit::In;
using edit::Target;

bool OffersMsSql(const Target& target) {
    return target.offersMsSql;
}
bool OffersOracle(const Target& target) {
    return target.offersOracle;
}

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{.name = "mnuSEnaMsSQL", .checked = OffersMsSql}}, .in = In::SchemaWindow},
     .forms = {{0, ToggleMSSQL}}},
    {.offer = {.entries = {{.name = "mnuSEnaOra", .checked = OffersOracle}}, .in = In::SchemaWindow},
     .forms = {{0, ToggleOracle}}},
};

// One for each entry of the menu of schema elements. Which of them are there is told by OffersInsert.
template <std::size_t number> void Insert(DocumentWindow& window) {
    if (const char* element = InsertEntries()[number].element)
        NewSchemaStuff(window, QLatin1String(element));
}

template <std::size_t... numbers> std::vector<edit::Command> AllCommands(std::index_sequence<numbers...>) {
    std::vector<edit::Command> all(std::begin(kCommands), std::end(kCommands));
    (all.push_back({.offer = {.entries = {{InsertEntries()[numbers].entry}}, .offered = ""},
                    .forms = {{kContextTree, Insert<numbers>}, {kContextList, Insert<numbers>}}}),
     ...);
    return all;
}

} // namespace

std::span<const edit::Command> SchemaCommands() {
    static const std::vector<edit::Command> all = AllCommands(std::make_index_sequence<kInsertEntries>());
    return all;
}

} // namespace schema
