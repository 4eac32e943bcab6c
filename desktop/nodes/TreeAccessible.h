// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace desktop {

class TreeRowsView;

/// Makes trees readable by assistive programs: each open row is a child with its name, its place and whether
/// it is open, selected, or has the keys. Only the first call counts.
void InstallTreeAccessibility();

/// Another row is the current one.
void TellCurrentRow(TreeRowsView& view);

} // namespace desktop
