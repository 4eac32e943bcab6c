// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListState.h"

namespace nodes {

ListState& ListOf(DocumentWindow& window) {
    return window.rooms.of<ListState>();
}

void ShowRowsAnew(DocumentWindow& window) {
    ListOf(window).shownRevision.reset();
}

bool RowsAreCurrent(DocumentWindow& window) {
    const controls::TreeNode node = window.tvXML.SelectedItem();
    return ListOf(window).shownRevision == window.tvXML.Revision() &&
           window.ListView1.Tag == (node ? node.Key() : QString());
}

void RowsFollowed(DocumentWindow& window) {
    ListOf(window).shownRevision = window.tvXML.Revision();
}

} // namespace nodes
