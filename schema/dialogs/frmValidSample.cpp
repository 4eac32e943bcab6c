// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/frmValidSample.h"
#include "core/edit/Guard.h"
#include "schema/dialogs/ValidSample.h"
#include <algorithm>

namespace schema {

frmValidSample::frmValidSample(DocumentWindow& window) : window_(window) {
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmValidSample::Form_Load() {
    const QStringList names = RootNames(window_);
    for (const QString& name : names)
        cmbRoot.AddItem(name);
    if (!names.isEmpty())
        cmbRoot.SetListIndex(0);
    optTypical.SetValue(true);
    txtSeed.SetText(QStringLiteral("1"));
}

// The dialog goes first: boxes and the bar come in front of the document.
void frmValidSample::OKButton_Click() {
    edit::Guarded(window_, "ValidSample", [&] {
        services::SampleWish wish;
        wish.amount = optMinimal.Value() ? services::SampleAmount::Minimal
                      : optAll.Value()   ? services::SampleAmount::All
                                         : services::SampleAmount::Typical;
        wish.seed = std::max(txtSeed.Text().trimmed().toInt(), 0);
        wish.root = cmbRoot.Text().trimmed();
        unloaded();
        OpenValidSample(window_, wish);
    });
}

} // namespace schema
