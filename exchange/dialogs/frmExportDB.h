// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "exchange/ExportRows.h"
#include "exchange/dialogs/SourceChoice.h"
#include "exchange/dialogs/TableList.h"
#include "platform/controls/Controls.h"
#include "table/TableState.h"
#include <map>
#include <optional>
#include <vector>

namespace exchange {

/// The dialog that puts the tables of the table view into a database. What runs is shown, and can be edited
/// before.
class frmExportDB {
public:
    explicit frmExportDB(DocumentWindow& window);
    frmExportDB(const frmExportDB&) = delete;
    frmExportDB& operator=(const frmExportDB&) = delete;

    SourceChoice source; ///< of which the Access files aren't offered: their driver only reads
    /// The levels of the document, by the names of their elements; in front of them, while the table view
    /// shows, what that shows.
    controls::ComboBox cmbLevel;
    controls::ComboBox cmbGrid; ///< the tables of the level, by the names of their elements
    controls::CheckBox chkGrid; ///< the chosen one is to go into the database
    controls::TextBox txtTable; ///< its name in the database, as long as the proposed statements stand
    controls::TextBox txtSQL;   ///< its statements
    controls::Label lblNote;
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    /// Proposes statements for the tables of a level. False where there are none, or the user cancelled; they
    /// know why.
    bool Form_Load();
    /// The dialog has been shown. The first time, the source that stands chosen is looked at.
    void Form_Activate();
    void cmbLevel_Click();
    void cmbGrid_Click();
    void txtTable_Change();
    void OKButton_Click(); ///< runs all; stays where that fails, and tells what is left

private:
    struct Grid {
        TableExport table;
        bool wanted = true, edited = false;
    };
    void FillLevels();
    bool ShowLevel(int index);
    std::optional<std::vector<Grid>> ReadTables(int index);
    table::Tables TablesAt(int index);
    void Propose();
    void TellTaken();
    void source_Chosen();
    Grid& Chosen() { return grids_[static_cast<std::size_t>(cmbGrid.ListIndex())]; }
    std::vector<TableExport> Wanted() const;
    void TellFailure(const Exported& exported);

    DocumentWindow& window_;
    std::vector<Grid> grids_;               ///< of the level on show
    std::map<int, std::vector<Grid>> left_; ///< of levels that were left, as the user has them
    int level_ = -1;                        ///< its entry
    bool tableShows_ = false;               ///< the first entry is the table view
    TableList list_;                        ///< of the source
    bool activated_ = false;
};

} // namespace exchange
