// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ExportRows.h"
#include "exchange/OpenDatabase.h"
#include "exchange/SqlText.h"

namespace exchange {

namespace {

using services::Database;
using services::DatabaseFailure;
using services::DatabaseResult;

constexpr qint64 kRowsPerStep = 100;

DatabaseResult Failed(const QString& why) {
    return {DatabaseFailure::Failed, why};
}

DatabaseResult ListTables(Database& database, QStringList& names) {
    std::vector<services::DatabaseTable> tables;
    DatabaseResult result = database.Tables(tables);
    for (const services::DatabaseTable& table : tables)
        names << table.name;
    return result;
}

// What ends the transaction by itself would make rows stay, whatever becomes of the others.
DatabaseResult RefusedForTheirWords(const std::vector<TableExport>& tables) {
    for (const TableExport& table : tables) {
        const QString word = TransactionWord(table.script);
        if (!word.isEmpty())
            return Failed(QStringLiteral("The statements for \"%1\" have the word \"%2\". All tables are "
                                         "written in one transaction, and no statement must end that. A name "
                                         "that is such a word has to stand in quotes.")
                              .arg(table.data.name, word));
    }
    return {};
}

/// A table that a statement has made.
struct MadeTable {
    QString name;
    bool maybe = false; ///< or it was there: "if not exists"
};

/// One export on its way.
class Run {
public:
    Run(Database& database, const edit::WaitStep& step, qint64 total)
        : database_(database), step_(step), total_(total) {}

    DatabaseResult All(const std::vector<TableExport>& tables) {
        DatabaseResult result;
        for (const bool rows : {false, true}) {
            for (const TableExport& table : tables) {
                if (result)
                    result = Script(table, rows);
            }
        }
        return result;
    }
    /// The tables that were made, the last one first.
    const std::vector<MadeTable>& Made() const { return made_; }
    /// Something was changed in a way that may have made it stay.
    bool MayHaveStayed() const { return mayHaveStayed_; }
    qint64 Rows() const { return rows_; }

private:
    // `rows`: what begins with the first statement with parameters, else what stands before it.
    DatabaseResult Script(const TableExport& table, bool rows) {
        DatabaseResult result;
        bool behind = false;
        for (const ScriptStatement& statement : StatementsOf(table.script)) {
            behind = behind || statement.hasParameters;
            if (!result || behind != rows)
                continue;
            result = Statement(statement.sql, table.data);
        }
        return result;
    }

    DatabaseResult Statement(const QString& sql, const TableData& data) {
        DatabaseResult result;
        const auto statement = database_.Prepare(sql, result);
        if (!statement)
            return result;
        if (statement->Parameters() == 0)
            return RunOnce(*statement, sql);
        const auto columns = static_cast<int>(data.columns.size());
        if (statement->Parameters() != columns)
            return Failed(
                QStringLiteral("The statement has %1 parameters, but the table \"%2\" has %3 columns.")
                    .arg(statement->Parameters())
                    .arg(data.name)
                    .arg(columns));
        for (int row = 1; row <= data.table->lastRow() && result; ++row) {
            if (data.table->element(row)) {
                result = statement->Run(data.values(row));
                ++rows_;
            }
            if (result && rows_ % kRowsPerStep == 0 && step_ && !step_(rows_, total_))
                result = {DatabaseFailure::Cancelled, {}};
        }
        return result;
    }

    // Where tables outlast a transaction, so does what changes them, and rows that were written before.
    DatabaseResult RunOnce(services::DatabaseStatement& statement, const QString& sql) {
        const QString makes = TableMadeBy(sql);
        const bool stays = rows_ > 0 || (makes.isEmpty() && !OnlyReads(sql));
        mayHaveStayed_ = mayHaveStayed_ || (stays && !database_.TakesTablesBack());
        const DatabaseResult result = statement.Run({});
        if (result && !makes.isEmpty())
            made_.insert(made_.begin(), {makes, MakesOnlyWhatIsMissing(sql)});
        return result;
    }

    Database& database_;
    const edit::WaitStep& step_;
    qint64 total_, rows_ = 0;
    std::vector<MadeTable> made_;
    bool mayHaveStayed_ = false;
};

// Tables of some kinds take no part in transactions. MariaDB and MySQL tell of that in a warning.
bool RowsStayed(Database& database) {
    constexpr QStringView kNotRolledBack = u"1196";
    DatabaseResult result;
    if (database.TakesTablesBack())
        return false;
    const auto warnings = database.Execute(QStringLiteral("SHOW WARNINGS"), result);
    bool stayed = false;
    while (warnings && warnings->Columns().size() > 1 && warnings->Next(result))
        stayed = stayed || warnings->Value(1) == kNotRolledBack;
    return stayed;
}

// A database that makes tables outside of transactions keeps them: those that weren't there before go.
// Whether "Wine" and "wine" are one table the database decides, so the lists of before and now are compared.
// Gives those that are there still.
QStringList RemoveMade(Database& database, const QStringList& before, const std::vector<MadeTable>& made) {
    QStringList left, now;
    if (made.empty() || database.TakesTablesBack())
        return left;
    const DatabaseResult listed = ListTables(database, now);
    const QString quote = database.Quote();
    for (const MadeTable& table : made) {
        QStringList fresh;
        for (const QString& name : std::as_const(now)) {
            if (!before.contains(name) && name.compare(table.name, Qt::CaseInsensitive) == 0)
                fresh << name;
        }
        if (fresh.isEmpty()) { // it isn't in sight, in another database perhaps
            if (!listed || !table.maybe)
                left << table.name;
            continue;
        }
        const QString name = fresh.contains(table.name) ? table.name : fresh.first();
        DatabaseResult result;
        database.Execute(QStringLiteral("DROP TABLE ") + InQuotes(name, quote), result);
        if (!result)
            left << name;
    }
    database.Commit();
    return left;
}

} // namespace

Exported ExportRows(Application& app, const QString& connection, const std::vector<TableExport>& tables,
                    const edit::WaitStep& step) {
    Exported exported;
    exported.result = RefusedForTheirWords(tables);
    if (!exported.result)
        return exported;
    const std::unique_ptr<Database> database = OpenDatabase(app, connection, step, exported.result);
    if (!database)
        return exported;
    QStringList before;
    exported.result = ListTables(*database, before);
    if (exported.result)
        exported.result = database->BeginTransaction();
    if (!exported.result)
        return exported;
    qint64 total = 0;
    for (const TableExport& table : tables)
        total += table.data.table->lastRow();
    Run run(*database, step, total);
    exported.result = run.All(tables);
    const bool done = static_cast<bool>(exported.result);
    if (done)
        exported.result = database->Commit();
    if (exported.result) {
        exported.rows = run.Rows();
    } else {
        // A database that refuses to commit may have taken all back by itself; one that is still there has.
        QStringList now;
        const bool lost = !database->Rollback() && done && !ListTables(*database, now);
        exported.unknown = lost || run.MayHaveStayed() || RowsStayed(*database);
        exported.left = RemoveMade(*database, before, run.Made());
    }
    return exported;
}

} // namespace exchange
