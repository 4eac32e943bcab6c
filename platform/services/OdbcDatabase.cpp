// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Odbc.h"

namespace services::odbc {

namespace {

std::shared_ptr<Statement> NewStatement(const std::shared_ptr<Session>& session) {
    return std::make_shared<Statement>(session);
}

/// Reads all rows of a list. `call` makes the list in the session's thread.
DatabaseResult ReadList(const std::shared_ptr<Session>& session,
                        const std::function<SQLRETURN(SQLHSTMT)>& call,
                        const std::function<void(const DatabaseRows&)>& take) {
    const std::shared_ptr<Statement> statement = NewStatement(session);
    DatabaseResult result = Blocking(session, statement, session->times.lists, [statement, call] {
        return Good(call(statement->handle)) ? DatabaseResult()
                                             : Complaint(SQL_HANDLE_STMT, statement->handle);
    });
    if (!result)
        return result;
    const std::unique_ptr<DatabaseRows> rows = ReadRows(statement, result);
    while (rows && rows->Next(result))
        take(*rows);
    return result;
}

QString TextOf(const DatabaseRows& rows, std::size_t column) {
    return column < rows.Columns().size() ? rows.Value(column).toString() : QString();
}

/// The names that pick out one table: parts that a driver doesn't tell are left open.
struct Place {
    explicit Place(const DatabaseTable& table)
        : catalog(Part(table.catalog)), schema(Part(table.schema)), name(table.name) {}
    static QString Part(const QString& part) { return part.isEmpty() ? QString() : part; }
    QString catalog, schema, name;
};

/// What a driver tells of itself, as `get` asks it in the session's thread; as `Value` begins where it
/// doesn't.
template <typename Value>
Value Info(Session& session, const std::function<bool(SQLHDBC connection, Value& value)>& get) {
    const auto value = std::make_shared<Value>();
    const auto told = std::make_shared<bool>(false);
    if (!session.work.IsLost())
        InThread(session.work, [=, connection = session.connection] { *told = get(connection, *value); });
    return !session.work.IsLost() && *told ? *value : Value();
}

SQLUINTEGER InfoNumber(Session& session, SQLUSMALLINT what) {
    return Info<SQLUINTEGER>(session, [what](SQLHDBC connection, SQLUINTEGER& number) {
        return Good(SQLGetInfoW(connection, what, &number, sizeof number, nullptr));
    });
}

QString InfoText(Session& session, SQLUSMALLINT what) {
    return Info<QString>(session, [what](SQLHDBC connection, QString& found) {
        SQLWCHAR text[256] = {};
        SQLSMALLINT bytes = 0;
        const bool good = Good(SQLGetInfoW(connection, what, text, sizeof text, &bytes));
        found = FromWide(text);
        return good;
    });
}

class OdbcDatabase : public Database {
public:
    explicit OdbcDatabase(std::shared_ptr<Session> session) : session_(std::move(session)) {
        const QString system = System();
        session_->sqlite = system.contains(QStringLiteral("sqlite"), Qt::CaseInsensitive);
        constexpr qint64 kOfSqlite = 255, kOfPostgres = 10'485'760;
        if (session_->sqlite)
            session_->untold = kOfSqlite;
        else if (system.contains(QStringLiteral("postgres"), Qt::CaseInsensitive))
            session_->untold = kOfPostgres;
    }

    DatabaseResult Tables(std::vector<DatabaseTable>& tables) override {
        const QString current = session_->narrow ? QString() : InfoText(*session_, SQL_DATABASE_NAME);
        return ReadList(
            session_,
            [](SQLHSTMT handle) {
                return SQLTablesW(handle, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
            },
            [&](const DatabaseRows& rows) {
                DatabaseTable table{TextOf(rows, 0), TextOf(rows, 1), TextOf(rows, 2), TextOf(rows, 3)};
                // Some drivers list the tables of all databases of a server.
                if (!current.isEmpty() && !table.catalog.isEmpty() && table.catalog != current)
                    return;
                // Drivers call them tables; no other ones of SQLite may be named so.
                if ((session_->sqlite &&
                     table.name.startsWith(QStringLiteral("sqlite_"), Qt::CaseInsensitive)) ||
                    table.type == QStringLiteral("SYSTEM VIEW"))
                    table.type = QStringLiteral("SYSTEM TABLE");
                tables.push_back(std::move(table));
            });
    }

    DatabaseResult Columns(const DatabaseTable& table, std::vector<DatabaseColumn>& columns) override {
        enum { kSchema = 1, kTable = 2, kName = 3, kType = 4, kTypeName = 5, kSize = 6 };
        return ReadList(
            session_,
            [place = Place(table)](SQLHSTMT handle) {
                Wide catalog(place.catalog), schema(place.schema), name(place.name);
                return SQLColumnsW(handle, catalog.data(), catalog.length(), schema.data(), schema.length(),
                                   name.data(), name.length(), nullptr, 0);
            },
            [&](const DatabaseRows& rows) {
                // Names of schemas and tables are taken for patterns.
                const QString schema = TextOf(rows, kSchema);
                if (TextOf(rows, kTable) != table.name || (!table.schema.isEmpty() && schema != table.schema))
                    return;
                DatabaseColumn column{TextOf(rows, kName), TextOf(rows, kType).toInt(),
                                      TextOf(rows, kTypeName), TextOf(rows, kSize).toLongLong()};
                if (column.size == session_->untold && !column.typeName.contains(u'('))
                    column.size = 0;
                columns.push_back(std::move(column));
            });
    }

    DatabaseResult PrimaryKey(const DatabaseTable& table, QStringList& columns) override {
        enum { kColumn = 3 };
        return ReadList(
            session_,
            [place = Place(table)](SQLHSTMT handle) {
                Wide catalog(place.catalog), schema(place.schema), name(place.name);
                return SQLPrimaryKeysW(handle, catalog.data(), catalog.length(), schema.data(),
                                       schema.length(), name.data(), name.length());
            },
            [&](const DatabaseRows& rows) { columns << TextOf(rows, kColumn); });
    }

    DatabaseResult ForeignKeys(const DatabaseTable& table, std::vector<DatabaseForeignKey>& keys) override {
        enum { kTable = 2, kTarget = 3, kColumn = 7, kSequence = 8, kName = 11 };
        QStringList names; // of the keys
        return ReadList(
            session_,
            [place = Place(table)](SQLHSTMT handle) {
                Wide catalog(place.catalog), schema(place.schema), name(place.name);
                return SQLForeignKeysW(handle, nullptr, 0, nullptr, 0, nullptr, 0, catalog.data(),
                                       catalog.length(), schema.data(), schema.length(), name.data(),
                                       name.length());
            },
            [&](const DatabaseRows& rows) {
                // Several keys to one table come mixed; without names they can only be told apart by the
                // number of the column.
                const QString name = TextOf(rows, kName);
                const bool first = keys.empty() || TextOf(rows, kSequence).toInt() <= 1;
                const bool known = name.isEmpty() ? !first : names.contains(name);
                if (!known) {
                    keys.push_back({TextOf(rows, kTable), {}, {}});
                    names << name;
                }
                const qsizetype at = name.isEmpty() ? names.size() - 1 : names.indexOf(name);
                DatabaseForeignKey& key = keys[static_cast<std::size_t>(at)];
                key.columns << TextOf(rows, kColumn);
                key.targets << TextOf(rows, kTarget);
            });
    }

    std::unique_ptr<DatabaseRows> Execute(const QString& sql, DatabaseResult& result) override {
        const std::shared_ptr<Statement> statement = NewStatement(session_);
        result = Blocking(session_, statement, session_->times.statement, [statement, sql] {
            const SQLRETURN code = ExecuteDirect(*statement->session, statement->handle, sql);
            return Good(code) || code == SQL_NO_DATA ? DatabaseResult()
                                                     : Complaint(SQL_HANDLE_STMT, statement->handle);
        });
        return result ? ReadRows(statement, result) : nullptr;
    }

    std::unique_ptr<DatabaseStatement> Prepare(const QString& sql, DatabaseResult& result) override {
        return PrepareStatement(session_, sql, result);
    }

    bool HasTransactions() const override { return InfoNumber(*session_, SQL_TXN_CAPABLE) != SQL_TC_NONE; }
    DatabaseResult BeginTransaction() override {
        if (!HasTransactions())
            return {DatabaseFailure::Failed, QStringLiteral("The database has no transactions.")};
        return Blocking(session_, nullptr, session_->times.lists, [session = session_] {
            return Good(SQLSetConnectAttr(session->connection, SQL_ATTR_AUTOCOMMIT,
                                          reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0))
                       ? DatabaseResult()
                       : Complaint(SQL_HANDLE_DBC, session->connection);
        });
    }
    bool TakesTablesBack() const override { return InfoNumber(*session_, SQL_TXN_CAPABLE) == SQL_TC_ALL; }
    DatabaseResult Commit() override {
        const DatabaseStep asked = std::exchange(session_->step, {});
        if (asked)
            session_->step = [asked](qint64 done, qint64 total) { return asked(done, total) || true; };
        const DatabaseResult result = End(SQL_COMMIT, session_->times.commit);
        session_->step = asked;
        return result;
    }
    DatabaseResult Rollback() override {
        session_->step = {};
        session_->cleaning = true;
        return End(SQL_ROLLBACK, kCleaningSeconds);
    }

    // It is one character. A driver that doesn't end its answer must not be asked for a wide one: the driver
    // manager would look for the end behind it.
    QString Quote() const override {
        return Info<QString>(*session_, [](SQLHDBC connection, QString& quote) {
            SQLCHAR text[256] = {};
            SQLSMALLINT bytes = 0;
            const bool good =
                Good(SQLGetInfoA(connection, SQL_IDENTIFIER_QUOTE_CHAR, text, sizeof text, &bytes));
            quote = QString::fromLatin1(reinterpret_cast<const char*>(text)).left(1);
            return good;
        });
    }
    QString System() const override { return InfoText(*session_, SQL_DBMS_NAME); }

private:
    DatabaseResult End(SQLSMALLINT how, int seconds) {
        return Blocking(session_, nullptr, seconds, [session = session_, how] {
            return Good(SQLEndTran(SQL_HANDLE_DBC, session->connection, how))
                       ? DatabaseResult()
                       : Complaint(SQL_HANDLE_DBC, session->connection);
        });
    }
    std::shared_ptr<Session> session_;
};

} // namespace

std::unique_ptr<Database> MakeDatabase(std::shared_ptr<Session> session) {
    return std::make_unique<OdbcDatabase>(std::move(session));
}

} // namespace services::odbc
