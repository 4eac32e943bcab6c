// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/ExchangeDialogs.h"
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "exchange/dialogs/frmImportDB.h"
#include "exchange/dialogs/frmImportTxt.h"

namespace exchange {

namespace {

template <typename Form> void Show(Application& app, const controls::Event<Form&>& shown) {
    Form dialog(app);
    dialog.Form_Load();
    shown(dialog);
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

} // namespace exchange
