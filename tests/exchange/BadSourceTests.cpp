// SPDX-License-Identifier: GPL-3.0-or-later
// What is wrong with a source or a statement is told in the dialog, and changes nothing.
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "exchange/dialogs/frmImportDB.h"
#include "tests/exchange/ExchangeDesk.h"
#include "tests/support/MariadbServer.h"
#include "tests/support/PostgresServer.h"
#include "tests/support/SqliteFile.h"
#include <QTcpServer>

namespace {

using exchange::frmCreateDBSchema;
using exchange::frmImportDB;
using services::Answer;

class BadSource : public testing::Test {
protected:
    test::TestApp t;
    test::SqliteFile file;

    void SetUp() override {
        test::AddSource("stock", "SQLite3", {{QStringLiteral("Database"), file.Path()}});
    }
    int InImport(const std::function<void(frmImportDB&)>& act) {
        return test::InDialog<frmImportDB>(t, t.frame().exchangeDialogs.importDBShown, "mnuTImpDbData", act);
    }
    int InSchema(const std::function<void(frmCreateDBSchema&)>& act) {
        return test::InDialog<frmCreateDBSchema>(t, t.frame().exchangeDialogs.createDBSchemaShown, "mnuSCds",
                                                 act);
    }
    static void Preview(frmImportDB& form, const char* sql) {
        form.txtSQL.UserTyped(QLatin1String(sql));
        EXPECT_TRUE(form.OKButton.Enabled());
        form.cmdPre.Click();
    }
    static void ExpectNote(const frmImportDB& form, const char* note) {
        EXPECT_TRUE(form.lblNote.Caption().contains(QLatin1String(note)))
            << note << "\n"
            << form.lblNote.Caption().toStdString();
        EXPECT_EQ(form.txtSample.Text(), QString()) << note;
        EXPECT_FALSE(form.OKButton.Enabled()) << note;
    }
};

TEST_F(BadSource, AWrongNameAMissingDriverAndAMissingChoiceAreTold) {
    test::AddSource("lost", "No Such Driver", {{QStringLiteral("Database"), file.Path()}});
    t.prompts.AllowAnyBox();
    InImport([&](frmImportDB& form) {
        form.source.cmbDSN.UserTyped(QStringLiteral("nowhere"));
        Preview(form, "select 1");
        ExpectNote(form, "Data source name not found");
        ExpectNote(form, "odbc-postgresql (PostgreSQL)");
        test::ChooseSource(form.source, "lost");
        EXPECT_EQ(t.prompts.Texts().last(),
                  QStringLiteral("Operation was canceled. Please check DSN and try again."));
        Preview(form, "select 1");
        ExpectNote(form, "odbc-mariadb (MariaDB, MySQL)");
        form.source.cmbDSN.UserTyped({});
        Preview(form, "select 1");
        ExpectNote(form, "No data source is chosen.");
    });
    InSchema([&](frmCreateDBSchema& form) {
        form.source.cmbDSN.UserTyped({});
        form.cmdPre.Click();
        EXPECT_EQ(form.lblNote.Caption(), QStringLiteral("No data source is chosen."));
    });
}

TEST_F(BadSource, AServerThatNeverAnswersIsTimedOutOrCancelled) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    if (!services::Databases().Drivers().contains(QStringLiteral("PostgreSQL Unicode")))
        GTEST_SKIP() << "the driver odbc-postgresql isn't installed";
    test::AddSource("silent", "PostgreSQL Unicode",
                    {{QStringLiteral("Servername"), QStringLiteral("127.0.0.1")},
                     {QStringLiteral("Port"), QString::number(silent.serverPort())},
                     {QStringLiteral("Database"), QStringLiteral("x")},
                     {QStringLiteral("Username"), QStringLiteral("x")}});
    t.settings().Save(QStringLiteral("AppInternal"), QStringLiteral("DatabaseTimeOut"), QStringLiteral("1"));
    t.prompts.AllowAnyBox();
    InImport([&](frmImportDB& form) {
        test::ChooseSource(form.source, "silent");
        Preview(form, "select 1");
        ExpectNote(form, "did not answer in time");
        t.progress.cancelAtStep = t.progress.steps + 2;
        Preview(form, "select 1");
        ExpectNote(form, "Cancelled.");
    });
}

TEST_F(BadSource, PostgresTellsOfAWrongPasswordAndOfALockThatIsWaitedFor) {
    test::PostgresServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    auto settings = server.Settings();
    test::AddSource("server", "PostgreSQL Unicode", settings);
    settings.back().second = QStringLiteral("wrong");
    test::AddSource("shut", "PostgreSQL Unicode", settings);
    services::DatabaseResult result;
    const auto owner = services::Databases().Open(server.Connection(), {}, result);
    ASSERT_TRUE(owner);
    owner->Execute(QStringLiteral("create table t(n integer)"), result);
    ASSERT_TRUE(owner->BeginTransaction());
    owner->Execute(QStringLiteral("lock table t"), result);
    EXPECT_TRUE(result);
    t.settings().Save(QStringLiteral("AppInternal"), QStringLiteral("DatabaseTimeOut"), QStringLiteral("2"));
    t.prompts.AllowAnyBox();
    InImport([&](frmImportDB& form) {
        test::ChooseSource(form.source, "shut");
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("password authentication failed")))
            << form.lblNote.Caption().toStdString();
        test::ChooseSource(form.source, "server");
        Preview(form, "select * from t");
        ExpectNote(form, "did not answer in time");
        EXPECT_TRUE(owner->Rollback());
        t.settings().Save(QStringLiteral("AppInternal"), QStringLiteral("DatabaseTimeOut"),
                          QStringLiteral("60"));
        Preview(form, "select * from t");
        EXPECT_TRUE(form.txtSample.Text().endsWith(QStringLiteral("<data>\r\n</data>")));
        EXPECT_TRUE(form.OKButton.Enabled());
    });
}

// Its tables, and the rows of some, outlast a transaction that is taken back.
TEST_F(BadSource, APreviewChangesNothingInMariadb) {
    test::MariadbServer server;
    if (!server.IsRunning())
        GTEST_SKIP() << server.WhyNot().toStdString();
    services::DatabaseResult result;
    const auto owner = services::Databases().Open(server.Connection(), {}, result);
    ASSERT_TRUE(owner);
    for (const char* sql : {"create table t(a text) engine=MyISAM", "insert into t values('kept')"})
        owner->Execute(QLatin1String(sql), result);
    test::AddSource("maria", "MariaDB Unicode",
                    {{QStringLiteral("Server"), QStringLiteral("127.0.0.1")},
                     {QStringLiteral("Port"), server.Port()},
                     {QStringLiteral("Database"), QStringLiteral("stock")},
                     {QStringLiteral("User"), QStringLiteral("owner")},
                     {QStringLiteral("Password"), QStringLiteral("secret")}});
    InImport([&](frmImportDB& form) {
        test::ChooseSource(form.source, "maria");
        for (const char* sql : {"drop table t", "truncate t", "alter table t add b text", "delete from t",
                                "replace t values('x')", "/*! drop table t */",
                                "with c as (select 1) delete from t", "select 1 # '\n; drop table t -- '"}) {
            Preview(form, sql);
            ExpectNote(form, "does not take everything back");
        }
        Preview(form, "select replace(a, 'e', 'E') as a from t");
        EXPECT_TRUE(form.txtSample.Text().contains(QStringLiteral("<a>kEpt</a>")))
            << form.lblNote.Caption().toStdString();
    });
}

TEST_F(BadSource, ATableThatCanNotBeReadLeavesTheOthersInTheSchema) {
    file.Run(
        "create table a(n integer, s text, v varchar(9)); create table z(n integer);"
        "pragma writable_schema = on;"
        "insert into sqlite_master values('table', 'm', 'm', 0, 'create virtual table m using absent(x)')");
    t.prompts.Answer({Answer::No, Answer::Yes, Answer::Ok});
    EXPECT_EQ(InSchema([&](frmCreateDBSchema& form) {
                  test::ChooseSource(form.source, "stock");
                  form.cmdPre.Click();
                  EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("m: ")))
                      << form.lblNote.Caption().toStdString();
                  for (const char* name : {"a", "m", "z"})
                      EXPECT_TRUE(form.txtSample.Text().contains(
                          QStringLiteral("<xsd:element name=\"%1\">").arg(QLatin1String(name))));
                  form.OKButton.Click();
                  form.OKButton.Click();
              }),
              1);
    t.FinishChecks(); // a blank in maxLength is told of
    EXPECT_TRUE(t.prompts.boxes[0].text.contains(QStringLiteral("The schema isn't whole.")));
}

TEST_F(BadSource, WhatMakesASchemaInvalidIsToldBeforeItIsMade) {
    file.Run("create table t(s text, v varchar(9), n integer)");
    InSchema([&](frmCreateDBSchema& form) {
        test::ChooseSource(form.source, "stock");
        form.cmdPre.Click();
        EXPECT_EQ(form.txtSample.Text().count(QStringLiteral("maxLength")), 1);
        EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("The lengths of texts")));
        file.Run("create table \"2 t\"(n integer)");
        form.cmdPre.Click();
        EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("The name \"2 t\" is no name in XML.")))
            << form.lblNote.Caption().toStdString();
        form.chkRepair.UserSet(true);
        form.cmdPre.Click();
        EXPECT_EQ(form.lblNote.Caption(), QString());
        EXPECT_TRUE(form.txtSample.Text().contains(QStringLiteral("<xsd:maxLength value=\"9\"/>")));
        EXPECT_TRUE(form.txtSample.Text().contains(QStringLiteral("name=\"s\" type=\"xsd:string\"")));
    });
}

TEST_F(BadSource, WhatWasTypedStaysForItsSourceAndNamesAreQuoted) {
    file.Run("create table \"Order\"\"s\"(n integer primary key autoincrement, v text);"
             "insert into \"Order\"\"s\"(v) values('a' || char(13, 10) || 'b');");
    test::SqliteFile other;
    other.Run("create table plain(a)");
    qputenv("ODBCINI", QFileInfo(file.Path()).path().toUtf8() + "/odbc.ini");
    test::AddSource("other", "SQLite3", {{QStringLiteral("Database"), other.Path()}});
    InImport([&](frmImportDB& form) {
        test::ChooseSource(form.source, "stock");
        EXPECT_EQ(form.cmbTable.Items(), QStringList(QStringLiteral("Order\"s")))
            << "no tables of SQLite's own";
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"Order\"\"s\""));
        const QString typed = QStringLiteral("/* of wine */ select v -- all\nfrom \"Order\"\"s\"");
        form.txtSQL.UserTyped(typed);
        form.source.optOdbc.UserChose();
        EXPECT_EQ(form.txtSQL.Text(), typed);
        form.chkAttr.UserSet(true);
        form.cmdPre.Click();
        EXPECT_TRUE(form.txtSample.Text().contains(QStringLiteral("<row v=\"a&#13;&#10;b\" />")))
            << form.txtSample.Text().toStdString();
        test::ChooseSource(form.source, "other");
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from plain"));
        form.lblNote.SetCaption(QStringLiteral("of the other source"));
        form.source.cmbDSN.UserTyped(QStringLiteral("oth"));
        EXPECT_EQ(form.lblNote.Caption(), QString());
    });
}

// The declaration names the encoding that was chosen, and the document can be saved in it.
TEST_F(BadSource, RowsBecomeADocumentInAnyEncoding) {
    file.Run("create table t(v text)");
    for (const auto& [label, word] : test::kEncodings) {
        file.Run((std::string("delete from t; insert into t values('") + word + "')").c_str());
        const int closed = InImport([&, name = label](frmImportDB& form) {
            test::ChooseSource(form.source, "stock");
            form.cmbEnc.UserTyped(QStringLiteral("none\""));
            form.OKButton.Click();
            EXPECT_EQ(form.lblNote.Caption(), QStringLiteral("No encoding is called \"none\"\"."));
            form.cmbEnc.UserTyped(QLatin1String(name));
            form.OKButton.Click();
        });
        EXPECT_EQ(closed, 1);
        const QString path = t.folder.Path(QLatin1String(label) + QStringLiteral(".xml"));
        t.prompts.Choose(path);
        t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
        QFile saved(path);
        ASSERT_TRUE(saved.open(QIODevice::ReadOnly)) << label;
        const text::Decoded read = text::Decode(saved.readAll());
        EXPECT_EQ(read.warning.toStdString(), "") << label;
        EXPECT_EQ(read.form.declared, QLatin1String(label));
        EXPECT_TRUE(read.text.toString().contains(QStringLiteral("<v>%1</v>").arg(QString::fromUtf8(word))))
            << label;
    }
}

} // namespace
