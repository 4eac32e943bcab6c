// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ImportDbDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/NewDsnDialog.h"
#include "ui_frmImportDB.h"

namespace desktop {

ImportDbDialog::ImportDbDialog(exchange::frmImportDB& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmImportDB>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"optOdbc", &form.source.optOdbc},
                         {"cmbDSN", &form.source.cmbDSN},
                         {"cmdNewDSN", &form.source.cmdNewDSN},
                         {"optAccess", &form.source.optAccess},
                         {"txtDS", &form.source.txtDS},
                         {"cmdAccess", &form.source.cmdAccess},
                         {"cmbTable", &form.cmbTable},
                         {"txtSQL", &form.txtSQL},
                         {"chkAttr", &form.chkAttr},
                         {"chkRepair", &form.chkRepair},
                         {"cmbEnc", &form.cmbEnc},
                         {"cmdPre", &form.cmdPre},
                         {"txtSample", &form.txtSample},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.source.newDSNShown, this,
           [this](exchange::frmNewDSN& dialog) { NewDsnDialog(dialog, this).exec(); });
    Listen(form.focusPreview, this, [this] { ui_->cmdPre->setFocus(); });
    QMetaObject::invokeMethod(
        this, [this] { form_.Form_Activate(); }, Qt::QueuedConnection); // once it is to be seen
    Listen(form.unloaded, this, [this] { accept(); });
}

ImportDbDialog::~ImportDbDialog() = default;

void ImportDbDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
