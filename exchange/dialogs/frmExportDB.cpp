// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmExportDB.h"
#include "core/edit/Guard.h"
#include "core/edit/View.h"
#include "exchange/ImportRows.h"
#include "exchange/dialogs/TableList.h"
#include "table/TableState.h"
#include <utility>

namespace exchange {

namespace {

using services::Buttons;
using services::Icon;

const QString kUsualQuote = QStringLiteral("\"");

} // namespace

frmExportDB::frmExportDB(DocumentWindow& window) : source(window.app), window_(window) {
    source.chosen.connect([this] { source_Chosen(); });
    cmbGrid.Click.connect([this] { cmbGrid_Click(); });
    chkGrid.Click.connect([this] { Chosen().wanted = chkGrid.Value() == 1; });
    txtSQL.Change.connect([this] {
        Chosen().table.script = txtSQL.Text();
        Chosen().edited = true;
    });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

bool frmExportDB::Form_Load() {
    edit::ShowView(window_, edit::kTableTab);
    if (!edit::Shows(window_, edit::kTableTab)) // the text doesn't parse, which the user has been told
        return false;
    if (table::TableOf(window_).tables.empty()) {
        window_.app.services.prompts.MsgBox(QStringLiteral("The table view shows no table."), Buttons::Ok,
                                            Icon::Exclamation);
        return false;
    }
    if (!ReadTables())
        return false;
    source.Load();
    Propose(kUsualQuote);
    for (const Grid& grid : grids_)
        cmbGrid.AddItem(grid.table.data.table->name());
    cmbGrid.SetListIndex(0);
    cmbGrid_Click();
    return true;
}

void frmExportDB::Form_Activate() {
    if (!std::exchange(activated_, true))
        source_Chosen();
}

bool frmExportDB::ReadTables() {
    edit::Waiting waiting(window_.app, window_.Caption);
    for (const auto& table : table::TableOf(window_).tables) {
        std::optional<TableData> data = DataOf(table, waiting.Step(0, 1000));
        if (!data)
            return false;
        grids_.push_back({{*std::move(data), {}}});
    }
    std::vector<QString> names;
    for (const Grid& grid : grids_)
        names.push_back(grid.table.data.name);
    MakeDistinct(names);
    for (std::size_t i = 0; i < names.size(); ++i)
        grids_[i].table.data.name = names[i];
    return true;
}

void frmExportDB::Propose(const QString& quote) {
    for (Grid& grid : grids_) {
        if (!grid.edited)
            grid.table.script = ScriptOf(grid.table.data, quote);
    }
}

// Names are quoted in the database's own way, and a name that is taken is told of before anything runs.
void frmExportDB::source_Chosen() {
    if (source.ConnectionString().isEmpty())
        return;
    const TableList list = TablesOf(window_.app, source.ConnectionString());
    if (!list.result) {
        lblNote.SetCaption(FailureText(list.result));
        TellCancelled(window_.app);
        return;
    }
    Propose(list.quote);
    QStringList notes;
    for (const Grid& grid : grids_) {
        const QString name = grid.table.data.name;
        if (list.names.contains(name, Qt::CaseInsensitive))
            notes << QStringLiteral("The database has a table \"%1\" already.").arg(name);
    }
    lblNote.SetCaption(notes.join(u'\n'));
    cmbGrid_Click();
}

void frmExportDB::cmbGrid_Click() {
    chkGrid.SetValue(Chosen().wanted ? 1 : 0);
    txtSQL.SetText(Chosen().table.script);
}

std::vector<TableExport> frmExportDB::Wanted() const {
    std::vector<TableExport> wanted;
    for (const Grid& grid : grids_) {
        if (grid.wanted)
            wanted.push_back(grid.table);
    }
    return wanted;
}

void frmExportDB::OKButton_Click() {
    Application& app = window_.app;
    edit::Guarded(app, QStringLiteral("frmExportDB@OKButton_Click"), [&] {
        const std::vector<TableExport> wanted = Wanted();
        if (source.ConnectionString().isEmpty() || wanted.empty()) {
            lblNote.SetCaption(QStringLiteral("A data source and a table have to be chosen."));
            return;
        }
        Exported exported;
        {
            edit::Waiting waiting(app, source.ConnectionString());
            exported = ExportRows(source.ConnectionString(), wanted, waiting.Step(0, 1000));
        }
        if (!exported.result) {
            lblNote.SetCaption(FailureText(exported.result) +
                               (exported.unknown
                                    ? QStringLiteral("\nWhether the rows were written isn't known.")
                                    : QStringLiteral("\nNothing was written.")));
            return;
        }
        unloaded();
        app.services.prompts.MsgBox(QStringLiteral("%1 row(s) were written.").arg(exported.rows), Buttons::Ok,
                                    Icon::Information);
    });
}

} // namespace exchange
