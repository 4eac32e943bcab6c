// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/Controls.h"

namespace exchange {

class frmNewDSN;

/// The choice of a database: one of the sources of this machine, or an Access file.
class SourceChoice {
public:
    explicit SourceChoice(Application& app);
    SourceChoice(const SourceChoice&) = delete;
    SourceChoice& operator=(const SourceChoice&) = delete;

    controls::OptionButton optOdbc, optAccess;
    controls::ComboBox cmbDSN;
    controls::CommandButton cmdNewDSN;
    controls::TextBox txtDS; ///< path of the Access file
    controls::CommandButton cmdAccess;

    void Load(); ///< fills the sources and chooses the first; raises nothing
    /// By which to connect; empty while nothing is chosen.
    const QString& ConnectionString() const { return connection_; }
    /// Another database is meant. Not for each letter of a name that is being typed: only once it is one of a
    /// source, or of a file.
    controls::Event<> chosen;
    /// Another connection string, with each letter: what was said of the one before is out of date.
    controls::Event<> changed;
    /// Show a dialog and come back when it is done with (frmNewDSN::unloaded).
    controls::Event<frmNewDSN&> newDSNShown;

private:
    void FillSources();
    void Odbc(bool typed);
    void Access(bool typed);
    void Choose(const QString& connection, bool complete);
    void cmdAccess_Click();
    void NewDSN();

    Application& app_;
    QString connection_;
};

} // namespace exchange
