// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/dialogs/ExchangeDialogs.h"

class QWidget;

namespace desktop {

/// From now on the dialogs of data in and out show as widgets in front of a window, which outlives them.
void FollowExchange(exchange::ExchangeDialogs& dialogs, QWidget& window);

} // namespace desktop
