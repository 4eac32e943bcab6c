// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExchangeSkin.h"
#include "desktop/base/Listen.h"
#include "desktop/dialogs/CreateDbSchemaDialog.h"
#include "desktop/dialogs/ExportDbDialog.h"
#include "desktop/dialogs/ExportTxtDialog.h"
#include "desktop/dialogs/ImportDbDialog.h"
#include "desktop/dialogs/ImportTxtDialog.h"

namespace desktop {

namespace {

template <typename Dialog, typename Form> void Show(controls::Event<Form&>& shown, QWidget& window) {
    Listen(shown, &window, [&window](Form& form) { Dialog(form, &window).exec(); });
}

} // namespace

void FollowExchange(exchange::ExchangeDialogs& dialogs, QWidget& window) {
    Show<ImportTxtDialog>(dialogs.importTxtShown, window);
    Show<ImportDbDialog>(dialogs.importDBShown, window);
    Show<CreateDbSchemaDialog>(dialogs.createDBSchemaShown, window);
    Show<ExportTxtDialog>(dialogs.exportTxtShown, window);
    Show<ExportDbDialog>(dialogs.exportDBShown, window);
}

} // namespace desktop
