// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextParts.h"

namespace desktop {

/// A widget whose text assistive programs read and edit.
class AccessibleSource {
public:
    virtual TextParts Parts() = 0;

protected:
    ~AccessibleSource() = default;
};

/// Makes such widgets readable by assistive programs; only the first call counts.
void InstallTextAccessibility();

// --- what the widget tells them; costs nothing while none is running
void TellTextChanged(QWidget& view); ///< everything is new
void TellReplaced(QWidget& view, qsizetype at, qsizetype removed, const QString& text);
void TellSelection(QWidget& view, const TextState& state);

} // namespace desktop
