// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/MakeDialogs.h"
#include "schema/dialogs/frmValidSample.h"

namespace schema {

MakeDialogs& MakeDialogsOf(Application& app) {
    return app.rooms.of<MakeDialogs>();
}

void ShowValidSample(DocumentWindow& window) {
    frmValidSample dialog(window);
    dialog.Form_Load();
    MakeDialogsOf(window.app).validSampleShown(dialog);
}

} // namespace schema
