// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExportDbDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/NewDsnDialog.h"
#include "ui_frmExportDB.h"

namespace desktop {

ExportDbDialog::ExportDbDialog(exchange::frmExportDB& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmExportDB>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"cmbDSN", &form.source.cmbDSN},
                         {"cmdNewDSN", &form.source.cmdNewDSN},
                         {"cmbGrid", &form.cmbGrid},
                         {"chkGrid", &form.chkGrid},
                         {"txtSQL", &form.txtSQL},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.source.newDSNShown, this,
           [this](exchange::frmNewDSN& dialog) { NewDsnDialog(dialog, this).exec(); });
    QMetaObject::invokeMethod(
        this, [this] { form_.Form_Activate(); }, Qt::QueuedConnection); // once it is to be seen
    Listen(form.unloaded, this, [this] { accept(); });
}

ExportDbDialog::~ExportDbDialog() = default;

void ExportDbDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
