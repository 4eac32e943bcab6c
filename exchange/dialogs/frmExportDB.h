// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "exchange/ExportRows.h"
#include "exchange/dialogs/SourceChoice.h"
#include "platform/controls/Controls.h"
#include <vector>

namespace exchange {

/// The dialog that puts the tables of the table view into a database. What runs is shown, and can be edited
/// before.
class frmExportDB {
public:
    explicit frmExportDB(DocumentWindow& window);
    frmExportDB(const frmExportDB&) = delete;
    frmExportDB& operator=(const frmExportDB&) = delete;

    SourceChoice source;        ///< of which the Access files aren't offered: their driver only reads
    controls::ComboBox cmbGrid; ///< the tables, by the names of their elements
    controls::CheckBox chkGrid; ///< the chosen one is to go into the database
    controls::TextBox txtSQL;   ///< its statements
    controls::Label lblNote;
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    /// Shows the table view and proposes statements for its tables. False where there are none, or the user
    /// cancelled; they know why.
    bool Form_Load();
    /// The dialog has been shown. The first time, the source that stands chosen is looked at.
    void Form_Activate();
    void cmbGrid_Click();
    void OKButton_Click(); ///< runs all; stays where that fails, and the database is as it was

private:
    struct Grid {
        TableExport table;
        bool wanted = true, edited = false;
    };
    bool ReadTables();
    void Propose(const QString& quote);
    void source_Chosen();
    Grid& Chosen() { return grids_[static_cast<std::size_t>(cmbGrid.ListIndex())]; }
    std::vector<TableExport> Wanted() const;

    DocumentWindow& window_;
    std::vector<Grid> grids_;
    bool activated_ = false;
};

} // namespace exchange
