// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/MakeSkin.h"
#include "desktop/base/Listen.h"
#include "desktop/dialogs/InferSchemaDialog.h"
#include "desktop/dialogs/ValidSampleDialog.h"

namespace desktop {

void FollowMakeDialogs(schema::MakeDialogs& dialogs, QWidget& window) {
    Listen(dialogs.validSampleShown, &window,
           [&window](schema::frmValidSample& form) { ValidSampleDialog(form, &window).exec(); });
    Listen(dialogs.inferSchemaShown, &window,
           [&window](schema::frmInferSchema& form) { InferSchemaDialog(form, &window).exec(); });
}

} // namespace desktop
