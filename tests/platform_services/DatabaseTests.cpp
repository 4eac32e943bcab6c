// SPDX-License-Identifier: GPL-3.0-or-later
// Databases behind real drivers: a SQLite file, a PostgreSQL server of the test's own, an Access file.
#include "platform/services/Databases.h"
#include "tests/platform_services/Folder.h"
#include "tests/support/MariadbServer.h"
#include "tests/support/PostgresServer.h"
#include "tests/support/SqliteFile.h"
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <csignal>
#include <gtest/gtest.h>

namespace {

using services::Database;
using services::DatabaseFailure;
using services::DatabaseResult;
using services::Databases;

std::unique_ptr<Database> Open(const QString& connection) {
    DatabaseResult result;
    auto database = Databases().Open(connection, {}, result);
    EXPECT_TRUE(result) << result.text.toStdString();
    return database;
}

/// The rows of a query: "|" between values, a line each; "-" for null. What the database says where it fails.
std::string Answer(Database& database, const QString& sql) {
    DatabaseResult result;
    const auto rows = database.Execute(sql, result);
    QStringList lines;
    while (rows && rows->Next(result)) {
        QStringList values;
        for (std::size_t i = 0; i < rows->Columns().size(); ++i)
            values << (rows->IsNull(i) ? QStringLiteral("-") : rows->Value(i).toString());
        lines << values.join(u'|');
    }
    return (result ? lines.join(u'\n') : result.text).toStdString();
}

std::string TablesOf(Database& database, const QString& schema = {}) {
    std::vector<services::DatabaseTable> tables;
    EXPECT_TRUE(database.Tables(tables));
    QStringList names;
    for (const auto& table : tables) {
        if (schema.isEmpty() || table.schema == schema)
            names << table.name + u':' + table.type;
    }
    names.sort();
    return names.join(u' ').toStdString();
}

TEST(Databases, SQLiteGivesValuesAsTheyStandWhateverTheirColumnsPromise) {
    test::SqliteFile file;
    file.Run("create table t(n integer, short varchar(5), day date, at timestamp, yes boolean, bytes blob, "
             "price decimal(9,2));"
             "insert into t values(1, 'longer than five 中文', '2001-02-03', '2001-02-03 04:05:06', 1, "
             "x'00FF', .5),"
             "(null, '', 'soon', null, 0, null, -0.25);"
             "create view v as select n from t;");
    const auto database = Open(file.Connection());
    ASSERT_TRUE(database);
    EXPECT_EQ(
        Answer(*database, QStringLiteral("select * from t")),
        "1|longer than five 中文|2001-02-03|2001-02-03T04:05:06|true|00FF|0.5\n-||soon|-|false|-|-0.25");
    EXPECT_EQ(TablesOf(*database), "t:TABLE v:VIEW");
    EXPECT_NE(Answer(*database, QStringLiteral("select * from nowhere")).find("no such table: nowhere"),
              std::string::npos);
    EXPECT_EQ(Answer(*database, QStringLiteral("delete from t where n = 7")), "");
}

TEST(Databases, LongAndManyValuesComeWhole) {
    test::SqliteFile file;
    file.Run("create table t(n integer, body text);"
             "with recursive c(i) as (select 1 union all select i + 1 from c where i < 1200)"
             "insert into t select i, substr(hex(zeroblob(i * 20)), 1, i * 20) || i from c;"
             "insert into t values(0, hex(zeroblob(1500000)) || '末');");
    const auto database = Open(file.Connection());
    DatabaseResult result;
    const auto rows = database->Execute(QStringLiteral("select n, body from t order by rowid"), result);
    ASSERT_TRUE(rows);
    int read = 0;
    qsizetype longest = 0;
    for (; rows->Next(result); ++read) {
        const QString body = rows->Value(1).toString();
        longest = std::max(longest, body.size());
        const bool whole = read < 1200 ? body.size() == (read + 1) * 20 + QString::number(read + 1).size() &&
                                             body.endsWith(QString::number(read + 1))
                                       : body.endsWith(QStringLiteral("0末"));
        ASSERT_TRUE(whole) << read;
    }
    EXPECT_TRUE(result);
    EXPECT_EQ(read, 1201);
    EXPECT_EQ(longest, 3000001);
}

TEST(Databases, WhatIsNotCommittedIsTakenBack) {
    test::SqliteFile file;
    file.Run("create table t(n integer, s text);");
    {
        const auto database = Open(file.Connection());
        DatabaseResult result;
        ASSERT_TRUE(database->BeginTransaction());
        const auto insert = database->Prepare(QStringLiteral("insert into t values(?, ?)"), result);
        ASSERT_TRUE(insert) << result.text.toStdString();
        EXPECT_EQ(insert->Parameters(), 2);
        EXPECT_TRUE(insert->Run(
            {QStringLiteral("1"), QString(9000, u'x') + QStringLiteral("'; drop table t; -- 中")}));
        result = insert->Run({QStringLiteral("2"), QString()});
        EXPECT_TRUE(result) << result.text.toStdString();
        EXPECT_TRUE(database->Commit());
        EXPECT_TRUE(insert->Run({QStringLiteral("3"), QStringLiteral("")}));
    }
    const auto database = Open(file.Connection());
    EXPECT_EQ(Answer(*database, QStringLiteral("select n, length(s), substr(s, 9001) from t")),
              "1|9021|'; drop table t; -- 中\n2|-|-");
}

TEST(Databases, SourcesAreListedAndFailuresSayWhy) {
    test::SqliteFile file;
    ASSERT_TRUE(Databases().AddSource(QStringLiteral("stock 1"), QStringLiteral("SQLite3"),
                                      {{QStringLiteral("Database"), file.Path()}}));
    QStringList names;
    for (const auto& source : Databases().Sources())
        names << source.name;
    EXPECT_TRUE(names.contains(QStringLiteral("stock 1")));
    EXPECT_TRUE(Databases().Drivers().contains(QStringLiteral("SQLite3")));
    EXPECT_TRUE(Open(QStringLiteral("DSN=stock 1;")));

    DatabaseResult result;
    EXPECT_FALSE(Databases().Open(QStringLiteral("DSN=never heard of;"), {}, result));
    EXPECT_EQ(result.failure, DatabaseFailure::NoDriver);
    EXPECT_TRUE(result.text.contains(QStringLiteral("Data source name not found")));
    const QString missing = file.Path() + QStringLiteral(".missing");
    EXPECT_FALSE(Databases().Open(QStringLiteral("Driver=SQLite3;Database=%1;").arg(missing), {}, result));
    EXPECT_FALSE(QFile::exists(missing)) << "looking for a database made one";
    EXPECT_FALSE(Databases().Open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + missing,
                                  {}, result));
    EXPECT_EQ(result.failure, DatabaseFailure::Failed);
}

TEST(Databases, TheListOfSourcesKeepsAllElseAndWhoMayReadIt) {
    test::SqliteFile file;
    const test::SqliteFile other;
    test::Folder folder;
    const QByteArray head = "; my sources\n[ODBC]\nTrace = No\n\n";
    const QByteArray tail = "\n# the old one\n[Old]\nDriver = SQLite3 ; still good\n";
    const QString list = folder.Write(QStringLiteral("odbc.ini"),
                                      head + "[stock]\n; of wine\nDriver = None\nTrace = Yes\n" + tail, 0640);
    qputenv("ODBCINI", list.toUtf8());
    const auto add = [](const QString& path) {
        return static_cast<bool>(Databases().AddSource(QStringLiteral("stock"), QStringLiteral("SQLite3"),
                                                       {{QStringLiteral("Database"), path}}));
    };
    EXPECT_TRUE(add(file.Path()));
    EXPECT_EQ(folder.Read(QStringLiteral("odbc.ini")), head + "[stock]\nDriver = SQLite3\nDatabase = " +
                                                           file.Path().toUtf8() + "\n; of wine\n" + tail);
    EXPECT_EQ(folder.Mode(QStringLiteral("odbc.ini")), 0640u);
    // What the driver manager has read of the source is another one now.
    file.Run("create table first(a)");
    other.Run("create table second(a)");
    EXPECT_EQ(TablesOf(*Open(QStringLiteral("DSN=stock;"))), "first:TABLE");
    EXPECT_TRUE(add(other.Path()));
    EXPECT_EQ(TablesOf(*Open(QStringLiteral("DSN=stock;"))), "second:TABLE");
    for (const QString& key : {QStringLiteral("Password"), QStringLiteral("PWD")}) {
        folder.Write(QStringLiteral("odbc.ini"), head, 0644);
        EXPECT_TRUE(Databases().AddSource(QStringLiteral("server"), QStringLiteral("x"), {{key, key}}));
        EXPECT_EQ(folder.Mode(QStringLiteral("odbc.ini")), 0600u);
    }
}

// It takes the connection and is silent from then on.
TEST(Databases, AServerThatNeverAnswersIsLeftAlone) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    const QString connection =
        QStringLiteral("Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=%1;Database=x;UID=x;")
            .arg(silent.serverPort());
    if (!Databases().Drivers().contains(QStringLiteral("PostgreSQL Unicode")))
        GTEST_SKIP() << "the driver odbc-postgresql isn't installed";
    DatabaseResult result;
    int steps = 0;
    EXPECT_FALSE(Databases().Open(
        connection, [&](qint64, qint64) { return ++steps < 3; }, result));
    EXPECT_EQ(result.failure, DatabaseFailure::Cancelled);
    EXPECT_FALSE(Databases().Open(connection, {}, result, {.connect = 1}));
    EXPECT_EQ(result.failure, DatabaseFailure::TimedOut);
}

TEST(Databases, PostgresGivesTypedValuesAndCanBeStopped) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    const auto database = Open(server.Connection());
    ASSERT_TRUE(database);
    EXPECT_EQ(Answer(*database,
                     QStringLiteral("create table t(n bigint primary key, b bool, d date, at timestamp, f "
                                    "double precision, m numeric(9,2), raw bytea, body text)")),
              "");
    EXPECT_EQ(Answer(*database,
                     QStringLiteral("insert into t values(1, true, '2001-02-03', '2001-02-03 04:05:06.5', "
                                    "0.1::float8 + 0.2, .5, '\\x00ff', repeat('é', 20000) || '末'), "
                                    "(2, false, null, null, 'NaN', null, null, '')")),
              "");
    EXPECT_EQ(
        Answer(*database, QStringLiteral("select n, b, d, at, f, m, raw, length(body) from t order by n")),
        "1|true|2001-02-03|2001-02-03T04:05:06.5|0.30000000000000004|0.50|00FF|20001\n2|false|-|-|NaN|-|-|0");
    EXPECT_EQ(Answer(*database, QStringLiteral("select body from t where n = 1")).size(), 40003u);
    QStringList key;
    services::DatabaseTable table;
    table.name = QStringLiteral("t");
    EXPECT_TRUE(database->PrimaryKey(table, key));
    EXPECT_EQ(key, QStringList(QStringLiteral("n")));
    EXPECT_EQ(Answer(*database, QStringLiteral("select 'Infinity'::real, '-Infinity'::real, 'NaN'::real, "
                                               "0.1::real, 'Infinity'::float8")),
              "INF|-INF|NaN|0.1|INF");
    EXPECT_NE(Answer(*database, QStringLiteral("selekt 1")).find("syntax error"), std::string::npos);

    DatabaseResult result;
    int steps = 0;
    const auto stopped = Databases().Open(
        server.Connection(), [&](qint64, qint64) { return ++steps < 5; }, result);
    ASSERT_TRUE(stopped);
    steps = 0;
    EXPECT_FALSE(stopped->Execute(QStringLiteral("select pg_sleep(60)"), result));
    EXPECT_EQ(result.failure, DatabaseFailure::Cancelled);
    // Silent from now on, also to who asks it to stop.
    steps = 0;
    const auto stepped = Databases().Open(
        server.Connection(), [&](qint64, qint64) { return ++steps < 5; }, result);
    ASSERT_TRUE(stepped);
    const int worker = std::stoi(Answer(*stepped, QStringLiteral("select pg_backend_pid()")));
    const auto both = {static_cast<pid_t>(server.ProcessId()), static_cast<pid_t>(worker)};
    for (const pid_t process : both)
        kill(process, SIGSTOP);
    steps = 0;
    EXPECT_EQ(Answer(*stepped, QStringLiteral("select 1")), "");
    EXPECT_EQ(Answer(*stepped, QStringLiteral("select 1")), "The connection is lost.");
    for (const pid_t process : both)
        kill(process, SIGCONT);
    EXPECT_FALSE(Databases().Open(server.Connection(QStringLiteral("wrong")), {}, result));
    EXPECT_TRUE(result.text.contains(QStringLiteral("password authentication failed")))
        << result.text.toStdString();
}

TEST(Databases, KeysToOneTableAndSchemasThatLookAlikeAreToldApart) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    const auto database = Open(server.Connection());
    ASSERT_TRUE(database);
    for (const char* sql : {"create schema a_b", "create schema axb", "create table axb.t(other integer)",
                            "create table a_b.t(x integer, y integer, primary key(x, y))",
                            "create table a_b.u(a integer, b integer, c integer, d integer, foreign key(a, "
                            "b) references a_b.t(x, "
                            "y), foreign key(c, d) references a_b.t(x, y))"})
        EXPECT_EQ(Answer(*database, QLatin1String(sql)), "");
    std::vector<services::DatabaseTable> tables;
    EXPECT_TRUE(database->Tables(tables));
    for (const services::DatabaseTable& table : tables) {
        std::vector<services::DatabaseForeignKey> keys;
        std::vector<services::DatabaseColumn> columns;
        if (table.schema != QStringLiteral("a_b"))
            continue;
        EXPECT_TRUE(database->Columns(table, columns));
        EXPECT_EQ(columns.size(), table.name == QStringLiteral("t") ? 2u : 4u);
        EXPECT_TRUE(database->ForeignKeys(table, keys));
        QStringList found;
        for (const auto& key : keys)
            found << key.columns.join(u' ') + QStringLiteral(" to ") + key.targets.join(u' ');
        EXPECT_EQ(found.join(u'|').toStdString(),
                  table.name == QStringLiteral("t") ? "" : "a b to x y|c d to x y");
    }
}

pid_t WorkerOf(Database& database) {
    return std::stoi(Answer(database, QStringLiteral("select pg_backend_pid()")));
}

TEST(Databases, AServerThatFallsSilentIsLeftAloneAtEveryStep) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    DatabaseResult result;
    const auto open = [&] {
        return Databases().Open(server.Connection(), {}, result, {.statement = 3, .rows = 3, .commit = 3});
    };
    const auto asked = open(), read = open(), written = open();
    ASSERT_TRUE(asked && read && written) << result.text.toStdString();
    const pid_t workers[] = {WorkerOf(*asked), WorkerOf(*read), WorkerOf(*written)};
    ASSERT_TRUE(written->BeginTransaction());
    EXPECT_EQ(Answer(*written, QStringLiteral("create table t(n integer)")), "");
    const auto rows = read->Execute(QStringLiteral("select * from generate_series(1, 100000)"), result);
    ASSERT_TRUE(rows && rows->Next(result)) << result.text.toStdString();
    for (const pid_t worker : workers)
        kill(worker, SIGSTOP);
    EXPECT_EQ(Answer(*asked, QStringLiteral("select 1")), "The database did not answer in time.");
    while (rows->Next(result))
        continue;
    EXPECT_EQ(result.failure, DatabaseFailure::TimedOut);
    EXPECT_EQ(written->Commit().failure, DatabaseFailure::TimedOut);
    for (const pid_t worker : workers)
        kill(worker, SIGCONT);
}

// What is committed is known to be so, whatever the user wants meanwhile.
TEST(Databases, ACommitIsNotCancelled) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    bool goOn = true;
    int asked = 0;
    DatabaseResult result;
    const auto step = [&](qint64, qint64) { return goOn || ++asked < 0; };
    const auto database = Databases().Open(server.Connection(), step, result);
    ASSERT_TRUE(database);
    for (const char* sql :
         {"create table t(n integer)",
          "create function rest() returns trigger as 'begin perform pg_sleep(1); return null; end' language "
          "plpgsql",
          "create constraint trigger late after insert on t deferrable initially deferred for each row "
          "execute function rest()"})
        EXPECT_EQ(Answer(*database, QLatin1String(sql)), "");
    ASSERT_TRUE(database->BeginTransaction());
    EXPECT_EQ(Answer(*database, QStringLiteral("insert into t values(1)")), "");
    goOn = false;
    EXPECT_TRUE(database->Commit());
    EXPECT_GT(asked, 0);
    EXPECT_EQ(Answer(*Open(server.Connection()), QStringLiteral("select n from t")), "1");
}

TEST(Databases, MariadbGivesTypedValues) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the server's driver reads beyond the end of its own memory";
#endif
    test::MariadbServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    const auto database = Open(server.Connection());
    ASSERT_TRUE(database);
    EXPECT_EQ(Answer(*database,
                     QStringLiteral("create table t(n bigint unsigned primary key, b bit, d date, at "
                                    "datetime(1), f double, m decimal(9,2), raw varbinary(9), body longtext "
                                    "character set utf8mb4, id uuid)")),
              "");
    EXPECT_EQ(Answer(*database,
                     QStringLiteral("insert into t values(18446744073709551615, 1, '2001-02-03', '2001-02-03 "
                                    "04:05:06.5', 0.1e0 + 0.2e0, .5, x'00ff', concat(repeat('é', 20000), "
                                    "'末😀'), '123e4567-e89b-12d3-a456-426655440000'), "
                                    "(2, 0, null, null, null, -.25, null, '', null)")),
              "");
    EXPECT_EQ(
        Answer(*database,
               QStringLiteral("select n, b, d, at, f, m, raw, char_length(body), id from t order by n")),
        "2|false|-|-|-|-0.25|-|0|-\n"
        "18446744073709551615|true|2001-02-03|2001-02-03T04:05:06.5|0.30000000000000004|0.50|00FF|20002|"
        "123e4567-e89b-12d3-a456-426655440000");
    EXPECT_EQ(Answer(*database, QStringLiteral("select body from t where n > 2")).size(), 40007u);
    EXPECT_EQ(TablesOf(*database), "t:TABLE");
    EXPECT_FALSE(database->TakesTablesBack());
    DatabaseResult result;
    EXPECT_FALSE(Databases().Open(server.Connection().replace(QStringLiteral("secret"), QStringLiteral("x")),
                                  {}, result));
    EXPECT_TRUE(result.text.contains(QStringLiteral("Access denied"))) << result.text.toStdString();
}

// Its driver doesn't look for them in the list of sources.
TEST(Databases, UserAndPasswordReachAServerOfFreeTds) {
    if (!Databases().Drivers().contains(QStringLiteral("FreeTDS")))
        GTEST_SKIP() << "the driver tdsodbc isn't installed";
    const test::SqliteFile list;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    EXPECT_TRUE(Databases().AddSource(QStringLiteral("sybase"), QStringLiteral("FreeTDS"),
                                      {{QStringLiteral("Server"), QStringLiteral("127.0.0.1")},
                                       {QStringLiteral("Port"), QString::number(server.serverPort())},
                                       {QStringLiteral("TDS_Version"), QStringLiteral("4.2")},
                                       {QStringLiteral("UID"), QStringLiteral("owner")},
                                       {QStringLiteral("PWD"), QStringLiteral("se;cret")}}));
    QByteArray login;
    const auto read = [&](qint64, qint64) {
        if (!server.hasPendingConnections() && !server.waitForNewConnection(10))
            return true;
        QTcpSocket* socket = server.nextPendingConnection();
        EXPECT_TRUE(socket->waitForReadyRead(5000));
        login = socket->readAll();
        return false;
    };
    DatabaseResult result;
    EXPECT_FALSE(Databases().Open(QStringLiteral("DSN=sybase;"), read, result));
    EXPECT_TRUE(login.contains("owner"));
    EXPECT_TRUE(login.contains("se;cret"));
}

TEST(Databases, AFileThatIsNotOfAccessIsToldForWhatItIs) {
    const test::SqliteFile sqlite;
    sqlite.Run("create table t(a)");
    test::Folder folder;
    const std::pair<QString, const char*> cases[] = {
        {folder.Path(QStringLiteral("none.mdb")), "Can not find "},
        {folder.Path(), "Can not find "},
        {sqlite.Path(), "is a SQLite database"},
        {folder.Write(QStringLiteral("text.mdb"), "plain text"), "is no Access database"}};
    for (const auto& [path, word] : cases) {
        DatabaseResult result;
        EXPECT_FALSE(Databases().Open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + path,
                                      {}, result));
        EXPECT_TRUE(result.text.contains(QLatin1String(word))) << result.text.toStdString();
    }
}

TEST(Databases, AccessFilesAreRead) {
    const QString folder = qEnvironmentVariable("VANTREL_ACCESS_SAMPLES");
    if (folder.isEmpty())
        GTEST_SKIP() << "VANTREL_ACCESS_SAMPLES names no folder with Access files";
    test::Folder copies;
    const QString path = copies.Path("日期 a;b={c}.mdb"); // a name that isn't plain
    ASSERT_TRUE(QFile::copy(folder + QStringLiteral("/dates.mdb"), path));
    const auto database = Open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + path);
    ASSERT_TRUE(database);
    EXPECT_NE(TablesOf(*database).find("DateTest:TABLE"), std::string::npos);
    const std::string rows = Answer(*database, QStringLiteral("select * from DateTest"));
    EXPECT_EQ(rows.substr(0, rows.find('\n')),
              "1|2021-12-02T00:00:00|2021-12-02T00:00:00|2021-12-02T00:00:00|Hello|Hello");
}

} // namespace
