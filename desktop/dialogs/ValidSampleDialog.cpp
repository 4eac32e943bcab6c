// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ValidSampleDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "ui_frmValidSample.h"

namespace desktop {

ValidSampleDialog::ValidSampleDialog(schema::frmValidSample& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmValidSample>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"cmbRoot", &form.cmbRoot},
                         {"optMinimal", &form.optMinimal},
                         {"optTypical", &form.optTypical},
                         {"optAll", &form.optAll},
                         {"txtSeed", &form.txtSeed},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.unloaded, this, [this] { accept(); });
}

ValidSampleDialog::~ValidSampleDialog() = default;

void ValidSampleDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
