// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/SourceChoice.h"
#include "core/edit/Guard.h"
#include "core/model/FileNames.h"
#include "exchange/dialogs/frmNewDSN.h"
#include "platform/services/Databases.h"
#include "platform/text/TextTools.h"
#include <utility>

namespace exchange {

SourceChoice::SourceChoice(Application& app) : app_(app) {
    optOdbc.SetValue(true);
    cmbDSN.Click.connect([this] { Odbc(false); });
    cmbDSN.Change.connect([this] { Odbc(true); });
    cmdNewDSN.Click.connect([this] { NewDSN(); });
    txtDS.KeyUp.connect([this](int, int) { Access(true); });
    cmdAccess.Click.connect([this] { cmdAccess_Click(); });
    optOdbc.Click.connect([this] { Odbc(false); });
    optAccess.Click.connect([this] { Access(false); });
}

void SourceChoice::Load() {
    FillSources();
    if (!text::Trim(cmbDSN.Text()).isEmpty())
        connection_ = QStringLiteral("DSN=") + cmbDSN.Text() + u';';
}

void SourceChoice::FillSources() {
    cmbDSN.Clear();
    for (const services::DataSource& source : services::Databases().Sources())
        cmbDSN.AddItem(source.name);
    cmbDSN.SetListIndex(0);
}

void SourceChoice::Odbc(bool typed) {
    optOdbc.SetValue(true);
    optAccess.SetValue(false);
    const QString name = cmbDSN.Text();
    if (text::Trim(name).isEmpty())
        Choose({}, true);
    else
        Choose(QStringLiteral("DSN=") + name + u';', !typed || cmbDSN.Items().contains(name));
}

void SourceChoice::Access(bool typed) {
    optOdbc.SetValue(false);
    optAccess.SetValue(true);
    const QString path = txtDS.Text();
    const QString connection = text::Trim(path).isEmpty()
                                   ? QString()
                                   : QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + path;
    if (typed && connection == connection_) // keys that change nothing come, too
        return;
    Choose(connection, connection.isEmpty() || mXMLEdit::FileExist(app_, path));
}

// What isn't complete is being typed (quirk 106).
void SourceChoice::Choose(const QString& connection, bool complete) {
    const bool other = std::exchange(connection_, connection) != connection;
    if (other)
        changed();
    if (complete)
        chosen();
}

void SourceChoice::cmdAccess_Click() {
    const QString path = app_.services.prompts.OpenFileName(
        QStringLiteral("Open file"),
        QStringLiteral("Microsoft Access MDBs (*.mdb)|*.mdb|All Files (*.*)|*.*"));
    if (path.isEmpty())
        return;
    txtDS.SetText(path);
    Access(false);
}

void SourceChoice::NewDSN() {
    edit::Guarded(app_, QStringLiteral("frmImportDB@NewDSN"), [&] {
        frmNewDSN dialog(app_);
        dialog.Form_Load();
        newDSNShown(dialog);
        if (dialog.Made().isEmpty())
            return;
        FillSources();
        cmbDSN.SetListIndex(static_cast<int>(cmbDSN.Items().indexOf(dialog.Made())));
        Odbc(false);
    });
}

} // namespace exchange
