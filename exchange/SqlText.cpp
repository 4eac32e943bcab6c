// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/SqlText.h"
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace exchange {

namespace {

QStringList Split(const char* words) {
    return QString::fromLatin1(words).split(u' ');
}

// Some databases part statements without ";": these are looked for at any place.
const QStringList kEnding = Split("commit rollback savepoint autocommit");
// "end" closes a "case" as well: these count at the beginning of a statement.
const QStringList kBeginning = Split("begin start end abort release");
const QStringList kReading = Split("select with values table show");
const QStringList kChanging = Split("insert update delete merge replace into");

/// The words of each statement in lower case, without what is quoted or a comment.
std::vector<QStringList> WordsOf(const QString& sql) {
    std::vector<QStringList> statements(1);
    const std::vector<SqlPart> parts = PartsOf(sql);
    // Where a backslash may keep a quote open nothing is known to be quoted.
    // A "#" begins a comment in some.
    const bool unsure =
        sql.contains(QStringLiteral("\\'")) || sql.contains(QStringLiteral("\\\"")) || sql.contains(u'#');
    QString word;
    const auto end = [&] {
        if (!word.isEmpty())
            statements.back() << word.toLower();
        word.clear();
    };
    for (qsizetype at = 0; at < sql.size(); ++at) {
        const SqlPart part = parts[static_cast<std::size_t>(at)];
        const bool code = part == SqlPart::Code || (unsure && part == SqlPart::Quoted);
        if (code && (sql[at].isLetterOrNumber() || sql[at] == u'_')) {
            word += sql[at];
            continue;
        }
        end();
        if (code && sql[at] == u';')
            statements.emplace_back();
    }
    end();
    return statements;
}

bool StartsAt(QStringView sql, qsizetype at, QStringView sign) {
    return sql.sliced(at).startsWith(sign);
}

/// The place behind a quote or a comment that begins at `at`; `at` where code goes on.
qsizetype EndOfPart(QStringView sql, qsizetype at, SqlPart& part) {
    const auto behind = [&](QStringView end, qsizetype from, qsizetype more) {
        const qsizetype found = sql.indexOf(end, from);
        return found < 0 ? sql.size() : found + more;
    };
    if (QStringView(u"'\"`").contains(sql[at])) {
        part = SqlPart::Quoted;
        return behind(sql.sliced(at, 1), at + 1, 1);
    }
    part = SqlPart::Comment;
    if (StartsAt(sql, at, u"--"))
        return behind(u"\n", at, 0);
    if (StartsAt(sql, at, u"/*") && !StartsAt(sql, at, u"/*!") && !StartsAt(sql, at, u"/*+"))
        return behind(u"*/", at + 2, 2);
    return at;
}

} // namespace

std::vector<SqlPart> PartsOf(QStringView sql) {
    std::vector<SqlPart> parts;
    parts.reserve(static_cast<std::size_t>(sql.size()));
    for (qsizetype at = 0; at < sql.size();) {
        SqlPart part = SqlPart::Code;
        const qsizetype end = EndOfPart(sql, at, part);
        if (end == at)
            part = SqlPart::Code;
        at = std::max(end, at + 1);
        parts.resize(static_cast<std::size_t>(at), part);
    }
    return parts;
}

QString TransactionWord(const QString& sql) {
    for (const QStringList& words : WordsOf(sql)) {
        if (words.isEmpty())
            continue;
        if (kBeginning.contains(words.first()) || words.mid(0, 2) == Split("prepare transaction"))
            return words.first();
        for (const QString& word : words) {
            if (kEnding.contains(word))
                return word;
        }
    }
    return {};
}

bool OnlyReads(const QString& sql) {
    // There are functions of these names; a statement has the name of a table behind the word.
    static const QRegularExpression kFunction(QStringLiteral("\\b(?:insert|replace)\\s*\\("),
                                              QRegularExpression::CaseInsensitiveOption);
    for (const QStringList& words : WordsOf(QString(sql).replace(kFunction, QStringLiteral("f(")))) {
        if (!words.isEmpty() && !kReading.contains(words.first()))
            return false;
        for (const QString& word : words) {
            if (kChanging.contains(word))
                return false;
        }
    }
    return true;
}

QString TableMadeBy(const QString& sql) {
    const QString word =
        QStringLiteral("(\"(?:[^\"]|\"\")+\"|`(?:[^`]|``)+`|\\[[^\\]]+\\]|[^\\s\"`\\[(.;]+)");
    static const QRegularExpression kMakes(
        QStringLiteral("^\\s*create\\s+table\\s+(?:if\\s+not\\s+exists\\s+)?(?:%1\\s*\\.\\s*)*%1").arg(word),
        QRegularExpression::CaseInsensitiveOption);
    QString name = kMakes.match(sql).captured(2);
    if (name.size() < 2 || !QStringView(u"\"`[").contains(name[0]))
        return name;
    const QChar quote = name[0];
    name = name.mid(1, name.size() - 2);
    return name.replace(QString(2, quote), QString(quote));
}

bool MakesOnlyWhatIsMissing(const QString& sql) {
    static const QRegularExpression kMaybe(QStringLiteral("^\\s*create\\s+table\\s+if\\s+not\\s+exists\\b"),
                                           QRegularExpression::CaseInsensitiveOption);
    return kMaybe.match(sql).hasMatch();
}

QString InQuotes(QString name, const QString& quote) {
    return quote.trimmed().isEmpty() ? name : quote + name.replace(quote, quote + quote) + quote;
}

bool IsSqlWord(const QString& name) {
    static const QStringList words = Split(
        "add all alter analyze and any array as asc autocommit begin between both by call cascade case cast "
        "change check collate column commit condition constraint create cross current_date current_time "
        "current_timestamp current_user cursor database databases date default deferrable delete desc "
        "describe distinct do drop each else end escape except exec execute exists exit explain false fetch "
        "file for foreign from full function grant group groups having identity if ignore in index initially "
        "inner insert intersect interval into is isnull join key keys kill lateral leading left like limit "
        "linear lines load localtime localtimestamp lock loop match merge mod natural new not notnull null "
        "of "
        "off offset on only open option or order out outer over overlaps partition percent placing plan "
        "pragma primary procedure public raise range rank read recursive references regexp reindex release "
        "rename repeat replace require restrict return returning revoke right rollback row rows rule "
        "savepoint schema schemas select session_user set show similar some start symmetric system table "
        "tables temp temporary then time timestamp to top trailing transaction trigger true truncate union "
        "unique unlock update usage use user using vacuum values varying verbose view virtual when where "
        "while window with without write");
    return words.contains(name, Qt::CaseInsensitive);
}

} // namespace exchange
