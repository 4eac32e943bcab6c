// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace edit {

/// Loads the views of the window's kind and joins the tab strip to them.
void LoadViews(DocumentWindow& window);
/// The window is closing for good.
void UnloadViews(DocumentWindow& window);

} // namespace edit
