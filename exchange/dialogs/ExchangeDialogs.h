// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace exchange {

class frmCreateDBSchema;
class frmExportDB;
class frmExportTxt;
class frmImportDB;
class frmImportTxt;

/// The dialogs of data in and out. Each is made when it is asked for, shown by whatever listens, and gone
/// when it is done with.
class ExchangeDialogs {
public:
    explicit ExchangeDialogs(Application& app) : app_(app) {}

    void ShowImportTxt();
    void ShowImportDB();
    void ShowCreateDBSchema();
    void ShowExportTxt(DocumentWindow& window);
    void ShowExportDB(DocumentWindow& window);

    /// Show a dialog and come back when it is done with (its `unloaded`).
    controls::Event<frmImportTxt&> importTxtShown;
    controls::Event<frmImportDB&> importDBShown;
    controls::Event<frmCreateDBSchema&> createDBSchemaShown;
    controls::Event<frmExportTxt&> exportTxtShown;
    controls::Event<frmExportDB&> exportDBShown;

private:
    Application& app_;
};

/// Those of this run.
ExchangeDialogs& DialogsOf(Application& app);

} // namespace exchange
