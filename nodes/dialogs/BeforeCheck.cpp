// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/BeforeCheck.h"
#include "core/edit/NodePath.h"
#include "core/edit/View.h"

namespace nodes {

BeforeCheck::BeforeCheck(DocumentWindow& window)
    : window_(window), pane_(window.TextInUse()), error_(window.app.lastParseError), start_(pane_.SelStart()),
      length_(pane_.SelLength()) {}

void BeforeCheck::Restore() {
    window_.app.lastParseError = error_;
    if (pane_.SelStart() == start_ && pane_.SelLength() == length_)
        return;
    pane_.SetSelStart(start_);
    pane_.SetSelLength(length_);
    if (edit::Shows(window_, edit::kTextTab))
        edit::ShowCursorPosition(window_);
}

} // namespace nodes
