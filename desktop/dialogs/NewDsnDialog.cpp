// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/NewDsnDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "ui_frmNewDSN.h"

namespace desktop {

NewDsnDialog::NewDsnDialog(exchange::frmNewDSN& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmNewDSN>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"cmbDriver", &form.cmbDriver},
                         {"txtName", &form.txtName},
                         {"txtDatabase", &form.txtDatabase},
                         {"cmdFile", &form.cmdFile},
                         {"txtServer", &form.txtServer},
                         {"txtPort", &form.txtPort},
                         {"txtUser", &form.txtUser},
                         {"txtPassword", &form.txtPassword},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.unloaded, this, [this] { accept(); });
}

NewDsnDialog::~NewDsnDialog() = default;

void NewDsnDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
