// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "core/edit/Guard.h"
#include "core/edit/Waiting.h"
#include "exchange/DatabaseSchema.h"
#include "exchange/ImportRows.h"
#include "exchange/OpenMade.h"
#include "exchange/dialogs/TableList.h"
#include "platform/text/TextTools.h"

namespace exchange {

frmCreateDBSchema::frmCreateDBSchema(Application& app) : source(app), app_(app) {
    cmdPre.Click.connect([this] { cmdPre_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmCreateDBSchema::Form_Load() {
    source.Load();
}

QString frmCreateDBSchema::GetResXMLSchema() {
    return edit::Guarded(app_, QStringLiteral("frmCreateDBSchema@GetResXMLSchema"), [&]() -> QString {
        if (text::Trim(source.ConnectionString()).isEmpty())
            return {};
        services::DatabaseResult result;
        QString schema;
        {
            edit::Waiting waiting(app_, source.ConnectionString());
            const auto database =
                services::Databases().Open(source.ConnectionString(), waiting.Step(0, 0), result);
            if (database)
                schema = SchemaOf(app_, *database, {chkAttr.Value() == 1, chkRepair.Value() == 1}, result);
        }
        lblNote.SetCaption(FailureText(result));
        if (!result) {
            TellCancelled(app_);
            return {};
        }
        return schema;
    });
}

void frmCreateDBSchema::cmdPre_Click() {
    txtSample.SetText(GetResXMLSchema());
}

void frmCreateDBSchema::OKButton_Click() {
    edit::Guarded(app_, QStringLiteral("frmCreateDBSchema@OKButton_Click"), [&] {
        const QString schema = GetResXMLSchema();
        if (text::Trim(schema).isEmpty())
            return;
        FetchedText fetched(schema);
        fetched.made = true;
        unloaded();
        OpenMade(app_, fetched, Opens::Schema);
    });
}

} // namespace exchange
