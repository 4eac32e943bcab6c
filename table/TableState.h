// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/NodeAddress.h"
#include "platform/controls/ChartTable.h"
#include "table/ElementTable.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace table {

using Tables = std::vector<std::shared_ptr<ElementTable>>;

/// The cell or header that an editor was opened on. The tree may be another one when it is left.
struct EditedCell {
    QString key;   ///< of the row's element; empty for a header
    QString table; ///< its name
    QString name;  ///< of the column
    QString text;  ///< what the editor began with
};

/// The tables of a level that was left, good while the tree stays as it is.
struct LeftLevel {
    QString key; ///< of the parent
    std::uint64_t revision;
    Tables tables;
};

/// What a window keeps for its tables.
struct TableState {
    Tables tables;                      ///< what each grid shows
    int miTableViewIndex = 0;           ///< the grid that the user last touched
    int miFocusTableIndex = 0;          ///< the grid that holds the row of the current node
    std::optional<int> mvFocusTableRow; ///< as its table numbers it; nothing until one was found
    int miEditTableIndex = 0, miEditRow = 0, miEditCol = 0; ///< the cell that is being edited
    EditedCell edited;
    bool bLeaving = false;         ///< an editor is being left
    bool mbSkipTableClick = false; ///< the click that comes behind a double click leads nowhere
    bool mbIsEditValue = false;    ///< the command that edits a value opens the editor

    /// Of the tree, as the grids show it; nothing: they show what is gone.
    std::optional<std::uint64_t> shownRevision;
    QString shownKey;            ///< of the node that was current then
    QString levelKey;            ///< of the parent of what the grids show
    m_tvXML::NodeAddress level;  ///< the same, for a tree that was built anew
    std::vector<LeftLevel> left; ///< few: for walks down and up again

    std::optional<controls::ChartCells> charted; ///< the block that the chart shows

    double rowHeight = 300; ///< twips
    /// What the user made of the columns, by the names of table and column.
    QHash<std::pair<QString, QString>, double> widths;
};

TableState& TableOf(DocumentWindow& window);

/// Whether the grids show the tree as it is.
bool GridsAreCurrent(DocumentWindow& window);

/// The name under which the routines of editing and calculating report.
QString AtRoutine(const DocumentWindow& window, const char* routine);

} // namespace table
