// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/dialogs/MakeDialogs.h"
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

/// From now on the dialogs show as widgets in front of a window, which outlives them.
void FollowMakeDialogs(schema::MakeDialogs& dialogs, QWidget& window);

} // namespace desktop
