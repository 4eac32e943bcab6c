// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/base/ControlEvents.h"
#include "desktop/table/CellEditor.h"
#include "desktop/table/SumBox.h"

namespace desktop {

/// The editors that are laid over cells.
class SheetEditors {
public:
    SheetEditors(DocumentWindow& window, QWidget& view)
        : cell_(window, window.txtTView, view, QStringLiteral("txtTView")),
          header_(window, window.txtTViewHeader, view, QStringLiteral("txtTViewHeader")), sum_(window, view) {
    }

private:
    CellEditor cell_, header_;
    SumBox sum_;
};

} // namespace desktop
