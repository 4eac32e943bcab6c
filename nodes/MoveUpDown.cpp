// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/MoveUpDown.h"
#include "core/edit/Transaction.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListCommands.h"
#include "nodes/MoveNodes.h"

namespace nodes {

namespace {

void MoveUpOrDown(DocumentWindow& window, bool up) {
    if (!FinishAllEdits(window))
        return;
    if (window.miPopupContext == kContextList) {
        MoveUpDownOneItemAtListView(window, up);
        return;
    }
    MoveUpDownOneNodeAtTree(window, up);
    // Behind the edit: a text that the user is at work in keeps its caret.
    edit::Attend(window, kContextTree);
}

} // namespace

void MoveUp(DocumentWindow& window) {
    MoveUpOrDown(window, true);
}

void MoveDown(DocumentWindow& window) {
    MoveUpOrDown(window, false);
}

} // namespace nodes
