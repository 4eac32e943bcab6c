// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ImportDbDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/dialogs/ExchangeParts.h"
#include "ui_frmImportDB.h"

namespace desktop {

ImportDbDialog::ImportDbDialog(exchange::frmImportDB& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmImportDB>()) {
    ui_->setupUi(this);
    BindForm(*this, form,
             {{"cmbTable", &form.cmbTable},
              {"txtSQL", &form.txtSQL},
              {"chkAttr", &form.chkAttr},
              {"chkRepair", &form.chkRepair},
              {"cmbEnc", &form.cmbEnc},
              {"cmdPre", &form.cmdPre},
              {"txtSample", &form.txtSample}},
             SourceControls(*this, form.source));
    Listen(form.focusPreview, this, [this] { ui_->cmdPre->setFocus(); });
    QMetaObject::invokeMethod(
        this, [this] { form_.Form_Activate(); }, Qt::QueuedConnection); // once it is to be seen
}

ImportDbDialog::~ImportDbDialog() = default;

void ImportDbDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
