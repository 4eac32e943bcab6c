// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ImportTxtDialog.h"
#include "desktop/dialogs/ExchangeParts.h"
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
    BindForm(*this, form,
             {{"cmdOpenFile", &form.cmdOpenFile},
              {"lblFile", &form.lblFile},
              {"chkFirst", &form.chkFirst},
              {"chkUseAttr", &form.chkUseAttr},
              {"chkRepair", &form.chkRepair},
              {"chkQuotes", &form.chkQuotes},
              {"cmbQualifier", &form.cmbQualifier},
              {"cmbEnc", &form.cmbEnc}},
             DelimiterControls(form.delimiter));
    auto* sample = new SampleModel(form.grdSample, this);
    ui_->grdSample->setModel(sample);
    connect(sample, &SampleModel::modelReset, this, [this] { FitColumns(*ui_->grdSample); });
    ui_->cmdOpenFile->setFocus(); // everything begins with the file
}

ImportTxtDialog::~ImportTxtDialog() = default;

void ImportTxtDialog::reject() {
    form_.CancelButton.Click();
}

} // namespace desktop
