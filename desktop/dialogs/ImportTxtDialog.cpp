// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ImportTxtDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/SampleModel.h"
#include "ui_frmImportTxt.h"
#include <algorithm>

namespace desktop {

namespace {

// The first columns are as wide as what they show; measuring thousands would take longer than reading them.
void FitColumns(QTableView& grid) {
    constexpr int kFitted = 50, kWidest = 200; // columns, pixels
    for (int column = 0; column < std::min(kFitted, grid.model()->columnCount()); ++column) {
        grid.resizeColumnToContents(column);
        grid.setColumnWidth(column, std::min(grid.columnWidth(column), kWidest));
    }
}

} // namespace

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
    auto* sample = new SampleModel(form.grdSample, this);
    ui_->grdSample->setModel(sample);
    connect(sample, &SampleModel::modelReset, this, [this] { FitColumns(*ui_->grdSample); });
    ui_->cmdOpenFile->setFocus(); // everything begins with the file
    Listen(form.unloaded, this, [this] { accept(); });
}

ImportTxtDialog::~ImportTxtDialog() = default;

void ImportTxtDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
