// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ImportRows.h"
#include "exchange/DataTypes.h"
#include "exchange/FieldNames.h"
#include "exchange/OpenDatabase.h"
#include "exchange/SqlText.h"

namespace exchange {

namespace {

using services::DatabaseFailure;
using services::DatabaseResult;
using services::DatabaseRows;

constexpr qsizetype kRowsPerStep = 500;

std::vector<QString> NamesOf(Application& app, const DatabaseRows& rows, bool repair) {
    std::vector<QString> names;
    for (const services::DatabaseColumn& column : rows.Columns())
        names.push_back(column.name);
    return repair ? ValidNames(app, names) : names;
}

/// Months and days are numbered from 1. Drivers give what they can't read as a date so.
bool IsNoDate(QStringView value) {
    constexpr qsizetype kDate = 10, kMonth = 5, kDay = 8;
    return value.size() >= kDate && value[kMonth - 1] == u'-' && value[kDay - 1] == u'-' &&
           (value.sliced(kMonth, 2) == u"00" || value.sliced(kDay, 2) == u"00");
}

bool HoldsDates(const services::DatabaseColumn& column) {
    const int type = DataTypeOf(column);
    return type == adDBDate || type == adDBTimeStamp;
}

/// False where the user cancelled; a failure is told by `result`.
bool WriteRows(DatabaseRows& rows, RowsXml& out, const RowsQuery& query, const edit::WaitStep& step,
               MadeRows& made) {
    std::vector<bool> dates;
    for (const services::DatabaseColumn& column : rows.Columns())
        dates.push_back(HoldsDates(column));
    for (qsizetype count = 0; rows.Next(made.result); ++count) {
        made.cut = query.most > 0 && count == query.most;
        if (made.cut)
            return true;
        out.BeginRow();
        for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
            const bool noDate = dates[i] && IsNoDate(rows.Value(i));
            made.noDates += noDate ? 1 : 0;
            out.Field(noDate ? QStringView() : rows.Value(i));
        }
        out.EndRow();
        if (count % kRowsPerStep == 0 && step && !step(count, 0))
            return false;
    }
    return true;
}

void Read(Application& app, services::Database& database, const RowsQuery& query, const edit::WaitStep& step,
          MadeRows& made) {
    const std::unique_ptr<DatabaseRows> rows = database.Execute(query.sql, made.result);
    if (!rows || rows->Columns().empty())
        return;
    const std::vector<QString> names = NamesOf(app, *rows, query.repair);
    made.nameComplaint = NameComplaint(app, names, query.filling);
    RowsXml out(names, query.filling);
    out.Begin(QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\r\n").arg(query.encoding));
    if (!WriteRows(*rows, out, query, step, made))
        made.result = {DatabaseFailure::Cancelled, {}};
    made.answered = static_cast<bool>(made.result);
    made.text = out.Finish();
    made.leftOut = out.Skipped();
}

DatabaseResult Refused(const QString& why) {
    return {DatabaseFailure::Failed, why};
}

// What ends the transaction by itself would change the database for good (quirk 128).
DatabaseResult RefusedForItsWords(const QString& sql) {
    const QString word = TransactionWord(sql);
    if (word.isEmpty())
        return {};
    return Refused(
        QStringLiteral("The statement has the word \"%1\". An import only reads: what it changes is "
                       "taken back, and the statement must not end that. A name that is such a word "
                       "has to stand in quotes.")
            .arg(word));
}

} // namespace

MadeRows RowsOf(Application& app, const RowsQuery& query, const edit::WaitStep& step) {
    MadeRows made;
    made.result = RefusedForItsWords(query.sql);
    if (!made.result)
        return made;
    const std::unique_ptr<services::Database> database =
        OpenDatabase(app, query.connection, step, made.result);
    if (!database)
        return made;
    // What the statement changes doesn't last (quirk 105).
    const bool guarded = database->HasTransactions();
    const bool allGoesBack = guarded && database->TakesTablesBack();
    if (!allGoesBack && !OnlyReads(query.sql)) {
        made.result =
            Refused(QStringLiteral("This database does not take everything back: what the statement "
                                   "changes could last. Only a statement that reads can run."));
        return made;
    }
    if (guarded)
        made.result = database->BeginTransaction();
    if (!made.result)
        return made;
    Read(app, *database, query, step, made);
    if (guarded)
        made.takenBack = static_cast<bool>(database->Rollback()) && allGoesBack;
    return made;
}

} // namespace exchange
