// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "exchange/TextOut.h"
#include "exchange/dialogs/DelimiterChoice.h"
#include "platform/controls/Controls.h"

namespace exchange {

/// The dialog that writes a document as delimited text.
class frmExportTxt {
public:
    explicit frmExportTxt(DocumentWindow& window);
    frmExportTxt(const frmExportTxt&) = delete;
    frmExportTxt& operator=(const frmExportTxt&) = delete;

    controls::OptionButton optAll, optLimitLs;
    controls::TextBox txtLs;       ///< so many levels
    controls::CheckBox chkUseAttr; ///< what the tables' cells show
    controls::CheckBox chkFirst;   ///< tables begin with the names of their columns
    controls::CheckBox chkOnlySelected;
    controls::CheckBox chkPlain; ///< values as the document means them, in quotes where they need these
    DelimiterChoice delimiter{DelimiterChoice::kTab};
    controls::CommandButton cmdPreview;
    controls::TextBox txtSample;
    controls::Label lblNote;
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    void Form_Load();
    void cmdPreview_Click(); ///< shows the text's beginning
    /// Asks for the file and writes it; stays where there is none or it can't be written.
    void OKButton_Click();

private:
    bool GetResXML(const edit::TextSink& sink);
    QString GetFileName();
    void ShowNote();
    void SelectAgain();
    DocumentWindow& window_;
    QString selected_; ///< key of the node that was selected as the dialog came
};

} // namespace exchange
