// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace textview {

/// Joins the events of a text pane; `second`: the lower one. A pane that gets the focus, or changes without
/// the program's doing, is the one in use, whichever was before.
void ConnectPane(DocumentWindow& window, controls::RichTextBox& pane, bool second);

} // namespace textview
