// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/BorrowedAttention.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include <utility>

namespace nodes {

namespace {

// No edit: a view that follows the current node would take the user's place in it away.
void Attend(DocumentWindow& window, int context) {
    edit::Attend(window, context);
    window.app.frame().RefreshMenu();
}

} // namespace

void BorrowedAttention::Take(DocumentWindow& window, int context) {
    const int had = window.miPopupContext == 0 ? kContextTree : window.miPopupContext;
    if (!found_)
        found_ = Found{had, edit::miCurrentView(window)};
    Attend(window, context);
}

void BorrowedAttention::GiveBack(DocumentWindow& window) {
    const auto found = std::exchange(found_, std::nullopt);
    if (found && edit::miCurrentView(window) == found->view)
        Attend(window, found->context);
}

} // namespace nodes
