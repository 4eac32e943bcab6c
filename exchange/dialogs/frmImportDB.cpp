// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmImportDB.h"
#include "core/edit/Guard.h"
#include "core/model/Encodings.h"
#include "exchange/OpenDatabase.h"
#include "exchange/OpenMade.h"
#include "exchange/dialogs/TableList.h"
#include "platform/text/TextFile.h"
#include "platform/text/TextTools.h"

namespace exchange {

namespace {

constexpr qsizetype kSampleRows = 200;
constexpr int kMade = 400; // thousandths of the work

QString NoDatesNote(qsizetype count) {
    return QStringLiteral("%1 value(s) that the driver can not read as dates are left empty.").arg(count);
}

} // namespace

frmImportDB::frmImportDB(Application& app) : source(app), app_(app) {
    source.chosen.connect([this] { LoadTableAndDefaultSQL(); });
    source.changed.connect([this] { lblNote.SetCaption({}); });
    cmbTable.Click.connect([this] { cmbTable_Click(); });
    cmbTable.Change.connect([this] { cmbTable_Click(); });
    txtSQL.Change.connect([this] { OKButton.SetEnabled(!txtSQL.Text().isEmpty()); });
    cmdPre.Click.connect([this] { cmdPre_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
    OKButton.SetEnabled(false);
}

void frmImportDB::Form_Load() {
    mXMLEdit::LoadEncoding(cmbEnc);
    mXMLEdit::FindEncoding(app_.options.Encoding, cmbEnc);
    source.Load();
}

void frmImportDB::Form_Activate() {
    if (std::exchange(activated_, true))
        return;
    focusPreview();
    LoadTableAndDefaultSQL();
}

void frmImportDB::LoadTableAndDefaultSQL() {
    edit::Guarded(app_, QStringLiteral("frmImportDB.LoadTableAndDefaultSQL"), [&] {
        if (text::Trim(source.ConnectionString()).isEmpty())
            return;
        const bool same = source.ConnectionString() == listed_;
        const QString statement = txtSQL.Text();
        const bool typed = !text::Trim(statement).isEmpty() && statement != proposed_;
        const TableList list = TablesOf(app_, source.ConnectionString());
        if (!same) { // these are of another source
            txtSample.SetText({});
            txtSQL.SetText({});
        }
        cmbTable.Clear();
        cmbTable.SetText({});
        lblNote.SetCaption(FailureText(list.result));
        OKButton.SetEnabled(list.result && !txtSQL.Text().isEmpty());
        if (!list.result) {
            TellCancelled(app_);
            return;
        }
        quote_ = list.quote;
        listed_ = source.ConnectionString();
        for (const QString& name : list.names)
            cmbTable.AddItem(name);
        if (list.count > 0) {
            cmbTable.SetListIndex(0);
            cmbTable_Click();
        }
        if (same && typed) // for this database the user has a statement already
            txtSQL.SetText(statement);
    });
}

void frmImportDB::cmbTable_Click() {
    const QString name = cmbTable.Text();
    if (text::Trim(name).isEmpty())
        return;
    proposed_ = QStringLiteral("select * from ") + NameInStatement(name, quote_);
    txtSQL.SetText(proposed_);
    OKButton.SetEnabled(true);
}

MadeRows frmImportDB::GetResXML(qsizetype most, edit::Waiting& waiting) {
    RowsQuery query;
    query.connection = source.ConnectionString();
    query.sql = txtSQL.Text();
    query.encoding = text::Trim(cmbEnc.Text());
    query.filling = chkAttr.Value() == 1 ? Filling::Attributes : Filling::Elements;
    query.repair = chkRepair.Value() == 1;
    query.most = most;
    MadeRows made;
    if (text::Trim(query.connection).isEmpty())
        lblNote.SetCaption(QStringLiteral("No data source is chosen."));
    else if (text::Trim(query.sql).isEmpty())
        lblNote.SetCaption(QStringLiteral("There is no statement."));
    else if (!text::KnowsEncoding(query.encoding))
        lblNote.SetCaption(QStringLiteral("No encoding is called \"%1\".").arg(query.encoding));
    else
        ShowNotes(made = RowsOf(app_, query, waiting.Step(0, kMade)));
    return made;
}

void frmImportDB::ShowNotes(const MadeRows& made) {
    QStringList notes;
    if (!made.result)
        notes << FailureText(made.result);
    else if (!made.answered)
        notes << QStringLiteral("The statement gives no rows.") +
                     (made.takenBack ? QStringLiteral(" Nothing was changed in the database.") : QString());
    if (!made.nameComplaint.isEmpty())
        notes << made.nameComplaint;
    if (made.noDates > 0)
        notes << NoDatesNote(made.noDates);
    if (made.cut)
        notes << QStringLiteral("The first %1 rows are shown.").arg(kSampleRows);
    lblNote.SetCaption(notes.join(u'\n'));
}

void frmImportDB::cmdPre_Click() {
    edit::Guarded(app_, QStringLiteral("frmImportDB@cmdPre_Click"), [&] {
        edit::Waiting waiting(app_, source.ConnectionString());
        const MadeRows made = GetResXML(kSampleRows, waiting);
        txtSample.SetText(made.answered ? made.text.toString() : QString());
        OKButton.SetEnabled(made.answered); // until something else is asked for
    });
}

bool frmImportDB::Make(FetchedText& fetched) {
    auto waiting = std::make_shared<edit::Waiting>(app_, source.ConnectionString());
    MadeRows made = GetResXML(0, *waiting);
    if (!made.answered)
        return false;
    if (made.leftOut.count > 0 || made.noDates > 0)
        waiting->Hide(); // a box follows
    if (made.noDates > 0 &&
        app_.services.prompts.MsgBox(
            NoDatesNote(made.noDates) + QStringLiteral(" Do you want the document all the same?"),
            services::Buttons::YesNo, services::Icon::Question) != services::Answer::Yes)
        return false;
    return MayLeaveOut(app_, made.leftOut) &&
           Prepare(app_, std::move(made.text), std::move(waiting), kMade, fetched);
}

void frmImportDB::OKButton_Click() {
    OpenIfMade(
        app_, QStringLiteral("frmImportDB"), [this](FetchedText& fetched) { return Make(fetched); },
        unloaded);
}

} // namespace exchange
