// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace desktop {

class SheetBase;

/// Makes sheets readable by assistive programs: each is the table of its current grid. Only the first call
/// counts.
void InstallSheetAccessibility();
/// Another cell is current; costs nothing while no such program is running.
void TellCurrentCell(SheetBase& view);

} // namespace desktop
