// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/TableList.h"
#include "core/model/Application.h"
#include "exchange/OpenDatabase.h"
#include "exchange/SqlText.h"
#include "exchange/TableShapes.h"
#include <algorithm>

namespace exchange {

TableList TablesOf(Application& app, const QString& connection) {
    TableList list;
    edit::Waiting waiting(app, connection);
    const auto database = OpenDatabase(app, connection, waiting.Step(0, 0), list.result);
    if (!database)
        return list;
    std::vector<services::DatabaseTable> tables;
    list.result = database->Tables(tables);
    for (const services::DatabaseTable& table : tables) {
        if (table.type != QStringLiteral("SYSTEM TABLE"))
            ++list.count;
        if (IsDataTable(table))
            list.names << table.name;
    }
    list.quote = database->Quote();
    list.system = database->System();
    return list;
}

// Quirk 107. Databases make other names of capitals without quotes, and each in its way.
QString NameInStatement(const QString& name, const QString& quote) {
    const auto digit = [](QChar unit) { return unit >= u'0' && unit <= u'9'; };
    const auto plainUnit = [&](QChar unit) {
        return (unit >= u'a' && unit <= u'z') || digit(unit) || unit == u'_';
    };
    const bool plain = !name.isEmpty() && !digit(name[0]) &&
                       std::all_of(name.begin(), name.end(), plainUnit) && !IsSqlWord(name);
    return plain ? name : InQuotes(name, quote);
}

void TellCancelled(Application& app) {
    app.services.prompts.MsgBox(QStringLiteral("Operation was canceled. Please check DSN and try again."));
}

} // namespace exchange
