// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of the table view go into a database, all of them or none.
#include "exchange/dialogs/frmExportDB.h"
#include "exchange/dialogs/frmNewDSN.h"
#include "table/LoadTables.h"
#include "tests/exchange/ExchangeDesk.h"
#include "tests/support/FullDisk.h"
#include "tests/support/MariadbServer.h"
#include "tests/support/PostgresServer.h"
#include "tests/support/SqliteFile.h"

namespace {

using exchange::frmExportDB;
using services::Answer;
using test::TestApp;

constexpr char kStock[] =
    "<stock><wine no=\"1\" code=\"007\" price=\"1.50\" day=\"2019-05-06\" name=\"A &amp; 'B'\"/><wine "
    "no=\"22\" code=\"8\" "
    "price=\"12\" day=\"2020-02-29\" name=\"\">good</wine><shop city=\"北京\" "
    "share=\"0.12345678901234567\"/><wine no=\"3\"/></stock>";

class ExportDatabase : public testing::Test {
protected:
    TestApp t;
    test::SqliteFile file;

    void SetUp() override {
        EXPECT_TRUE(services::Databases().AddSource(QStringLiteral("stock"), QStringLiteral("SQLite3"),
                                                    {{QStringLiteral("Database"), file.Path()}}));
        DocumentWindow& window = t.OpenText(QStringLiteral("stock.xml"), kStock);
        t.ClickNode(window.tvXML.Nodes(1).Child().Child());
    }
    /// Makes a source for a server, as in the dialog for it.
    void MakeSource(exchange::SourceChoice& source, const char* driver, const char* name, const QString& port,
                    const char* database) {
        source.newDSNShown.connect([=](exchange::frmNewDSN& form) {
            const auto index = form.cmbDriver.Items().indexOf(QLatin1String(driver));
            ASSERT_GE(index, 0);
            form.cmbDriver.UserChose(static_cast<int>(index));
            const std::pair<controls::TextBox*, QString> typed[] = {
                {&form.txtName, QLatin1String(name)},
                {&form.txtServer, QStringLiteral("127.0.0.1")},
                {&form.txtPort, port},
                {&form.txtUser, QStringLiteral("owner")},
                {&form.txtPassword, QStringLiteral("secret")},
                {&form.txtDatabase, QLatin1String(database)}};
            for (const auto& [box, text] : typed)
                box->UserTyped(text);
            form.OKButton.Click();
        });
        source.cmdNewDSN.Click();
        EXPECT_EQ(source.ConnectionString(), QStringLiteral("DSN=%1;").arg(QLatin1String(name)));
        source.newDSNShown.disconnectAll();
    }
    int InExport(const std::function<void(frmExportDB&)>& act) {
        return test::InDialog<frmExportDB>(t, t.frame().exchangeDialogs.exportDBShown, "mnuTExpToDb", act);
    }
};

TEST_F(ExportDatabase, ProposedTablesHoldWhatTheDocumentHas) {
    t.prompts.Answer(Answer::Ok);
    EXPECT_EQ(
        InExport([](frmExportDB& form) {
            EXPECT_EQ(form.cmbGrid.Items().join(u' '), QStringLiteral("wine shop"));
            EXPECT_EQ(
                form.txtSQL.Text().toStdString(),
                "CREATE TABLE \"wine\" (\n    \"no\" INTEGER,\n    \"code\" VARCHAR(255),\n    \"price\" "
                "VARCHAR(255),\n    \"day\" DATE,\n    \"name\" VARCHAR(255),\n    \"Node_Text\" "
                "VARCHAR(255)\n);\nINSERT INTO \"wine\" (\"no\", \"code\", \"price\", \"day\", \"name\", "
                "\"Node_Text\")\n    VALUES (?, ?, ?, ?, ?, ?);\n");
            form.OKButton.Click();
        }),
        1);
    EXPECT_EQ(t.prompts.boxes.back().text, QStringLiteral("4 row(s) were written."));
    EXPECT_EQ(file.Query("select no, code, day, name, Node_Text from wine"),
              "1|007|2019-05-06|A & 'B'|None\n22|8|2020-02-29||good\n3|None|None|None|None");
    EXPECT_EQ(file.Query("select * from shop"), "北京|0.12345678901234567");
}

TEST_F(ExportDatabase, WhatFailsLeavesNothingBehind) {
    const std::pair<const char*, const char*> cases[] = {
        {"create table wine(no integer unique); insert into wine values(?, ?, ?, ?, ?, ?)", "has 1 columns"},
        {"create table wine(a, b, c, d, e, f); insert into wine values(1, ?, ?, ?, ?, ?)",
         "has 5 parameters"},
        {"create table wine(a, b, c, d, e not null, f); insert into wine values(?, ?, ?, ?, ?, ?)",
         "NOT NULL"},
        {"creat table", "syntax error"},
        {"create table wine(a); commit; insert into nowhere values(?)", "have the word \"commit\""},
    };
    InExport([&](frmExportDB& form) {
        for (const auto& [sql, note] : cases) {
            form.cmbGrid.UserChose(0);
            form.txtSQL.UserTyped(QLatin1String(sql));
            form.OKButton.Click();
            EXPECT_TRUE(form.lblNote.Caption().contains(QLatin1String(note)))
                << form.lblNote.Caption().toStdString();
            EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("Nothing was written."))) << sql;
            EXPECT_EQ(file.Query("select count(*) from sqlite_master"), "0") << sql;
        }
        file.Run("create table other(a)");
        services::DatabaseResult result;
        const auto writer = services::Databases().Open(file.Connection(), {}, result);
        ASSERT_TRUE(writer && writer->BeginTransaction());
        writer->Execute(QStringLiteral("insert into other values(1)"), result);
        form.txtSQL.UserTyped(QStringLiteral("create table wine(a)"));
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("locked")))
            << form.lblNote.Caption().toStdString();
    });
    EXPECT_EQ(file.Query("select count(*) from sqlite_master"), "1");
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(ExportDatabase, AnEditedScriptAddsToATableAndLeavesOthersOut) {
    file.Run("create table shop(city text, share text); insert into shop values('Bonn', 1);");
    t.prompts.Answer(Answer::Ok);
    InExport([](frmExportDB& form) {
        form.Form_Activate();
        EXPECT_EQ(form.lblNote.Caption(), QStringLiteral("The database has a table \"shop\" already."));
        form.chkGrid.UserSet(false);
        form.cmbGrid.UserChose(1);
        form.txtTable.UserTyped(QStringLiteral("my shop"));
        EXPECT_TRUE(form.txtSQL.Text().startsWith(QStringLiteral("CREATE TABLE \"my shop\" (")));
        EXPECT_TRUE(form.txtSQL.Text().contains(QStringLiteral("INSERT INTO \"my shop\" (")));
        EXPECT_EQ(form.lblNote.Caption(), QString()) << "no such table is there";
        form.txtSQL.UserTyped(
            QStringLiteral("-- the table is there; only its rows\ninsert into shop values(? || ';', ?);"));
        form.cmbGrid.UserChose(0);
        form.cmbGrid.UserChose(1);
        EXPECT_TRUE(form.txtSQL.Text().startsWith(QStringLiteral("-- the table")));
        form.OKButton.Click();
    });
    EXPECT_EQ(file.Query("select city from shop"), "Bonn\n北京;");
    EXPECT_EQ(file.Query("select count(*) from sqlite_master"), "1");
}

TEST_F(ExportDatabase, CancelTakesAllBack) {
    QByteArray document = "<a>";
    for (int i = 0; i < 3000; ++i)
        document += "<b x=\"" + QByteArray::number(i) + "\"/>";
    DocumentWindow& window = t.OpenText(QStringLiteral("rows.xml"), document + "</a>");
    t.ClickNode(window.tvXML.Nodes(1).Child().Child());
    EXPECT_EQ(InExport([&](frmExportDB& form) {
                  t.progress.cancelAtStep = t.progress.steps + 20;
                  form.OKButton.Click();
                  EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("Cancelled.")));
              }),
              0);
    EXPECT_EQ(file.Query("select count(*) from sqlite_master"), "0");
}

TEST_F(ExportDatabase, AFullDiskTakesAllBack) {
    QByteArray document = "<a>";
    for (int i = 0; i < 9000; ++i)
        document += "<b x=\"" + QByteArray::number(i) + " of many\"/>";
    t.OpenText(QStringLiteral("rows.xml"), document + "</a>");
    InExport([&](frmExportDB& form) {
        const test::FullDisk full(1 << 16);
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().endsWith(QStringLiteral("Nothing was written.")))
            << form.lblNote.Caption().toStdString();
    });
    EXPECT_EQ(file.Query("select count(*) from sqlite_master"), "0");
}

// Each in its own words: what is usual means another thing there, or takes no Chinese.
TEST_F(ExportDatabase, TypesAreThoseOfTheDatabase) {
    const DocumentWindow& window = t.OpenText(
        QStringLiteral("types.xml"), "<a><b at=\"2020-02-29T12:00:00\" s=\"x\" l=\"" + QByteArray(5000, 'x') +
                                         "\" t=\"" + QByteArray(9000, 'x') + "\"/></a>");
    const auto tables = table::TablesOfLevel(window.tvXML.Nodes(1).Child().Child(), false);
    const auto data = exchange::DataOf(tables.front(), {});
    const std::pair<const char*, const char*> cases[] = {
        {"SQLite", "at TIMESTAMP|s VARCHAR(255)|l VARCHAR(5000)|t TEXT|)"},
        {"MySQL", "at DATETIME|s VARCHAR(255)|l VARCHAR(5000)|t LONGTEXT|) CHARACTER SET utf8mb4"},
        {"Microsoft SQL Server", "at DATETIME2|s NVARCHAR(255)|l NVARCHAR(MAX)|t NVARCHAR(MAX)|)"}};
    for (const auto& [system, types] : cases) {
        QString script = exchange::ScriptOf(*data, {}, QLatin1String(system)).section(u';', 0, 0);
        EXPECT_EQ(script.remove(u',')
                      .replace(QStringLiteral("\n"), QStringLiteral("|"))
                      .remove(QStringLiteral("    "))
                      .section(u'|', 1)
                      .toStdString(),
                  types);
    }
}

TEST_F(ExportDatabase, PostgresTakesTypedValuesAndGivesThemBack) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    t.prompts.Answer(Answer::Ok);
    EXPECT_EQ(InExport([&](frmExportDB& form) {
                  MakeSource(form.source, "PostgreSQL Unicode", "postgres", server.Settings()[1].second,
                             "postgres");
                  form.OKButton.Click();
                  EXPECT_EQ(form.lblNote.Caption().toStdString(), "");
              }),
              1);
    services::DatabaseResult result;
    const auto database = services::Databases().Open(server.Connection(), {}, result);
    ASSERT_TRUE(database);
    const auto rows =
        database->Execute(QStringLiteral("select no, code, price, day, name from wine order by no"), result);
    ASSERT_TRUE(rows && rows->Next(result));
    QStringList values;
    for (std::size_t i = 0; i < rows->Columns().size(); ++i)
        values << rows->Value(i).toString();
    EXPECT_EQ(values.join(u'|').toStdString(), "1|007|1.50|2019-05-06|A & 'B'");
}

TEST_F(ExportDatabase, EveryLevelIsOfferedFromEveryView) {
    DocumentWindow& window = t.OpenText(
        QStringLiteral("deep.xml"),
        "<?xml version=\"1.0\"?><data><row n=\"1\"><lot x=\"a\"/></row><!--c--><row n=\"2\"><lot x=\"b\"/>"
        "<bin/></row><other/><a1/><a2/><a3/></data>");
    window.tbsXML.Select(QStringLiteral("textview"));
    t.prompts.Answer(Answer::Ok);
    InExport([&](frmExportDB& form) {
        EXPECT_EQ(form.cmbLevel.Items().join(u'|'),
                  QStringLiteral("1: data|2: row, other, a1, a2, ...|3: lot, bin"));
        EXPECT_EQ(form.cmbLevel.ListIndex(), 1);
        form.txtSQL.UserTyped(QStringLiteral("-- mine"));
        form.cmbLevel.UserChose(2);
        EXPECT_EQ(form.cmbGrid.Items().join(u' '), QStringLiteral("lot bin"));
        form.cmbLevel.UserChose(1);
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("-- mine"));
        form.cmbLevel.UserChose(2);
        form.cmbGrid.UserChose(1);
        form.chkGrid.UserSet(false);
        form.OKButton.Click();
    });
    EXPECT_EQ(file.Query("select x from lot order by x"), "a\nb");
    EXPECT_TRUE(edit::Shows(window, edit::kTextTab));
    window.tbsXML.Select(QStringLiteral("tableview"));
    t.ClickNode(window.tvXML.SelectedItem());
    InExport([](frmExportDB& form) {
        EXPECT_EQ(form.cmbLevel.Text(), QStringLiteral("Table View"));
        EXPECT_EQ(form.cmbLevel.Items().size(), 4);
    });
}

TEST_F(ExportDatabase, ProposedNamesDifferAndProposedTypesLoseNothing) {
    DocumentWindow& window = t.OpenText(
        QStringLiteral("types.xml"),
        "<a><row same=\"1.50\" both=\"1.25\" other=\"1.5\" long=\"12345678901234.56\" part=\"-0.25\" "
        "N=\"1\" n=\"2\"/><row same=\"2.75\" both=\"-3.75\" other=\"2.25\" long=\"1.25\" part=\"3.75\"/>"
        "<Row say=\"&quot;\"/></a>");
    t.ClickNode(window.tvXML.Nodes(1).Child().Child());
    t.prompts.Answer(Answer::Ok);
    InExport([](frmExportDB& form) {
        const QString sql = form.txtSQL.Text();
        for (const char* line :
             {"\"same\" VARCHAR", "\"both\" NUMERIC(3, 2)", "\"other\" VARCHAR", "\"long\" VARCHAR",
              "\"part\" NUMERIC(3, 2)", "\"N\" INTEGER", "\"n_2\" INTEGER"})
            EXPECT_TRUE(sql.contains(QLatin1String(line))) << line << sql.toStdString();
        form.cmbGrid.UserChose(1);
        EXPECT_TRUE(form.txtSQL.Text().startsWith(QStringLiteral("CREATE TABLE \"Row_2\"")));
        form.OKButton.Click();
    });
    EXPECT_EQ(file.Query("select same, both, other, long, part, N, n_2 from row"),
              "1.50|1.25|1.5|12345678901234.56|-0.25|1|2\n2.75|-3.75|2.25|1.25|3.75|None|None");
    EXPECT_EQ(file.Query("select say from Row_2"), "\"");
}

// Its tables outlast a transaction that is taken back.
TEST_F(ExportDatabase, MariadbKeepsNothingOfAnExportThatFails) {
    test::MariadbServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    const auto tables = [&] {
        QStringList names;
        std::vector<services::DatabaseTable> found;
        services::DatabaseResult result;
        const auto database = services::Databases().Open(server.Connection(), {}, result);
        EXPECT_TRUE(database && database->Tables(found));
        for (const auto& table : found)
            names << table.name;
        return names.join(u' ').toStdString();
    };
    const auto run = [&](const char* sql) {
        services::DatabaseResult result;
        const auto database = services::Databases().Open(server.Connection(), {}, result);
        ASSERT_TRUE(database);
        database->Execute(QLatin1String(sql), result);
        EXPECT_TRUE(result) << result.text.toStdString();
    };
    t.prompts.Answer({Answer::Ok, Answer::Ok});
    InExport([&](frmExportDB& form) {
        MakeSource(form.source, "MariaDB Unicode", "maria", server.Port(), "stock");
        EXPECT_TRUE(form.txtSQL.Text().startsWith(QStringLiteral("CREATE TABLE `wine`")));
        const QString proposed = form.txtSQL.Text();
        form.txtSQL.UserTyped(QStringLiteral(
            "create table /* mine */ `my ``wine`(a integer unique, b text, c text, d text, e text, f text);"
            "insert into `my ``wine` values(7, ?, ?, ?, ?, ?); select ?"));
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().endsWith(QStringLiteral("Nothing was written.")))
            << form.lblNote.Caption().toStdString();
        EXPECT_EQ(tables(), "");
        form.txtSQL.UserTyped(proposed);
        form.lblNote.SetCaption({});
        form.OKButton.Click();
        EXPECT_EQ(form.lblNote.Caption().toStdString(), "");
    });
    EXPECT_EQ(tables(), "shop wine");
    InExport([&](frmExportDB& form) { // into what is there: a statement in the middle makes rows stay
        test::ChooseSource(form.source, "maria");
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("has a table \"wine\" already")));
        form.cmbGrid.UserChose(1);
        form.chkGrid.UserSet(false);
        form.cmbGrid.UserChose(0);
        form.txtSQL.UserTyped(QStringLiteral("/* rows */ insert into wine values(?, ?, ?, ?, ?, ?);"
                                             "create table more(a integer); insert into nowhere values(1)"));
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().endsWith(QStringLiteral("isn't known.")))
            << form.lblNote.Caption().toStdString();
        EXPECT_EQ(tables(), "shop wine");
        // Where cases are told apart it is another table.
        form.txtSQL.UserTyped(QStringLiteral("create table Wine(a text); insert into Wine values(?)"));
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().endsWith(QStringLiteral("Nothing was written.")))
            << form.lblNote.Caption().toStdString();
        EXPECT_EQ(tables(), "shop wine");
        run("create table kept(a text, b text, c text, d text, e text not null, f text) engine=MyISAM");
        form.txtSQL.UserTyped(QStringLiteral("insert into kept values(?, ?, ?, ?, ?, ?)"));
        form.OKButton.Click();
        EXPECT_TRUE(form.lblNote.Caption().endsWith(QStringLiteral("isn't known.")))
            << form.lblNote.Caption().toStdString();
        form.txtSQL.UserTyped(QStringLiteral("insert into wine values(?, ?, ?, ?, ?, ?)"));
        form.OKButton.Click();
    });
    QByteArray wide; // more texts than fit into its largest row
    for (int i = 0; i < 70; ++i)
        wide += " a" + QByteArray::number(i) + "=\"x\"";
    t.ClickNode(
        t.OpenText(QStringLiteral("wide.xml"), "<a><wide" + wide + "/></a>").tvXML.Nodes(1).Child().Child());
    t.prompts.Answer(Answer::Ok);
    EXPECT_EQ(InExport([&](frmExportDB& form) {
                  test::ChooseSource(form.source, "maria");
                  form.OKButton.Click();
                  EXPECT_EQ(form.lblNote.Caption().toStdString(), "");
              }),
              1);
    EXPECT_EQ(tables(), "kept shop wide wine");
}

} // namespace
