// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Joins the list and its cell editor to their commands.
void ConnectList(DocumentWindow& window);

} // namespace nodes
