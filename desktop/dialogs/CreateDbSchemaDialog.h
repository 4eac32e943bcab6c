// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmCreateDBSchema.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmCreateDBSchema;
}

namespace desktop {

/// The widgets that make a schema of a database's tables.
class CreateDbSchemaDialog : public QDialog {
public:
    CreateDbSchemaDialog(exchange::frmCreateDBSchema& form, QWidget* parent);
    ~CreateDbSchemaDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmCreateDBSchema& form_;
    std::unique_ptr<Ui::frmCreateDBSchema> ui_;
};

} // namespace desktop
