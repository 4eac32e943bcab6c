// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The clipboard of the list.
namespace nodes {

/// Rows as text.
struct RowsXML {
    QString nodes;      ///< as XML, one behind the other
    QString attributes; ///< joined by blanks
    std::vector<controls::TreeNode> copied = {};
    /// What other programs get: of both kinds the nodes.
    const QString& text() const { return nodes.isEmpty() ? attributes : nodes; }
};
RowsXML GetCopiedListViewItemsXML(DocumentWindow& window); ///< the selected rows

/// All selected rows or, with false, none: none is selected, or one of them has no text form, which is told;
/// the clipboard is as it was then. False also where something below them has none (see TellWhatCopyLacks).
bool CopyListViewItems(DocumentWindow& window);
void CutListViewItems(DocumentWindow& window); ///< only what was copied is deleted (quirk 4)
/// Attributes go into the element of the current row, or the one on show; nodes go under the node on show.
/// All of it or nothing: what doesn't fit is told.
void PasteListViewItems(DocumentWindow& window);
/// Pastes under the current row's element; the list stays on its node.
void PasteTreeNodeToListView(DocumentWindow& window);

} // namespace nodes
