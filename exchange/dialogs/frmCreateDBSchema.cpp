// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "core/edit/Guard.h"
#include "core/edit/Waiting.h"
#include "exchange/OpenDatabase.h"
#include "exchange/OpenMade.h"
#include "exchange/dialogs/TableList.h"
#include "platform/text/TextTools.h"

namespace exchange {

frmCreateDBSchema::frmCreateDBSchema(Application& app) : source(app), app_(app) {
    source.changed.connect([this] { lblNote.SetCaption({}); });
    cmdPre.Click.connect([this] { cmdPre_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmCreateDBSchema::Form_Load() {
    source.Load();
}

QString frmCreateDBSchema::GetResXMLSchema() {
    return edit::Guarded(app_, QStringLiteral("frmCreateDBSchema@GetResXMLSchema"), [&]() -> QString {
        failure_.clear();
        if (text::Trim(source.ConnectionString()).isEmpty()) {
            lblNote.SetCaption(QStringLiteral("No data source is chosen."));
            return {};
        }
        const MadeSchema made = ReadSchema();
        failure_ = FailureText(made.result);
        lblNote.SetCaption(made.result ? made.complaint : failure_);
        if (made.text.isEmpty())
            TellCancelled(app_);
        return made.text;
    });
}

// Without a text where there is no connection, or the user cancelled.
MadeSchema frmCreateDBSchema::ReadSchema() {
    edit::Waiting waiting(app_, source.ConnectionString());
    MadeSchema made;
    const auto database = OpenDatabase(app_, source.ConnectionString(), waiting.Step(0, 0), made.result);
    if (database)
        made =
            SchemaOf(app_, *database, {chkAttr.Value() == 1, chkRepair.Value() == 1}, waiting.Step(0, 1000));
    if (made.result.failure == services::DatabaseFailure::Cancelled)
        made.text.clear();
    return made;
}

void frmCreateDBSchema::cmdPre_Click() {
    txtSample.SetText(GetResXMLSchema());
}

// Tables that couldn't be read lack their columns.
bool frmCreateDBSchema::MayOpen() {
    return failure_.isEmpty() ||
           app_.services.prompts.MsgBox(
               failure_ + QStringLiteral("\r\nThe schema isn't whole. Do you want it all the same?"),
               services::Buttons::YesNo, services::Icon::Question) == services::Answer::Yes;
}

void frmCreateDBSchema::OKButton_Click() {
    edit::Guarded(app_, QStringLiteral("frmCreateDBSchema@OKButton_Click"), [&] {
        const QString schema = GetResXMLSchema();
        if (text::Trim(schema).isEmpty() || !MayOpen())
            return;
        FetchedText fetched(schema);
        fetched.made = true;
        unloaded();
        OpenMade(app_, fetched, Opens::Schema);
    });
}

} // namespace exchange
