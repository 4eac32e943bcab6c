// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "textview/dialogs/frmFind.h"
#include <QDialog>
#include <memory>
#include <vector>

namespace Ui {
class frmFind;
}
class QCheckBox;
class QComboBox;
class QPushButton;
class QRadioButton;

namespace desktop {

class ControlEvents;

/// The widgets of the find dialog. It stands above the main window, which stays within reach, and makes way
/// for what it finds there.
class FindDialog : public QDialog {
public:
    FindDialog(frmFind& form, QWidget* parent);
    ~FindDialog() override;
    void ShowInFront();     ///< ready for what is to be found
    void reject() override; ///< Esc and the title bar's button cancel

private:
    void PlaceAside();
    void UncoverHit();
    void MakeBox(controls::ComboBox& model, QComboBox& widget);
    void MakeCheck(controls::CheckBox& model, QCheckBox& widget);
    void MakeOption(controls::OptionButton& model, QRadioButton& widget);
    void MakeButton(controls::CommandButton& model, QPushButton& widget);

    frmFind& form_;
    std::unique_ptr<Ui::frmFind> ui_;
    std::vector<std::unique_ptr<ControlEvents>> boxEvents_;
};

} // namespace desktop
