// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmImportTxt.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmImportTxt;
}

namespace desktop {

/// The widgets of the import of delimited text.
class ImportTxtDialog : public QDialog {
public:
    ImportTxtDialog(exchange::frmImportTxt& form, QWidget* parent);
    ~ImportTxtDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmImportTxt& form_;
    std::unique_ptr<Ui::frmImportTxt> ui_;
};

} // namespace desktop
