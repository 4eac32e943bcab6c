// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/TableScript.h"
#include "platform/services/Databases.h"
#include <QString>
#include <QStringList>
#include <vector>

struct Application;

// Tables into a database.
namespace exchange {

struct TableExport {
    TableData data;
    QString script;
};

struct Exported {
    services::DatabaseResult
        result;           ///< unless it is good, or `unknown`, or something is `left`, all is as it was
    bool unknown = false; ///< what was written may be there still: it can't be asked, or doesn't go back
    QStringList left;     ///< tables that were made and could not be removed
    qint64 rows = 0;      ///< that went in
};

/// Runs the scripts of all tables as one transaction: first what each has in front of its first statement
/// with parameters, then the rest. A statement with parameters runs for each row, with its values; it has to
/// have as many as the table has columns. A database without transactions is refused, and so is a script that
/// would end the one that all runs in. Where tables outlast a transaction that is taken back, those that the
/// scripts have made are removed. `step` is told of rows.
Exported ExportRows(Application& app, const QString& connection, const std::vector<TableExport>& tables,
                    const edit::WaitStep& step);

} // namespace exchange
