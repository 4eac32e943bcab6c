// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/controls/Controls.h"

namespace schema {

/// The dialog that says what a valid sample is to be.
class frmValidSample {
public:
    explicit frmValidSample(DocumentWindow& window);
    frmValidSample(const frmValidSample&) = delete;
    frmValidSample& operator=(const frmValidSample&) = delete;

    controls::ComboBox cmbRoot; ///< the root element
    controls::OptionButton optMinimal, optTypical, optAll;
    controls::TextBox txtSeed; ///< a number: another one makes another sample
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    void Form_Load();
    void OKButton_Click(); ///< closes, and opens the sample

private:
    DocumentWindow& window_;
};

} // namespace schema
