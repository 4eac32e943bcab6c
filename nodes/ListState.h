// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <cstdint>
#include <optional>

namespace nodes {

/// What a window keeps for its list.
struct ListState {
    bool mbIsEditValue = false; ///< a cell is being edited
    bool bRefused = false;      ///< with what was refused last
    QString msListEditKey;      ///< key of the row of that cell
    // Where the list was scrolled to when the editor was laid over it, and the place that the editor comes
    // back to from out of sight; in twips.
    int miListFirstVisible = 1;
    double mdListLeft = 0, mdSavedLeft = 0;
    /// Of the tree, as the rows show it; nothing: the rows show what is gone.
    std::optional<std::uint64_t> shownRevision;
};

ListState& ListOf(DocumentWindow& window);

/// Whether the rows show the current node as it is.
bool RowsAreCurrent(DocumentWindow& window);
/// A change of the tree is in its row already: the list needn't be filled anew for it. For rows that were
/// current right before the change.
void RowsFollowed(DocumentWindow& window);

} // namespace nodes
