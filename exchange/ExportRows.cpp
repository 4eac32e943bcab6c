// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ExportRows.h"
#include <algorithm>

namespace exchange {

namespace {

using services::Database;
using services::DatabaseFailure;
using services::DatabaseResult;

constexpr qint64 kRowsPerStep = 100;

QStringList TableNames(Database& database) {
    std::vector<services::DatabaseTable> tables;
    QStringList names;
    if (database.Tables(tables)) {
        for (const services::DatabaseTable& table : tables)
            names << table.name;
    }
    return names;
}

/// One export on its way.
class Run {
public:
    Run(Database& database, const edit::WaitStep& step, qint64 total)
        : database_(database), step_(step), total_(total) {}

    DatabaseResult Script(const TableExport& table) {
        DatabaseResult result;
        for (const QString& sql : StatementsOf(table.script)) {
            if (result)
                result = Statement(sql, table.data);
        }
        return result;
    }
    qint64 Rows() const { return rows_; }

private:
    DatabaseResult Statement(const QString& sql, const TableData& data) {
        DatabaseResult result;
        const auto statement = database_.Prepare(sql, result);
        if (!statement)
            return result;
        if (statement->Parameters() == 0)
            return statement->Run({});
        const auto columns = static_cast<int>(data.columns.size());
        if (statement->Parameters() != columns)
            return {DatabaseFailure::Failed,
                    QStringLiteral("The statement has %1 parameters, but the table \"%2\" has %3 columns.")
                        .arg(statement->Parameters())
                        .arg(data.table->name())
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
};

// A database that makes tables outside of transactions keeps them empty: they go, unless they were there.
void RemoveMade(Database& database, const QStringList& before, const std::vector<TableExport>& tables) {
    const QString quote = database.Quote();
    for (const QString& name : TableNames(database)) {
        const bool ours = std::any_of(tables.begin(), tables.end(), [&](const TableExport& table) {
            return table.data.table->name().compare(name, Qt::CaseInsensitive) == 0;
        });
        DatabaseResult ignored;
        if (ours && !before.contains(name))
            database.Execute(QStringLiteral("DROP TABLE ") + quote + name + quote, ignored);
    }
    database.Commit();
}

} // namespace

Exported ExportRows(const QString& connection, const std::vector<TableExport>& tables,
                    const edit::WaitStep& step) {
    Exported exported;
    const std::unique_ptr<Database> database = services::Databases().Open(connection, step, exported.result);
    if (!database)
        return exported;
    const QStringList before = TableNames(*database);
    exported.result = database->BeginTransaction();
    if (!exported.result)
        return exported;
    qint64 total = 0;
    for (const TableExport& table : tables)
        total += table.data.table->lastRow();
    Run run(*database, step, total);
    for (const TableExport& table : tables) {
        if (exported.result)
            exported.result = run.Script(table);
    }
    if (exported.result)
        exported.result = database->Commit();
    if (exported.result) {
        exported.rows = run.Rows();
    } else {
        database->Rollback();
        RemoveMade(*database, before, tables);
    }
    return exported;
}

} // namespace exchange
