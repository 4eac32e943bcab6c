// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "platform/services/Databases.h"
#include <QStringList>
#include <vector>

struct Application;

// The tables of a database as a schema describes them.
namespace exchange {

/// A table with all that is asked about it.
struct TableShape {
    services::DatabaseTable table;
    std::vector<services::DatabaseColumn> columns;
    QStringList key;
    std::vector<services::DatabaseForeignKey> foreignKeys;
};

/// Whether a table of this type holds data of its own.
bool IsDataTable(const services::DatabaseTable& table);

/// Reads the tables that hold data, their keys where these are wanted. What can't be read of one table leaves
/// that without columns or keys, and the others as they are; but not where the user has had enough, or the
/// database doesn't answer any more. The first failure comes back; that a driver knows nothing of keys is
/// none. `step` is told of tables.
services::DatabaseResult ReadShapes(Application& app, services::Database& database, bool keys,
                                    const edit::WaitStep& step, std::vector<TableShape>& shapes);

/// All names become valid ones, each of them another one; keys lead where they did. Gives the root's name.
QString MakeNamesValid(Application& app, std::vector<TableShape>& shapes);

} // namespace exchange
