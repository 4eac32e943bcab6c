// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/dialogs/MakeDialogs.h"

class QWidget;

namespace desktop {

/// From now on the dialogs show as widgets in front of a window, which outlives them.
void FollowMakeDialogs(schema::MakeDialogs& dialogs, QWidget& window);

} // namespace desktop
