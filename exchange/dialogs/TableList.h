// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "platform/services/Databases.h"
#include <QString>
#include <QStringList>

namespace exchange {

/// What a database holds, as dialogs offer it.
struct TableList {
    services::DatabaseResult result;
    QStringList names; ///< of tables, views and system tables left out
    int count = 0;     ///< of tables and views
    QString quote;     ///< what stands around names that aren't plain words
    QString system;    ///< the database's own name
};

TableList TablesOf(Application& app, const QString& connection);
/// A name as a statement takes it: in quotes, unless it is a plain word.
QString NameInStatement(const QString& name, const QString& quote);
/// The message for a database that couldn't be reached.
void TellCancelled(Application& app);

} // namespace exchange
