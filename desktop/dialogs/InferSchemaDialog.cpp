// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/InferSchemaDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "ui_frmInferSchema.h"

namespace desktop {

InferSchemaDialog::InferSchemaDialog(schema::frmInferSchema& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmInferSchema>()) {
    ui_->setupUi(this);
    ui_->OKButton->setFocus(); // as a rule the document in front is all
    BindControls(*this, {{"lblDocument", &form.lblDocument},
                         {"txtFiles", &form.txtFiles},
                         {"cmdAdd", &form.cmdAdd},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.unloaded, this, [this] { accept(); });
}

InferSchemaDialog::~InferSchemaDialog() = default;

void InferSchemaDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
