// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "exchange/DatabaseSchema.h"
#include "exchange/dialogs/SourceChoice.h"
#include "platform/controls/Controls.h"

namespace exchange {

/// The dialog that makes a schema out of the tables of a database.
class frmCreateDBSchema {
public:
    explicit frmCreateDBSchema(Application& app);
    frmCreateDBSchema(const frmCreateDBSchema&) = delete;
    frmCreateDBSchema& operator=(const frmCreateDBSchema&) = delete;

    SourceChoice source;
    controls::CheckBox chkAttr;   ///< columns become attributes
    controls::CheckBox chkRepair; ///< names are made valid, keys are declared
    controls::CommandButton cmdPre;
    controls::TextBox txtSample;
    controls::Label lblNote; ///< what the database said last
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    void Form_Load();
    void cmdPre_Click();   ///< shows the schema
    void OKButton_Click(); ///< closes, and opens the schema; nothing where there is none

private:
    QString GetResXMLSchema();
    MadeSchema ReadSchema();
    bool MayOpen();

    Application& app_;
    QString failure_; ///< why the last schema isn't whole; empty: it is
};

} // namespace exchange
