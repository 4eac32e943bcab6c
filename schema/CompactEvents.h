// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace schema {

/// Joins the controls of the compact view with what they do.
void ConnectCompactView(DocumentWindow& window);

} // namespace schema
