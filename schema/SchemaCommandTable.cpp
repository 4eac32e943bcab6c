// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaCommandTable.h"
#include "schema/BindSchema.h"
#include "schema/CompactEdits.h"
#include "schema/CompactList.h"
#include "schema/CompactState.h"
#include "schema/DiagnosticWalk.h"
#include "schema/Extensions.h"
#include "schema/InferSchema.h"
#include "schema/InsertElements.h"
#include "schema/InsertMenu.h"
#include "schema/SampleDocument.h"
#include "schema/SchemaState.h"
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

bool HasList(const Target& target) {
    return target.hasDiagnostics;
}

void ChooseAndApplySchema(DocumentWindow& window) {
    ApplySchema(window);
}

// clang-format off
//                           none tree   list   text   table  other root of
//                               root node sel none sel none sel none   a schema
constexpr char kOnFaults[] = "D  k k  k k  k k  k k  k";
constexpr char kOnNodes[] =  "D  D k  k k  D D  D D  D   k";
// clang-format on

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuGotoSchema"}}, .in = In::XMLWindow}, .forms = {{0, ShowSchema}}},
    {.offer = {.entries = {{"mnuApplySchema"}}, .in = In::XMLWindow}, .forms = {{0, ChooseAndApplySchema}}},
    {.offer = {.entries = {{"mnuGenSchema"}}, .in = In::XMLWindow}, .forms = {{0, GenerateSchema}}},
    {.offer = {.entries = {{"mnuNextDiagnostic", HasList}}, .offered = kOnFaults},
     .forms = {{0, NextDiagnostic}},
     .before = edit::Before::EndsEdits},
    {.offer = {.entries = {{"mnuPreviousDiagnostic", HasList}}, .offered = kOnFaults},
     .forms = {{0, PreviousDiagnostic}},
     .before = edit::Before::EndsEdits},
    {.offer = {.entries = {{"mnuSGenXML"}}, .in = In::SchemaWindow}, .forms = {{0, GenXMLBySchema}}},
    {.offer = {.entries = {{.name = "mnuSEnaMsSQL", .checked = OffersMsSql}}, .in = In::SchemaWindow},
     .forms = {{0, ToggleMSSQL}}},
    {.offer = {.entries = {{.name = "mnuSEnaOra", .checked = OffersOracle}}, .in = In::SchemaWindow},
     .forms = {{0, ToggleOracle}}},
};

constexpr edit::CommandForm kForms[] = {
    {"mnuNewCNode", {kContextCompact, AddNewNodeAtCV}},
    {"mnuNewAttr", {kContextCompact, AddNewAttrAtCV}},
    {"mnuNewNodeText", {kContextCompact, AddNewNodeTextAtCV}},
    {"mnuEditName", {kContextCompact, EditAtCompactView}},
    {"mnuEditValue", {kContextCompact, EditValueAtCompactView}},
    {"mnuEditCopy", {kContextCompact, CopyAtCompactView}},
    {"mnuEditCut", {kContextCompact, CutAtCompactView}},
    {"mnuDelete", {kContextCompact, DeleteAtCompactView}},
};

static_assert(edit::AreComplete(kCommands) && edit::IsComplete(kOnNodes));

// One for each entry of the menu of schema elements.
template <std::size_t number> bool InsertFits(const Target& target) {
    const QLatin1String entry(InsertEntries()[number].entry);
    if (target.kind == m_tvXML::kTreeRoot)
        return entry == QLatin1String("mnuNewSSchema") && !target.hasRootElement;
    return OffersInsert(target.elementName, entry);
}

template <std::size_t number> void Insert(DocumentWindow& window) {
    if (InsertEntries()[number].inserts)
        NewSchemaStuff(window, QLatin1String(InsertEntries()[number].element));
}

template <std::size_t... numbers> std::vector<edit::Command> AllCommands(std::index_sequence<numbers...>) {
    std::vector<edit::Command> all(std::begin(kCommands), std::end(kCommands));
    (all.push_back({.offer = {.entries = {{.name = InsertEntries()[numbers].entry,
                                           .allowed = InsertFits<numbers>,
                                           .hides = true}},
                              .offered = kOnNodes,
                              .in = In::SchemaWindow},
                    .forms = {{kContextTree, Insert<numbers>}, {kContextList, Insert<numbers>}}}),
     ...);
    return all;
}

} // namespace

void DescribeTarget(DocumentWindow& window, const controls::TreeNode& node, edit::Target& target) {
    if (m_tvXML::IsElement(node))
        target.elementName = LocalName(node.Text());
    if (window.miPopupContext == kContextCompact) {
        target.instance = SelectedInInstance(window);
        target.hasInstance = !CompactOf(window).tvRes.SelectedItem().IsNothing();
    }
    target.offersMsSql = OffersMSSQL(window);
    target.offersOracle = OffersOracle(window);
}

std::span<const edit::Command> SchemaCommands() {
    static const std::vector<edit::Command> all = AllCommands(std::make_index_sequence<kInsertEntries>());
    return all;
}

std::span<const edit::CommandForm> SchemaForms() {
    return kForms;
}

} // namespace schema
