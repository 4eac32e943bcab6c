// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmExportTxt.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmExportTxt;
}

namespace desktop {

/// The widgets of the export as delimited text.
class ExportTxtDialog : public QDialog {
public:
    ExportTxtDialog(exchange::frmExportTxt& form, QWidget* parent);
    ~ExportTxtDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmExportTxt& form_;
    std::unique_ptr<Ui::frmExportTxt> ui_;
};

} // namespace desktop
