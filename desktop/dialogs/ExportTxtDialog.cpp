// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExportTxtDialog.h"
#include "desktop/dialogs/ExchangeParts.h"
#include "ui_frmExportTxt.h"

namespace desktop {

ExportTxtDialog::ExportTxtDialog(exchange::frmExportTxt& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmExportTxt>()) {
    ui_->setupUi(this);
    BindForm(*this, form,
             {{"optAll", &form.optAll},
              {"optLimitLs", &form.optLimitLs},
              {"txtLs", &form.txtLs},
              {"chkUseAttr", &form.chkUseAttr},
              {"chkFirst", &form.chkFirst},
              {"chkOnlySelected", &form.chkOnlySelected},
              {"chkPlain", &form.chkPlain},
              {"cmdPreview", &form.cmdPreview},
              {"txtSample", &form.txtSample}},
             DelimiterControls(form.delimiter));
}

ExportTxtDialog::~ExportTxtDialog() = default;

void ExportTxtDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
