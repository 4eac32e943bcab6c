// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "core/model/Application.h"
#include "exchange/ImportRows.h"
#include "exchange/dialogs/SourceChoice.h"
#include "platform/controls/Controls.h"

namespace exchange {

/// The dialog that makes a document out of the rows that a database answers a statement with.
class frmImportDB {
public:
    explicit frmImportDB(Application& app);
    frmImportDB(const frmImportDB&) = delete;
    frmImportDB& operator=(const frmImportDB&) = delete;

    SourceChoice source;
    controls::ComboBox cmbTable;
    controls::TextBox txtSQL;
    controls::CheckBox chkAttr;   ///< fields become attributes
    controls::CheckBox chkRepair; ///< names are made valid
    controls::ComboBox cmbEnc;    ///< named in the document; from the list or typed
    controls::CommandButton cmdPre;
    controls::TextBox txtSample;
    controls::Label lblNote; ///< what the database said last
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;
    controls::Event<> focusPreview; ///< cmdPre takes the focus

    void Form_Load();
    /// The dialog has been shown. The first time, the tables of the source that stands chosen are listed.
    void Form_Activate();
    /// Lists the tables of the source; the first of them makes the statement.
    void LoadTableAndDefaultSQL();
    void cmbTable_Click();
    void cmdPre_Click(); ///< shows the document as it would be, with the first rows
    /// Closes, and opens the document. Nothing where the database gives none, or the user doesn't want it.
    void OKButton_Click();

private:
    MadeRows GetResXML(qsizetype most, edit::Waiting& waiting);
    bool Make(FetchedText& fetched);
    void ShowNotes(const MadeRows& made);
    Application& app_;
    QString quote_;
    QString listed_;   ///< by which the tables were listed
    QString proposed_; ///< the statement for the chosen table
    bool activated_ = false;
};

} // namespace exchange
