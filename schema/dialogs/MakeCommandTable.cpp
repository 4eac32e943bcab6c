// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/MakeCommandTable.h"
#include "schema/dialogs/MakeDialogs.h"

namespace schema {

namespace {

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuInferSchema"}}, .in = edit::In::XMLWindow}, .forms = {{0, ShowInferSchema}}},
    {.offer = {.entries = {{"mnuSValidSample"}}, .in = edit::In::SchemaWindow},
     .forms = {{0, ShowValidSample}}},
};
static_assert(edit::AreComplete(kCommands));

} // namespace

std::span<const edit::Command> MakeCommands() {
    return kCommands;
}

} // namespace schema
