// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "platform/controls/FlexGrid.h"

class QKeyEvent;

namespace desktop {

class SheetBase;

/// What keys do in the grid that the user touched last: they move the current cell, with Shift the
/// selection's other end, from the last row on into the next grid; all others go to the grid's events.
class SheetKeys : public QObject {
public:
    explicit SheetKeys(SheetBase& view);
    bool Press(const QKeyEvent& event); ///< true when the key is used

private:
    bool MoveBy(const QKeyEvent& event);
    bool StepOut(controls::FlexGrid& grid, int row);
    int PageRows(const controls::FlexGrid& grid) const;

    SheetBase& view_;
    ControlEvents events_;
};

} // namespace desktop
