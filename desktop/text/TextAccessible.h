// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace desktop {

class TextView;

/// Makes text views readable by assistive programs; only the first call counts.
void InstallTextAccessibility();

// --- what the view tells them; costs nothing while none is running
void TellTextChanged(TextView& view); ///< everything is new
void TellReplaced(TextView& view, qsizetype at, qsizetype removed, const QString& text);
void TellSelection(TextView& view);

} // namespace desktop
