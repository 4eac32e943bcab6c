// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace schema {

/// Builds the instance from the schema as it stands, and fills the list beside it. What is open and selected
/// stays, but where an edit wants its own outcome selected. A missing root declaration is told with `tell`.
void BuildInstance(DocumentWindow& window, bool tell);

} // namespace schema
