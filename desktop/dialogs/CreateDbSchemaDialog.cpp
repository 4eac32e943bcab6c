// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/CreateDbSchemaDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/NewDsnDialog.h"
#include "ui_frmCreateDBSchema.h"

namespace desktop {

CreateDbSchemaDialog::CreateDbSchemaDialog(exchange::frmCreateDBSchema& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmCreateDBSchema>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"optOdbc", &form.source.optOdbc},
                         {"cmbDSN", &form.source.cmbDSN},
                         {"cmdNewDSN", &form.source.cmdNewDSN},
                         {"optAccess", &form.source.optAccess},
                         {"txtDS", &form.source.txtDS},
                         {"cmdAccess", &form.source.cmdAccess},
                         {"chkAttr", &form.chkAttr},
                         {"chkRepair", &form.chkRepair},
                         {"cmdPre", &form.cmdPre},
                         {"txtSample", &form.txtSample},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.source.newDSNShown, this,
           [this](exchange::frmNewDSN& dialog) { NewDsnDialog(dialog, this).exec(); });
    Listen(form.unloaded, this, [this] { accept(); });
}

CreateDbSchemaDialog::~CreateDbSchemaDialog() = default;

void CreateDbSchemaDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
