// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/frmNewDSN.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmNewDSN;
}

namespace desktop {

/// The widgets of a new data source.
class NewDsnDialog : public QDialog {
public:
    NewDsnDialog(exchange::frmNewDSN& form, QWidget* parent);
    ~NewDsnDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    exchange::frmNewDSN& form_;
    std::unique_ptr<Ui::frmNewDSN> ui_;
};

} // namespace desktop
