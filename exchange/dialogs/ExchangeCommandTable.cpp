// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/ExchangeCommandTable.h"
#include "exchange/dialogs/ExchangeDialogs.h"

namespace exchange {

namespace {

void ExportText(DocumentWindow& window) {
    DialogsOf(window.app).ShowExportTxt(window);
}
void ExportToDatabase(DocumentWindow& window) {
    DialogsOf(window.app).ShowExportDB(window);
}

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuTExpToText"}}, .in = edit::In::XMLWindow}, .forms = {{0, ExportText}}},
    {.offer = {.entries = {{"mnuTExpToDb"}}, .in = edit::In::XMLWindow}, .forms = {{0, ExportToDatabase}}},
};
static_assert(edit::AreComplete(kCommands));

} // namespace

std::span<const edit::Command> ExchangeCommands() {
    return kCommands;
}

} // namespace exchange
