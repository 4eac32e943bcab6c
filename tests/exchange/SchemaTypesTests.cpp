// SPDX-License-Identifier: GPL-3.0-or-later
// What a schema says of the columns of real databases, as their drivers tell of them.
#include "exchange/DatabaseSchema.h"
#include "tests/exchange/ExchangeDesk.h"
#include "tests/support/MariadbServer.h"
#include "tests/support/PostgresServer.h"
#include "tests/support/SqliteFile.h"

namespace {

struct Column {
    const char *type, *shown; ///< in SQL; in the schema, texts by their length
};

class SchemaTypes : public testing::Test {
protected:
    test::TestApp t;

    /// Makes a table with the columns and looks at each line of its schema.
    void Expect(services::Database& database, const std::vector<Column>& columns) {
        QStringList definitions;
        for (std::size_t i = 0; i < columns.size(); ++i)
            definitions << QStringLiteral("c%1 %2").arg(i).arg(QLatin1String(columns[i].type));
        services::DatabaseResult result;
        database.Execute(QStringLiteral("create table t(%1)").arg(definitions.join(QStringLiteral(", "))),
                         result);
        EXPECT_TRUE(result) << result.text.toStdString();
        std::vector<services::DatabaseColumn> found;
        services::DatabaseTable table;
        table.name = QStringLiteral("t");
        EXPECT_TRUE(database.Columns(table, found));
        ASSERT_EQ(found.size(), columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            EXPECT_EQ(Shown(found[i], {}), columns[i].shown) << columns[i].type;
            const std::string repaired = Shown(found[i], {.repair = true});
            const bool kept = *columns[i].shown == ' ' && repaired == columns[i].shown + 1;
            EXPECT_TRUE(*columns[i].shown != ' ' || kept || columns[i].type == std::string("text"))
                << columns[i].type << " " << repaired; // the length stays, but for texts of any length
        }
    }
    std::string Shown(const services::DatabaseColumn& column, const exchange::SchemaOptions& options) {
        const QString text = exchange::GetADOXColSchemaString(t.app(), column, {}, options);
        const QString type = text.section(QStringLiteral("type=\""), 1, 1).section(u'"', 0, 0);
        const QString length = text.section(QStringLiteral("maxLength value=\""), 1, 1).section(u'"', 0, 0);
        return (type.isEmpty() ? length : type).toStdString();
    }
};

TEST_F(SchemaTypes, OfSqlite) {
    const test::SqliteFile file;
    services::DatabaseResult result;
    const auto database = services::Databases().Open(file.Connection(), {}, result);
    ASSERT_TRUE(database);
    Expect(*database, {{"integer", "xsd:integer"},
                       {"smallint", "xsd:integer"},
                       {"tinyint", "xsd:integer"},
                       {"bigint", "xsd:integer"},
                       {"float", "xsd:double"},
                       {"double", "xsd:double"},
                       {"decimal(9,2)", "xsd:decimal"},
                       {"numeric", "xsd:decimal"},
                       {"date", "xsd:dateTime"},
                       {"time", "xsd:dateTime"},
                       {"timestamp", "xsd:dateTime"},
                       {"boolean", "xsd:boolean"},
                       {"blob", "xsd:hexBinary"},
                       {"char(3)", " 3"},
                       {"varchar(9)", " 9"},
                       {"varchar(255)", " 255"},
                       {"varchar", ""},
                       {"text", ""}});
}

TEST_F(SchemaTypes, OfPostgres) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    services::DatabaseResult result;
    const auto database = services::Databases().Open(server.Connection(), {}, result);
    ASSERT_TRUE(database);
    Expect(*database, {{"smallint", "xsd:integer"},
                       {"integer", "xsd:integer"},
                       {"bigint", "xsd:integer"},
                       {"real", "xsd:float"},
                       {"double precision", "xsd:double"},
                       {"numeric(9,2)", "xsd:decimal"},
                       {"date", "xsd:dateTime"},
                       {"time", "xsd:dateTime"},
                       {"timestamp", "xsd:dateTime"},
                       {"boolean", "xsd:boolean"},
                       {"uuid", "xsd:ID"},
                       {"bytea", "xsd:hexBinary"},
                       {"char(3)", " 3"},
                       {"varchar(9)", " 9"},
                       {"varchar(255)", " 255"},
                       {"varchar", ""},
                       {"text", " 8190"}});
}

TEST_F(SchemaTypes, OfMariadb) {
    test::MariadbServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    services::DatabaseResult result;
    const auto database = services::Databases().Open(server.Connection(), {}, result);
    ASSERT_TRUE(database);
    Expect(*database, {{"tinyint", "xsd:integer"},
                       {"smallint unsigned", "xsd:integer"},
                       {"year", "xsd:integer"},
                       {"int", "xsd:integer"},
                       {"bigint", "xsd:integer"},
                       {"bigint unsigned", "xsd:unsignedLong"},
                       {"float", "xsd:float"},
                       {"double", "xsd:double"},
                       {"decimal(9,2)", "xsd:decimal"},
                       {"date", "xsd:dateTime"},
                       {"time", "xsd:dateTime"},
                       {"datetime", "xsd:dateTime"},
                       {"bit", "xsd:boolean"},
                       {"uuid", "xsd:ID"},
                       {"binary(4)", "xsd:hexBinary"},
                       {"varbinary(4)", "xsd:hexBinary"},
                       {"blob", "xsd:hexBinary"},
                       {"char(3)", " 3"},
                       {"varchar(9)", " 9"},
                       {"varchar(255)", " 255"},
                       {"text", " 65535"},
                       {"enum('a', 'bc')", " 2"}});
}

} // namespace
