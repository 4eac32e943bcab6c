// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/ExchangeDialogs.h"
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "exchange/dialogs/frmExportDB.h"
#include "exchange/dialogs/frmExportTxt.h"
#include "exchange/dialogs/frmImportDB.h"
#include "exchange/dialogs/frmImportTxt.h"

namespace exchange {

namespace {

template <typename Form> void Show(Application& app, const controls::Event<Form&>& shown) {
    Form dialog(app);
    dialog.Form_Load();
    shown(dialog);
}

// What goes out is the tree: a text that doesn't parse isn't in it.
bool MayExport(DocumentWindow& window) {
    if (!window.bond.refused())
        return true;
    window.app.services.prompts.MsgBox(
        QStringLiteral("The text of this document does not parse. It can be exported when it does."),
        services::Buttons::Ok, services::Icon::Exclamation);
    return false;
}

} // namespace

void ExchangeDialogs::ShowImportTxt() {
    Show(app_, importTxtShown);
}

void ExchangeDialogs::ShowImportDB() {
    Show(app_, importDBShown);
}

void ExchangeDialogs::ShowCreateDBSchema() {
    Show(app_, createDBSchemaShown);
}

void ExchangeDialogs::ShowExportTxt(DocumentWindow& window) {
    if (!MayExport(window))
        return;
    frmExportTxt dialog(window);
    dialog.Form_Load();
    exportTxtShown(dialog);
}

void ExchangeDialogs::ShowExportDB(DocumentWindow& window) {
    if (!MayExport(window))
        return;
    frmExportDB dialog(window);
    if (dialog.Form_Load())
        exportDBShown(dialog);
}

ExchangeDialogs& DialogsOf(Application& app) {
    return app.rooms.of<ExchangeDialogs>(app);
}

} // namespace exchange
