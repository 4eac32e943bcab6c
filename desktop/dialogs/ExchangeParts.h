// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "exchange/dialogs/DelimiterChoice.h"
#include "exchange/dialogs/SourceChoice.h"
#include <QDialog>

// What the dialogs of data in and out share.
namespace desktop {

/// Binds a dialog's own controls, and those that all of them have: the note, OK and Cancel. The dialog closes
/// when its form is done with.
template <typename Form>
void BindForm(QDialog& dialog, Form& form, std::vector<NamedControl> controls,
              const std::vector<NamedControl>& shared = {}) {
    controls.insert(controls.end(), shared.begin(), shared.end());
    controls.push_back({"lblNote", &form.lblNote});
    controls.push_back({"OKButton", &form.OKButton});
    controls.push_back({"CancelButton", &form.CancelButton});
    BindControls(dialog, controls);
    Listen(form.unloaded, &dialog, [&dialog] { dialog.accept(); });
}

/// The choice of a source; with `access` of an Access file, too. A new source is made in a dialog before
/// `dialog`.
std::vector<NamedControl> SourceControls(QDialog& dialog, exchange::SourceChoice& source, bool access = true);
std::vector<NamedControl> DelimiterControls(exchange::DelimiterChoice& delimiter);

} // namespace desktop
