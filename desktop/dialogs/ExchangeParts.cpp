// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/ExchangeParts.h"
#include "desktop/dialogs/NewDsnDialog.h"

namespace desktop {

std::vector<NamedControl> SourceControls(QDialog& dialog, exchange::SourceChoice& source, bool access) {
    Listen(source.newDSNShown, &dialog,
           [&dialog](exchange::frmNewDSN& form) { NewDsnDialog(form, &dialog).exec(); });
    std::vector<NamedControl> controls{{"cmbDSN", &source.cmbDSN}, {"cmdNewDSN", &source.cmdNewDSN}};
    if (access)
        controls.insert(controls.end(), {{"optOdbc", &source.optOdbc},
                                         {"optAccess", &source.optAccess},
                                         {"txtDS", &source.txtDS},
                                         {"cmdAccess", &source.cmdAccess}});
    return controls;
}

std::vector<NamedControl> DelimiterControls(exchange::DelimiterChoice& delimiter) {
    return {{"optChoose0", &delimiter.optChoose[0]}, {"optChoose1", &delimiter.optChoose[1]},
            {"optChoose2", &delimiter.optChoose[2]}, {"optChoose3", &delimiter.optChoose[3]},
            {"optChoose4", &delimiter.optChoose[4]}, {"txtOther", &delimiter.txtOther}};
}

} // namespace desktop
