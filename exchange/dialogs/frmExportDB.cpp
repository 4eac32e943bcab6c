// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmExportDB.h"
#include "core/edit/Guard.h"
#include "core/edit/View.h"
#include "exchange/Levels.h"
#include "exchange/OpenDatabase.h"
#include "exchange/SqlText.h"
#include "table/TableState.h"
#include <algorithm>
#include <utility>

namespace exchange {

namespace {

using services::Buttons;
using services::Icon;

const QString kUsualQuote = QStringLiteral("\"");

} // namespace

frmExportDB::frmExportDB(DocumentWindow& window) : source(window.app), window_(window) {
    source.chosen.connect([this] { source_Chosen(); });
    cmbLevel.Click.connect([this] { cmbLevel_Click(); });
    cmbGrid.Click.connect([this] { cmbGrid_Click(); });
    txtTable.Change.connect([this] { txtTable_Change(); });
    chkGrid.Click.connect([this] { Chosen().wanted = chkGrid.Value() == 1; });
    txtSQL.Change.connect([this] {
        Chosen().table.script = txtSQL.Text();
        Chosen().edited = true;
        txtTable.SetEnabled(false);
        TellTaken();
    });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

bool frmExportDB::Form_Load() {
    list_.quote = kUsualQuote;
    FillLevels();
    if (cmbLevel.Items().isEmpty()) {
        window_.app.services.prompts.MsgBox(QStringLiteral("The document has no elements."), Buttons::Ok,
                                            Icon::Exclamation);
        return false;
    }
    source.Load();
    return ShowLevel(tableShows_ ? 0 : UsualLevel(window_, static_cast<int>(cmbLevel.Items().size())));
}

void frmExportDB::FillLevels() {
    tableShows_ = edit::Shows(window_, edit::kTableTab) && !table::TableOf(window_).tables.empty();
    if (tableShows_)
        cmbLevel.AddItem(QStringLiteral("Table View"));
    int number = 0;
    for (const QStringList& names : LevelsOf(window_))
        cmbLevel.AddItem(QString::number(++number) + QStringLiteral(": ") + names.join(QStringLiteral(", ")));
}

void frmExportDB::Form_Activate() {
    if (!std::exchange(activated_, true))
        source_Chosen();
}

table::Tables frmExportDB::TablesAt(int index) {
    if (tableShows_ && index == 0)
        return table::TableOf(window_).tables;
    return TablesOfLevel(window_, index - (tableShows_ ? 1 : 0));
}

// Nothing where the user cancelled.
std::optional<std::vector<frmExportDB::Grid>> frmExportDB::ReadTables(int index) {
    if (const auto left = left_.find(index); left != left_.end())
        return left->second;
    edit::Waiting waiting(window_.app, window_.Caption);
    std::vector<Grid> grids;
    std::vector<QString> names;
    for (const auto& table : TablesAt(index)) {
        std::optional<TableData> data = DataOf(table, waiting.Step(0, 1000));
        if (!data)
            return {};
        names.push_back(data->name);
        grids.push_back({{*std::move(data), {}}});
    }
    MakeDistinct(names);
    for (std::size_t i = 0; i < names.size(); ++i)
        grids[i].table.data.name = names[i];
    return grids;
}

bool frmExportDB::ShowLevel(int index) {
    std::optional<std::vector<Grid>> grids = ReadTables(index);
    if (!grids) {
        cmbLevel.SetListIndex(level_); // the one before stays
        return false;
    }
    if (level_ >= 0)
        left_[level_] = std::move(grids_);
    grids_ = *std::move(grids);
    level_ = index;
    cmbLevel.SetListIndex(index);
    cmbGrid.Clear();
    for (const Grid& grid : grids_)
        cmbGrid.AddItem(grid.table.data.table->name());
    cmbGrid.SetListIndex(0);
    Propose();
    TellTaken();
    return true;
}

void frmExportDB::cmbLevel_Click() {
    if (cmbLevel.ListIndex() != level_)
        ShowLevel(cmbLevel.ListIndex());
}

void frmExportDB::Propose() {
    for (Grid& grid : grids_) {
        if (!grid.edited)
            grid.table.script = ScriptOf(grid.table.data, list_.quote, list_.system);
    }
    cmbGrid_Click();
}

// The tables that the statements would make, as the database spells those that it has: some tell cases apart
// and some don't.
void frmExportDB::TellTaken() {
    QStringList notes;
    for (const Grid& grid : grids_) {
        for (const ScriptStatement& statement : StatementsOf(grid.table.script)) {
            const QString made = TableMadeBy(statement.sql);
            const auto same = [&](const QString& name) {
                return name.compare(made, Qt::CaseInsensitive) == 0;
            };
            const auto taken = std::find_if(list_.names.begin(), list_.names.end(), same);
            if (taken != list_.names.end())
                notes << QStringLiteral("The database has a table \"%1\" already.").arg(*taken);
        }
    }
    lblNote.SetCaption(notes.join(u'\n'));
}

// Names are quoted in the database's own way, and a name that is taken is told of before anything runs.
void frmExportDB::source_Chosen() {
    if (source.ConnectionString().isEmpty())
        return;
    TableList list = TablesOf(window_.app, source.ConnectionString());
    if (!list.result) {
        lblNote.SetCaption(FailureText(list.result));
        TellCancelled(window_.app);
        return;
    }
    list_ = std::move(list);
    Propose();
    TellTaken();
}

// Statements that the user has written keep their names.
void frmExportDB::txtTable_Change() {
    if (Chosen().edited)
        return;
    Chosen().table.data.name = txtTable.Text();
    Chosen().table.script = ScriptOf(Chosen().table.data, list_.quote, list_.system);
    txtSQL.SetText(Chosen().table.script);
    TellTaken();
}

void frmExportDB::cmbGrid_Click() {
    chkGrid.SetValue(Chosen().wanted ? 1 : 0);
    txtTable.SetText(Chosen().table.data.name);
    txtTable.SetEnabled(!Chosen().edited);
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

void frmExportDB::TellFailure(const Exported& exported) {
    QStringList lines{FailureText(exported.result)};
    if (exported.unknown)
        lines << QStringLiteral("Whether the rows were written isn't known.");
    if (!exported.left.isEmpty())
        lines << QStringLiteral("These tables were made and could not be removed: ") +
                     exported.left.join(QStringLiteral(", "));
    if (lines.size() == 1)
        lines << QStringLiteral("Nothing was written.");
    lblNote.SetCaption(lines.join(u'\n'));
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
            exported = ExportRows(app, source.ConnectionString(), wanted, waiting.Step(0, 1000));
        }
        if (!exported.result)
            return TellFailure(exported);
        unloaded();
        app.services.prompts.MsgBox(QStringLiteral("%1 row(s) were written.").arg(exported.rows), Buttons::Ok,
                                    Icon::Information);
    });
}

} // namespace exchange
