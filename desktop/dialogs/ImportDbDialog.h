// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmImportDB.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmImportDB;
}

namespace desktop {

/// The widgets of the import from a database.
class ImportDbDialog : public QDialog {
public:
    ImportDbDialog(exchange::frmImportDB& form, QWidget* parent);
    ~ImportDbDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmImportDB& form_;
    std::unique_ptr<Ui::frmImportDB> ui_;
};

} // namespace desktop
