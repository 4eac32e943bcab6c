// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "exchange/ImportText.h"
#include "exchange/dialogs/DelimiterChoice.h"
#include "exchange/dialogs/SampleGrid.h"
#include "platform/controls/Controls.h"
#include <optional>

namespace exchange {

/// The dialog that makes a document out of a delimited text file. It shows the beginning of the file as it
/// would be taken apart; the whole file is read with OK.
class frmImportTxt {
public:
    explicit frmImportTxt(Application& app);
    frmImportTxt(const frmImportTxt&) = delete;
    frmImportTxt& operator=(const frmImportTxt&) = delete;

    controls::CommandButton cmdOpenFile;
    controls::Label lblFile; ///< the file's name
    SampleGrid grdSample;
    controls::CheckBox chkFirst;   ///< the first row holds the names of the fields
    controls::CheckBox chkUseAttr; ///< fields become attributes
    controls::CheckBox chkRepair;  ///< names are made valid
    controls::CheckBox chkQuotes;  ///< quotes count at a field's ends alone, and keep line ends
    DelimiterChoice delimiter{DelimiterChoice::kComma};
    controls::ComboBox cmbQualifier; ///< blank: quotes are characters like others; else the double quote
    /// Of the file: as found, until the user chooses or types one, which may be any that documents can have.
    controls::ComboBox cmbEnc;
    controls::Label lblNote; ///< what the document will suffer from
    controls::CommandButton OKButton, CancelButton;

    /// The dialog is done with and to be closed.
    controls::Event<> unloaded;

    void Form_Load();
    void cmdOpenFile_Click(); ///< asks for the file and shows its beginning; one that can't be read changes
                              ///< nothing
    void cmbEnc_Click();      ///< one that the file isn't in changes nothing
    void cmbEnc_Change();
    /// Shows the beginning as the options have it.
    void LoadTextToThisForm();
    /// Closes, and opens the document. Where there can't be one, or the user doesn't want it, the dialog
    /// stays.
    void OKButton_Click();
    void CancelButton_Click() { unloaded(); }

private:
    TextOptions Options() const;
    TextSample GetRowsColsAndRowdata() const; ///< the beginning, taken apart
    void FillData(TextSample sample);         ///< shows it
    bool MayOpenBinary(const QString& name);
    void ReadBeginning(const QString& name);
    void ShowEncoding();
    bool TakeEncoding(const QString& label);
    QStringList Notes(const TextSample& sample) const;
    bool MisreadsQuotes(const TextSample& sample) const;
    std::optional<text::Decoded> ReadWhole(edit::Waiting& waiting);
    bool MayGoOn(const text::Decoded& whole, edit::Waiting& waiting);
    bool Tell(const QString& text);
    bool Make(FetchedText& fetched);

    Application& app_;
    QString file_;          ///< name of the chosen file; empty without one
    QByteArray front_;      ///< its beginning
    bool complete_ = false; ///< which is all of it
    QString encoding_;      ///< as the user has it; empty: as found
    QString refusal_;       ///< why what is typed as its name can't be; empty: it can
    text::Decoded sample_;  ///< the beginning as text
};

} // namespace exchange
