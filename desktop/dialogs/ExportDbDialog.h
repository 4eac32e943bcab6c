// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmExportDB.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmExportDB;
}

namespace desktop {

/// The widgets of the export into a database.
class ExportDbDialog : public QDialog {
public:
    ExportDbDialog(exchange::frmExportDB& form, QWidget* parent);
    ~ExportDbDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmExportDB& form_;
    std::unique_ptr<Ui::frmExportDB> ui_;
};

} // namespace desktop
