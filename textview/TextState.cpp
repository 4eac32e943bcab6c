// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextState.h"

namespace textview {

TextState& StateOf(DocumentWindow& window) {
    return window.rooms.of<TextState>();
}

void SetTextStatus(DocumentWindow& window, const controls::RichTextBox& pane) {
    StateOf(window).currentStatus = {pane.Content(), pane.SelStart(), pane.SelLength()};
}

} // namespace textview
