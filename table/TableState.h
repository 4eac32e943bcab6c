// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <optional>
#include <utility>

namespace table {

/// What a window keeps for its tables.
struct TableState {
    int miTableViewIndex = 0;           ///< the grid that the user last touched
    int miFocusTableIndex = 0;          ///< the grid that holds the row of the current node
    std::optional<int> mvFocusTableRow; ///< that row; nothing until one was found
    int miEditTableIndex = 0, miEditRow = 0, miEditCol = 0; ///< the cell that is being edited
    bool mbSkipTableClick = false; ///< the click that comes behind a double click leads nowhere
    bool mbIsEditValue = false;    ///< the command that edits a value opens the editor
    /// Of the tree, as the grids show it; nothing: they show what is gone.
    std::optional<std::uint64_t> shownRevision;
    double rowHeight = 300; ///< twips
    /// What the user made of the columns, by the names of table and column.
    QHash<std::pair<QString, QString>, double> widths;
};

TableState& TableOf(DocumentWindow& window);

} // namespace table
