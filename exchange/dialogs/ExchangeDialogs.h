// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"

class frmCreateDBSchema;
class frmImportDB;
class frmImportTxt;

namespace exchange {

/// The dialogs of data in and out. Each is made when it is asked for, shown by whoever listens, and gone when
/// it is done with.
class ExchangeDialogs {
public:
    explicit ExchangeDialogs(Application& app) : app_(app) {}

    void ShowImportTxt();
    void ShowImportDB();
    void ShowCreateDBSchema();

    /// Show a dialog and come back when it is done with (its `unloaded`).
    controls::Event<frmImportTxt&> importTxtShown;
    controls::Event<frmImportDB&> importDBShown;
    controls::Event<frmCreateDBSchema&> createDBSchemaShown;

private:
    Application& app_;
};

} // namespace exchange
