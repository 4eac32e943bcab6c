// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaCommandTable.h"
#include "schema/BindSchema.h"
#include "schema/Diagnostics.h"
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

bool HasDiagnostics(const Target& target) {
    return target.hasDiagnostics;
}

void ChooseAndApplySchema(DocumentWindow& window) {
    ApplySchema(window);
}

// clang-format off
//                           none tree   list   text   table  other
//                               root node sel none sel none sel none
constexpr char kOnFaults[] = "D  k k  k k  k k  k k  k";
// clang-format on

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuGotoSchema"}}, .in = In::XMLWindow}, .forms = {{0, ShowSchema}}},
    {.offer = {.entries = {{"mnuApplySchema"}}, .in = In::XMLWindow}, .forms = {{0, ChooseAndApplySchema}}},
    {.offer = {.entries = {{"mnuNextDiagnostic", HasDiagnostics}}, .offered = kOnFaults},
     .forms = {{0, NextDiagnostic}},
     .before = edit::Before::EndsEdits},
    {.offer = {.entries = {{"mnuPreviousDiagnostic", HasDiagnostics}}, .offered = kOnFaults},
     .forms = {{0, PreviousDiagnostic}},
     .before = edit::Before::EndsEdits},
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
