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

DatabaseResult ListTables(Database& database, QStringList& names) {
    std::vector<services::DatabaseTable> tables;
    DatabaseResult result = database.Tables(tables);
    for (const services::DatabaseTable& table : tables)
        names << table.name;
    return result;
}

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
    const QStringList& Made() const { return made_; }
    /// Rows were written, and then a statement ran that may have made them stay.
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
        if (statement->Parameters() == 0) {
            mayHaveStayed_ = mayHaveStayed_ || (rows_ > 0 && !database_.TakesTablesBack());
            result = statement->Run({});
            const QString made = result ? TableMadeBy(sql) : QString();
            if (!made.isEmpty())
                made_.prepend(made);
            return result;
        }
        const auto columns = static_cast<int>(data.columns.size());
        if (statement->Parameters() != columns)
            return {DatabaseFailure::Failed,
                    QStringLiteral("The statement has %1 parameters, but the table \"%2\" has %3 columns.")
                        .arg(statement->Parameters())
                        .arg(data.name)
                        .arg(columns)};
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

    Database& database_;
    const edit::WaitStep& step_;
    qint64 total_, rows_ = 0;
    QStringList made_;
    bool mayHaveStayed_ = false;
};

// A database that makes tables outside of transactions keeps them: those that weren't there before go. Gives
// those that are there still.
QStringList RemoveMade(Database& database, const QStringList& before, const QStringList& made) {
    QStringList left;
    if (database.TakesTablesBack())
        return left;
    const QString quote = database.Quote();
    for (const QString& name : made) {
        if (before.contains(name, Qt::CaseInsensitive))
            continue;
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
        exported.unknown = lost || run.MayHaveStayed();
        exported.left = RemoveMade(*database, before, run.Made());
    }
    return exported;
}

} // namespace exchange
