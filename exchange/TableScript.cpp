// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/TableScript.h"
#include "core/model/Escaping.h"
#include "exchange/SqlText.h"
#include <QDate>
#include <QSet>
#include <algorithm>

namespace exchange {

namespace {

using table::Columns;
using table::ElementTable;

constexpr qint64 kRowsPerStep = 1000;
constexpr qsizetype kIntegerDigits = 18; // of 64 bits, with any first digit
constexpr qsizetype kDecimalDigits = 15; // all that some databases keep of a decimal

bool AreDigits(QStringView text) {
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

QStringView WithoutSign(QStringView text) {
    return text.startsWith(u'-') ? text.sliced(1) : text;
}

/// A whole number that would be written the same way again: "007" is a text.
bool IsInteger(QStringView text) {
    const QStringView digits = WithoutSign(text);
    return AreDigits(digits) && (digits.size() == 1 || digits[0] != u'0') && text != u"-0";
}

bool IsDate(QStringView text) {
    return text.size() == 10 && text[4] == u'-' && text[7] == u'-' &&
           QDate::fromString(text.toString(), Qt::ISODate).isValid();
}

bool IsTime(QStringView text) {
    return text.size() == 8 && text[2] == u':' && text[5] == u':' &&
           QTime::fromString(text.toString(), Qt::ISODate).isValid();
}

bool IsTimestamp(QStringView text) {
    return text.size() == 19 && text[10] == u'T' && IsDate(text.first(10)) && IsTime(text.sliced(11));
}

// Databases that have other words for a type, or give the usual word another meaning.
constexpr struct {
    const char *type, *mySql, *sqlServer;
} kWords[] = {{"TIMESTAMP", "DATETIME", "DATETIME2"}, {"TEXT", "LONGTEXT", "NVARCHAR(MAX)"}};

bool IsMySql(const QString& system) {
    return system.contains(QStringLiteral("mariadb"), Qt::CaseInsensitive) ||
           system.contains(QStringLiteral("mysql"), Qt::CaseInsensitive);
}

/// What a new table needs to take every character.
QString Charset(const QString& system) {
    return IsMySql(system) ? QStringLiteral(" CHARACTER SET utf8mb4") : QString();
}

bool IsSqlServer(const QString& system) {
    return system.contains(QStringLiteral("sql server"), Qt::CaseInsensitive);
}

/// The characters of a text of limited length; 0 for another type.
int LengthOf(const QString& type) {
    const QString limited = QStringLiteral("VARCHAR(");
    return type.startsWith(limited) ? type.sliced(limited.size()).chopped(1).toInt() : 0;
}

QString TypeIn(const QString& system, const QString& type) {
    for (const auto& words : kWords) {
        if (type == QLatin1String(words.type) && (IsMySql(system) || IsSqlServer(system)))
            return QLatin1String(IsMySql(system) ? words.mySql : words.sqlServer);
    }
    if (!IsSqlServer(system) || LengthOf(type) == 0)
        return type;
    constexpr int kMost = 4000; // characters of its texts of limited length; the usual ones take no Chinese
    return LengthOf(type) > kMost ? QStringLiteral("NVARCHAR(MAX)") : u'N' + type;
}

// A row of MariaDB or MySQL has a largest size, in which texts of limited length count with all their room.
QStringList TypesIn(const QString& system, const std::vector<QString>& types) {
    constexpr int kMostOfRow = 16'000; // characters of up to four bytes
    int units = 0;
    QStringList own;
    for (const QString& type : types) {
        own << TypeIn(system, type);
        units += LengthOf(type);
    }
    for (QString& type : own) {
        if (IsMySql(system) && units > kMostOfRow && LengthOf(type) > 0)
            type = QStringLiteral("TEXT");
    }
    return own;
}

QString ColumnName(const ElementTable& table, int column) {
    return column == table.textColumn() ? QStringLiteral("Node_Text") : table.header(column);
}

} // namespace

void TypeGuess::add(QStringView value) {
    any_ = true;
    longest_ = std::max(longest_, value.size());
    const qsizetype point = value.indexOf(u'.');
    const QStringView whole = point < 0 ? value : value.first(point);
    const bool number = IsInteger(whole) || (point > 0 && whole == u"-0");
    integer_ = integer_ && number && point < 0 && WithoutSign(value).size() <= kIntegerDigits;
    // Others come back with other digits: "1.1" as "1.10", or "1.10" as "1.1" from a database that keeps
    // decimals as floating numbers.
    const qsizetype fraction = point < 0 ? 0 : value.size() - point - 1;
    decimal_ = decimal_ && number && fraction > 0 && (fraction_ == 0 || fraction_ == fraction) &&
               AreDigits(value.last(fraction)) && !value.endsWith(u'0');
    whole_ = std::max(whole_, WithoutSign(whole).size());
    fraction_ = std::max(fraction_, fraction);
    date_ = date_ && IsDate(value);
    timestamp_ = timestamp_ && IsTimestamp(value);
}

QString TypeGuess::type() const {
    if (any_ && integer_)
        return whole_ > 9 ? QStringLiteral("BIGINT") : QStringLiteral("INTEGER");
    if (any_ && decimal_ && whole_ + fraction_ <= kDecimalDigits)
        return QStringLiteral("NUMERIC(%1, %2)").arg(whole_ + fraction_).arg(fraction_);
    if (any_ && date_)
        return QStringLiteral("DATE");
    if (any_ && timestamp_)
        return QStringLiteral("TIMESTAMP");
    constexpr qsizetype kUsual = 255, kMost = 8000;
    return longest_ <= kUsual  ? QStringLiteral("VARCHAR(255)")
           : longest_ <= kMost ? QStringLiteral("VARCHAR(%1)").arg(longest_)
                               : QStringLiteral("TEXT");
}

std::vector<QString> TableData::values(int row) const {
    std::vector<QString> values;
    if (columns.empty())
        return values;
    const auto found = table->values(row, Columns::kFirst, table->textColumn());
    for (const int column : columns) {
        const text::CompactView value = found[static_cast<std::size_t>(column - Columns::kFirst)];
        const bool missing = value.data == nullptr || (column == table->textColumn() && value.isEmpty());
        values.push_back(missing ? QString() : mXMLEdit::WithoutReferences(value.toString()));
        if (!missing && values.back().isNull())
            values.back() = QStringLiteral("");
    }
    return values;
}

std::optional<TableData> DataOf(std::shared_ptr<const ElementTable> table, const edit::WaitStep& step) {
    TableData all{table, table->name(), {}, {}};
    for (int column = Columns::kFirst; column <= table->textColumn(); ++column)
        all.columns.push_back(column);
    std::vector<TypeGuess> guesses(all.columns.size());
    bool texts = all.columns.size() == 1; // a table without attributes has that column alone
    for (int row = 1; row <= table->lastRow(); ++row) {
        const std::vector<QString> values = all.values(row);
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!values[i].isNull())
                guesses[i].add(values[i]);
        }
        texts = texts || !values.back().isNull();
        if (row % kRowsPerStep == 0 && step && !step(row, table->lastRow()))
            return std::nullopt;
    }
    if (!texts) {
        all.columns.pop_back();
        guesses.pop_back();
    }
    for (const TypeGuess& guess : guesses)
        all.types.push_back(guess.type());
    return all;
}

void MakeDistinct(std::vector<QString>& names) {
    QSet<QString> taken;
    for (QString& name : names) {
        const QString wanted = name;
        for (int number = 2; taken.contains(name.toCaseFolded()); ++number)
            name = wanted + u'_' + QString::number(number);
        taken.insert(name.toCaseFolded());
    }
}

QString ScriptOf(const TableData& data, const QString& quote, const QString& system) {
    const QString name = InQuotes(data.name, quote);
    std::vector<QString> columns;
    for (const int column : data.columns)
        columns.push_back(ColumnName(*data.table, column));
    MakeDistinct(columns);
    const QStringList types = TypesIn(system, data.types);
    QStringList definitions, names, parameters;
    for (std::size_t i = 0; i < data.columns.size(); ++i) {
        const QString column = InQuotes(columns[i], quote);
        definitions << QStringLiteral("    ") + column + u' ' + types[static_cast<qsizetype>(i)];
        names << column;
        parameters << QStringLiteral("?");
    }
    return QStringLiteral("CREATE TABLE ") + name + QStringLiteral(" (\n") +
           definitions.join(QStringLiteral(",\n")) + QStringLiteral("\n)") + Charset(system) +
           QStringLiteral(";\nINSERT INTO ") + name + QStringLiteral(" (") +
           names.join(QStringLiteral(", ")) + QStringLiteral(")\n    VALUES (") +
           parameters.join(QStringLiteral(", ")) + QStringLiteral(");\n");
}

std::vector<ScriptStatement> StatementsOf(const QString& script) {
    std::vector<ScriptStatement> statements;
    ScriptStatement statement;
    const auto end = [&] {
        statement.sql = statement.sql.trimmed();
        if (!statement.sql.isEmpty())
            statements.push_back(statement);
        statement = {};
    };
    const std::vector<SqlPart> parts = PartsOf(script);
    SqlPart before = SqlPart::Code;
    for (qsizetype at = 0; at < script.size(); ++at) {
        const SqlPart part = parts[static_cast<std::size_t>(at)];
        const bool code = part == SqlPart::Code;
        if (part == SqlPart::Comment) {
            if (before != part) // it parts words
                statement.sql += u' ';
        } else if (code && script[at] == u';') {
            end();
        } else {
            statement.hasParameters = statement.hasParameters || (code && script[at] == u'?');
            statement.sql += script[at];
        }
        before = part;
    }
    end();
    return statements;
}

} // namespace exchange
