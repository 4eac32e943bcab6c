// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ImportTxtDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/SampleModel.h"
#include "ui_frmImportTxt.h"

namespace desktop {

ImportTxtDialog::ImportTxtDialog(exchange::frmImportTxt& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmImportTxt>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"cmdOpenFile", &form.cmdOpenFile},
                         {"lblFile", &form.lblFile},
                         {"chkFirst", &form.chkFirst},
                         {"chkUseAttr", &form.chkUseAttr},
                         {"chkRepair", &form.chkRepair},
                         {"optChoose0", &form.delimiter.optChoose[0]},
                         {"optChoose1", &form.delimiter.optChoose[1]},
                         {"optChoose2", &form.delimiter.optChoose[2]},
                         {"optChoose3", &form.delimiter.optChoose[3]},
                         {"optChoose4", &form.delimiter.optChoose[4]},
                         {"txtOther", &form.delimiter.txtOther},
                         {"cmbQualifier", &form.cmbQualifier},
                         {"cmbEnc", &form.cmbEnc},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    ui_->grdSample->setModel(new SampleModel(form.grdSample, this));
    ui_->cmdOpenFile->setFocus(); // everything begins with the file
    Listen(form.unloaded, this, [this] { accept(); });
}

ImportTxtDialog::~ImportTxtDialog() = default;

void ImportTxtDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
