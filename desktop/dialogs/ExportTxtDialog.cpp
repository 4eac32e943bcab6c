// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExportTxtDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "ui_frmExportTxt.h"

namespace desktop {

ExportTxtDialog::ExportTxtDialog(exchange::frmExportTxt& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmExportTxt>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"optAll", &form.optAll},
                         {"optLimitLs", &form.optLimitLs},
                         {"txtLs", &form.txtLs},
                         {"chkUseAttr", &form.chkUseAttr},
                         {"chkFirst", &form.chkFirst},
                         {"chkOnlySelected", &form.chkOnlySelected},
                         {"chkPlain", &form.chkPlain},
                         {"optChoose0", &form.delimiter.optChoose[0]},
                         {"optChoose1", &form.delimiter.optChoose[1]},
                         {"optChoose2", &form.delimiter.optChoose[2]},
                         {"optChoose3", &form.delimiter.optChoose[3]},
                         {"optChoose4", &form.delimiter.optChoose[4]},
                         {"txtOther", &form.delimiter.txtOther},
                         {"cmdPreview", &form.cmdPreview},
                         {"txtSample", &form.txtSample},
                         {"lblNote", &form.lblNote},
                         {"OKButton", &form.OKButton},
                         {"CancelButton", &form.CancelButton}});
    Listen(form.unloaded, this, [this] { accept(); });
}

ExportTxtDialog::~ExportTxtDialog() = default;

void ExportTxtDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
