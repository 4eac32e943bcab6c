// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/MakeDialogs.h"
#include "core/model/NodeNumbers.h"
#include "schema/dialogs/frmInferSchema.h"
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

void ShowInferSchema(DocumentWindow& window) {
    if (!m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML))
        return;
    frmInferSchema dialog(window);
    dialog.Form_Load();
    MakeDialogsOf(window.app).inferSchemaShown(dialog);
}

} // namespace schema
