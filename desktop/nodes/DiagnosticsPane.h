// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/nodes/ListModel.h"
#include "schema/Diagnostics.h"
#include <QTreeView>

namespace desktop {

/// The list of diagnostics under the views. A click or Enter goes to a row's place.
class DiagnosticsPane : public QObject {
public:
    DiagnosticsPane(DocumentWindow& window, QTreeView& view);

private:
    void ShowRows();
    void ShowCurrent();

    schema::DiagnosticsState& state_;
    QTreeView& view_;
    ListModel rows_;
    int top_ = 0; ///< the first row in sight while all rows are made anew
};

} // namespace desktop
