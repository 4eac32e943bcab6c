// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/BorrowedAttention.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include <utility>

namespace nodes {

// No edits: a view that follows the current node would take the user's place in it away.

void BorrowedAttention::Take(DocumentWindow& window, int context) {
    const int had = window.miPopupContext == 0 ? kContextTree : window.miPopupContext;
    if (!found_)
        found_ = Found{had, edit::miCurrentView(window)};
    edit::Attend(window, context);
}

void BorrowedAttention::GiveBack(DocumentWindow& window) {
    const auto found = std::exchange(found_, std::nullopt);
    if (found && edit::miCurrentView(window) == found->view)
        edit::Attend(window, found->context);
}

} // namespace nodes
