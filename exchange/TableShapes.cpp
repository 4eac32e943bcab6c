// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/TableShapes.h"
#include "core/model/Application.h"
#include "exchange/FieldNames.h"
#include <QHash>

namespace exchange {

namespace {

using services::DatabaseColumn;
using services::DatabaseFailure;
using services::DatabaseForeignKey;
using services::DatabaseResult;
using services::DatabaseTable;

/// New names by the old ones; the first of equal ones counts.
using Renamed = QHash<QString, QString>;

Renamed MakeValid(Application& app, const std::vector<QString*>& names) {
    std::vector<QString> old;
    for (const QString* name : names)
        old.push_back(*name);
    const std::vector<QString> valid = ValidNames(app, old);
    Renamed renamed;
    for (std::size_t i = 0; i < old.size(); ++i) {
        *names[i] = valid[i];
        if (!renamed.contains(old[i]))
            renamed.insert(old[i], valid[i]);
    }
    return renamed;
}

DatabaseResult ReadShape(services::Database& database, bool keys, TableShape& shape) {
    DatabaseResult result = database.Columns(shape.table, shape.columns);
    if (!result || !keys)
        return result;
    result = database.PrimaryKey(shape.table, shape.key);
    if (result)
        result = database.ForeignKeys(shape.table, shape.foreignKeys);
    return result.failure == DatabaseFailure::Unsupported ? DatabaseResult() : result;
}

void Rename(QStringList& names, const Renamed& renamed) {
    for (QString& name : names)
        name = renamed.value(name);
}

} // namespace

bool IsDataTable(const DatabaseTable& table) {
    return table.type != QStringLiteral("VIEW") && table.type != QStringLiteral("SYSTEM TABLE");
}

DatabaseResult ReadShapes(Application& app, services::Database& database, bool keys,
                          const edit::WaitStep& step, std::vector<TableShape>& shapes) {
    std::vector<DatabaseTable> tables;
    DatabaseResult first = database.Tables(tables);
    qint64 done = 0;
    for (const DatabaseTable& table : tables) {
        if (step && !step(++done, static_cast<qint64>(tables.size())))
            return {DatabaseFailure::Cancelled, {}};
        if (!IsDataTable(table))
            continue;
        TableShape& shape = shapes.emplace_back();
        shape.table = table;
        const DatabaseResult result = ReadShape(database, keys, shape);
        if (result)
            continue;
        if (result.failure == DatabaseFailure::Cancelled)
            return result;
        ErrorReportBox(app, text::Fault(text::kFaultBadCall, result.text),
                       QStringLiteral("frmCreateDBSchema@GetTableColumnsSchema"));
        if (first)
            first = {result.failure, table.name + QStringLiteral(": ") + result.text};
        if (result.failure != DatabaseFailure::Failed)
            break;
    }
    return first;
}

QString MakeNamesValid(Application& app, std::vector<TableShape>& shapes) {
    QHash<QString, Renamed> columns; // of tables by their old names
    for (TableShape& shape : shapes) {
        std::vector<QString*> names;
        for (DatabaseColumn& column : shape.columns)
            names.push_back(&column.name);
        const Renamed renamed = MakeValid(app, names);
        Rename(shape.key, renamed);
        for (DatabaseForeignKey& key : shape.foreignKeys)
            Rename(key.columns, renamed);
        if (!columns.contains(shape.table.name))
            columns.insert(shape.table.name, renamed);
    }
    QString root = QStringLiteral("data");
    std::vector<QString*> tables;
    for (TableShape& shape : shapes)
        tables.push_back(&shape.table.name);
    tables.push_back(&root);
    const Renamed renamed = MakeValid(app, tables);
    for (TableShape& shape : shapes) {
        for (DatabaseForeignKey& key : shape.foreignKeys) {
            Rename(key.targets, columns.value(key.table));
            key.table = renamed.value(key.table);
        }
    }
    return root;
}

} // namespace exchange
