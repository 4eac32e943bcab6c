// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/Controls.h"

namespace exchange {

/// The dialog that puts a data source into the user's own list: a file, or a database of a server.
class frmNewDSN {
public:
    explicit frmNewDSN(Application& app);
    frmNewDSN(const frmNewDSN&) = delete;
    frmNewDSN& operator=(const frmNewDSN&) = delete;

    controls::ComboBox cmbDriver; ///< those that are installed
    controls::TextBox txtName;
    controls::TextBox txtDatabase;   ///< a file's path, or the name of a server's database
    controls::CommandButton cmdFile; ///< asks for the file
    controls::TextBox txtServer, txtPort, txtUser, txtPassword; ///< disabled for drivers of files
    controls::Label lblNote;
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    void Form_Load();
    void cmdFile_Click();
    void OKButton_Click(); ///< writes the source; stays where that can't be done
    /// The name of the source that was written; empty without one.
    const QString& Made() const { return made_; }

private:
    bool IsFileDriver() const;
    void ShowDriver();
    bool MayWrite();
    bool MayReplace(const QString& name);
    bool MakeFile();
    std::vector<std::pair<QString, QString>> Settings() const;

    Application& app_;
    QString made_;
};

} // namespace exchange
