// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "textview/dialogs/frmFind.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmFind;
}

namespace desktop {

/// The widgets of the find dialog. It stands above the main window, which stays within reach, and makes way
/// for what it finds there.
class FindDialog : public QDialog {
public:
    FindDialog(textview::frmFind& form, QWidget* parent);
    ~FindDialog() override;
    void ShowInFront();     ///< ready for what is to be found
    void reject() override; ///< Esc and the title bar's button cancel

private:
    void PlaceAside();
    void UncoverHit();

    textview::frmFind& form_;
    std::unique_ptr<Ui::frmFind> ui_;
};

} // namespace desktop
