// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct Application;

namespace mXMLEdit {

/// Waits on the clock, up to the end of the hour; nothing else runs meanwhile.
void Delay(Application& app, int milliseconds);

} // namespace mXMLEdit
