// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Odbc.h"

namespace services::odbc {

namespace {

constexpr int kCleaningSeconds = 10; // for what can't be cancelled

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

SQLUINTEGER InfoNumber(const Session& session, SQLUSMALLINT what) {
    SQLUINTEGER number = 0;
    if (!session.work.IsLost())
        SQLGetInfoW(session.connection, what, &number, sizeof number, nullptr);
    return number;
}

QString InfoText(const Session& session, SQLUSMALLINT what) {
    SQLWCHAR text[256] = {};
    SQLSMALLINT bytes = 0;
    if (session.work.IsLost() || !Good(SQLGetInfoW(session.connection, what, text, sizeof text, &bytes)))
        return {};
    return FromWide(text);
}

class OdbcDatabase : public Database {
public:
    explicit OdbcDatabase(std::shared_ptr<Session> session) : session_(std::move(session)) {
        session_->sqlite = System().contains(QStringLiteral("sqlite"), Qt::CaseInsensitive);
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
        enum { kTable = 2, kName = 3, kType = 4, kTypeName = 5, kSize = 6 };
        return ReadList(
            session_,
            [place = Place(table)](SQLHSTMT handle) {
                Wide catalog(place.catalog), schema(place.schema), name(place.name);
                return SQLColumnsW(handle, catalog.data(), catalog.length(), schema.data(), schema.length(),
                                   name.data(), name.length(), nullptr, 0);
            },
            [&](const DatabaseRows& rows) {
                if (TextOf(rows, kTable) == table.name) // the name was taken for a pattern
                    columns.push_back({TextOf(rows, kName), TextOf(rows, kType).toInt(),
                                       TextOf(rows, kTypeName), TextOf(rows, kSize).toLongLong()});
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
        enum { kTable = 2, kTarget = 3, kColumn = 7, kSequence = 8 };
        return ReadList(
            session_,
            [place = Place(table)](SQLHSTMT handle) {
                Wide catalog(place.catalog), schema(place.schema), name(place.name);
                return SQLForeignKeysW(handle, nullptr, 0, nullptr, 0, nullptr, 0, catalog.data(),
                                       catalog.length(), schema.data(), schema.length(), name.data(),
                                       name.length());
            },
            [&](const DatabaseRows& rows) {
                if (TextOf(rows, kSequence).toInt() <= 1 || keys.empty())
                    keys.push_back({TextOf(rows, kTable), {}, {}});
                keys.back().columns << TextOf(rows, kColumn);
                keys.back().targets << TextOf(rows, kTarget);
            });
    }

    std::unique_ptr<DatabaseRows> Execute(const QString& sql, DatabaseResult& result) override {
        const std::shared_ptr<Statement> statement = NewStatement(session_);
        const int seconds = session_->cleaning ? kCleaningSeconds : session_->times.statement;
        result = Blocking(session_, statement, seconds, [statement, sql] {
            const SQLRETURN code = ExecuteDirect(*statement->session, statement->handle, sql);
            return Good(code) || code == SQL_NO_DATA ? DatabaseResult()
                                                     : Complaint(SQL_HANDLE_STMT, statement->handle);
        });
        return result ? ReadRows(statement, result) : nullptr;
    }

    std::unique_ptr<DatabaseStatement> Prepare(const QString& sql, DatabaseResult& result) override {
        return PrepareStatement(session_, sql, result);
    }

    DatabaseResult BeginTransaction() override {
        if (InfoNumber(*session_, SQL_TXN_CAPABLE) == SQL_TC_NONE)
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
        SQLCHAR text[256] = {};
        SQLSMALLINT bytes = 0;
        if (session_->work.IsLost() ||
            !Good(SQLGetInfoA(session_->connection, SQL_IDENTIFIER_QUOTE_CHAR, text, sizeof text, &bytes)))
            return {};
        return QString::fromLatin1(reinterpret_cast<const char*>(text)).left(1);
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
