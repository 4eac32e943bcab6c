// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "table/ElementTable.h"
#include <QString>
#include <memory>
#include <optional>
#include <vector>

// A table of the table view as statements that make a table of a database and fill it.
namespace exchange {

/// What goes from a table of the view into one of a database.
struct TableData {
    std::shared_ptr<const table::ElementTable> table;
    QString name;               ///< of the database's table
    std::vector<int> columns;   ///< of the view: those of attributes, and of texts where there are any
    std::vector<QString> types; ///< SQL types that hold all their values

    /// The values of a row; null where it has none.
    std::vector<QString> values(int row) const;
};

/// Looks at all values; nothing when the user cancelled.
std::optional<TableData> DataOf(std::shared_ptr<const table::ElementTable> table, const edit::WaitStep& step);

/// Numbers go behind names that a database, which doesn't tell cases apart, would take for one before them.
void MakeDistinct(std::vector<QString>& names);

/// A statement that makes the table, and one that fills a row, with a parameter for each column. `quote`
/// stands around names; `system` is the database's own name, whose words for types are used.
QString ScriptOf(const TableData& data, const QString& quote, const QString& system = {});
struct ScriptStatement {
    QString sql;
    bool hasParameters = false;
};
/// The statements of a script, parted by ";" outside of quotes and comments; blank ones left out.
std::vector<ScriptStatement> StatementsOf(const QString& script);

/// The narrowest type for values that come one by one.
class TypeGuess {
public:
    void add(QStringView value);
    QString type() const;

private:
    bool any_ = false;
    bool integer_ = true, decimal_ = true, date_ = true, timestamp_ = true;
    qsizetype longest_ = 0, whole_ = 1, fraction_ = 0;
};

} // namespace exchange
