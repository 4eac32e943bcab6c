// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <vector>

// What stands where in SQL, as far as all databases agree on it.
namespace exchange {

enum class SqlPart { Code, Quoted, Comment };
/// One for each unit of a text. The line end behind a "--" is code; so is a comment that databases obey
/// ("/*!" and "/*+").
std::vector<SqlPart> PartsOf(QStringView sql);

/// The word by which a statement would end the transaction that it runs in; empty without one.
QString TransactionWord(const QString& sql);
/// Whether a text has only statements that read. When in doubt, it hasn't.
bool OnlyReads(const QString& sql);
/// The name of the table that a statement makes, without quotes and what stands in front of it; empty for
/// another statement.
QString TableMadeBy(const QString& sql);
/// Whether it makes the table only where there is none of that name.
bool MakesOnlyWhatIsMissing(const QString& sql);
/// A name in quotes, those in it doubled; as it is where `quote` is blank.
QString InQuotes(QString name, const QString& quote);
/// Whether a name that stands without quotes may be taken for a word of the language.
bool IsSqlWord(const QString& name);

} // namespace exchange
