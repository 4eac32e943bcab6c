// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/NewDsnDialog.h"
#include "desktop/dialogs/ExchangeParts.h"
#include "ui_frmNewDSN.h"

namespace desktop {

NewDsnDialog::NewDsnDialog(exchange::frmNewDSN& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmNewDSN>()) {
    ui_->setupUi(this);
    BindForm(*this, form,
             {{"cmbDriver", &form.cmbDriver},
              {"txtName", &form.txtName},
              {"txtDatabase", &form.txtDatabase},
              {"cmdFile", &form.cmdFile},
              {"txtServer", &form.txtServer},
              {"txtPort", &form.txtPort},
              {"txtUser", &form.txtUser},
              {"txtPassword", &form.txtPassword}});
}

NewDsnDialog::~NewDsnDialog() = default;

void NewDsnDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
