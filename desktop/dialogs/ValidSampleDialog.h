// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/dialogs/frmValidSample.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmValidSample;
}

namespace desktop {

/// The widgets that say what a valid sample is to be.
class ValidSampleDialog : public QDialog {
public:
    ValidSampleDialog(schema::frmValidSample& form, QWidget* parent);
    ~ValidSampleDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    schema::frmValidSample& form_;
    std::unique_ptr<Ui::frmValidSample> ui_;
};

} // namespace desktop
