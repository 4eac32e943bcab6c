// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/frmOptions.h"
#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class frmOptions;
}
class QPushButton;

namespace desktop {

/// The widgets of the options dialog.
class OptionsDialog : public QDialog {
public:
    OptionsDialog(frmOptions& form, QWidget* parent);
    ~OptionsDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    std::function<void(QWidget&)> Sample(ColourSample& sample, QPushButton& button);
    void ShowFont();

    frmOptions& form_;
    std::unique_ptr<Ui::frmOptions> ui_;
};

} // namespace desktop
