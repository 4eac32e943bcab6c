// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/CreateDbSchemaDialog.h"
#include "desktop/dialogs/ExchangeParts.h"
#include "ui_frmCreateDBSchema.h"

namespace desktop {

CreateDbSchemaDialog::CreateDbSchemaDialog(exchange::frmCreateDBSchema& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmCreateDBSchema>()) {
    ui_->setupUi(this);
    BindForm(*this, form,
             {{"chkAttr", &form.chkAttr},
              {"chkRepair", &form.chkRepair},
              {"cmdPre", &form.cmdPre},
              {"txtSample", &form.txtSample}},
             SourceControls(*this, form.source));
}

CreateDbSchemaDialog::~CreateDbSchemaDialog() = default;

void CreateDbSchemaDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
