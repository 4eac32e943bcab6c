// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExportDbDialog.h"
#include "desktop/dialogs/ExchangeParts.h"
#include "ui_frmExportDB.h"

namespace desktop {

ExportDbDialog::ExportDbDialog(exchange::frmExportDB& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmExportDB>()) {
    ui_->setupUi(this);
    BindForm(*this, form,
             {{"cmbLevel", &form.cmbLevel},
              {"cmbGrid", &form.cmbGrid},
              {"txtTable", &form.txtTable},
              {"chkGrid", &form.chkGrid},
              {"txtSQL", &form.txtSQL}},
             SourceControls(*this, form.source, false));
    QMetaObject::invokeMethod(
        this, [this] { form_.Form_Activate(); }, Qt::QueuedConnection); // once it is to be seen
}

ExportDbDialog::~ExportDbDialog() = default;

void ExportDbDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
