// SPDX-License-Identifier: GPL-3.0-or-later
// Rows and tables of a database become a document and a schema; sources are made and chosen.
#include "exchange/dialogs/frmCreateDBSchema.h"
#include "exchange/dialogs/frmImportDB.h"
#include "exchange/dialogs/frmNewDSN.h"
#include "tests/exchange/ExchangeDesk.h"
#include "tests/support/SqliteFile.h"

namespace {

using services::Answer;
using test::TestApp;

class ImportDatabase : public testing::Test {
protected:
    TestApp t;
    test::SqliteFile file;

    int InImport(const std::function<void(exchange::frmImportDB&)>& act) {
        return test::InDialog<exchange::frmImportDB>(t, t.frame().exchangeDialogs.importDBShown,
                                                     "mnuTImpDbData", act);
    }
    int InSchema(const std::function<void(exchange::frmCreateDBSchema&)>& act) {
        return test::InDialog<exchange::frmCreateDBSchema>(t, t.frame().exchangeDialogs.createDBSchemaShown,
                                                           "mnuSCds", act);
    }
    /// Makes a source for the file, as in the dialog for it.
    void MakeSource(exchange::SourceChoice& source, const QString& name) {
        source.newDSNShown.connect([&, name](exchange::frmNewDSN& form) {
            t.prompts.Choose(file.Path());
            form.cmdFile.Click();
            EXPECT_EQ(form.txtName.Text(), QStringLiteral("stock"));
            form.txtName.UserTyped(name);
            form.OKButton.Click();
        });
        source.cmdNewDSN.Click();
    }
    static std::string Plain(QString text) {
        return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString();
    }
};

TEST_F(ImportDatabase, ATableBecomesADocument) {
    file.Run("create table T(a integer, b text); insert into T values(1, 'x'), (2, null); create view V as "
             "select 1;");
    const int closed = InImport([&](exchange::frmImportDB& form) {
        form.Form_Activate();
        EXPECT_EQ(form.cmbEnc.Text(), QStringLiteral("UTF-8"));
        EXPECT_FALSE(form.OKButton.Enabled());
        MakeSource(form.source, QStringLiteral("my stock"));
        EXPECT_EQ(form.source.ConnectionString(), QStringLiteral("DSN=my stock;"));
        EXPECT_EQ(form.cmbTable.Items(), QStringList(QStringLiteral("T")));
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"T\""));
        form.cmdPre.Click();
        EXPECT_EQ(Plain(form.txtSample.Text()),
                  "<?xml version=\"1.0\" "
                  "encoding=\"UTF-8\"?>\n<data>\n\t<row>\n\t\t<a>1</a>\n\t\t<b>x</b>\n\t</row>\n"
                  "\t<row>\n\t\t<a>2</a>\n\t\t<b></b>\n\t</row>\n</data>");
        form.chkAttr.UserSet(true);
        form.OKButton.Click();
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(test::TextOf(t),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<data>\n\t<row a=\"1\" b=\"x\" />\n\t<row a=\"2\" "
              "b=\"\" />\n</data>");
    EXPECT_EQ(t.window().Caption, QStringLiteral("new1.xml"));
}

TEST_F(ImportDatabase, ADatabaseOfViewsOffersNoTable) {
    file.Run("create view V as select 1 as one");
    InImport([&](exchange::frmImportDB& form) {
        MakeSource(form.source, QStringLiteral("views"));
        EXPECT_TRUE(form.cmbTable.Items().isEmpty());
        EXPECT_EQ(form.txtSQL.Text(), QString());
        form.txtSQL.UserTyped(QStringLiteral("select one from V where 1 = 0"));
        form.cmdPre.Click();
        EXPECT_EQ(Plain(form.txtSample.Text()),
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<data>\n</data>");
    });
}

TEST_F(ImportDatabase, StatementsThatFailOrChangeSayWhatHappenedAndChangeNothing) {
    file.Run("create table \"my table\"(a integer); insert into \"my table\" values(1);");
    const int closed = InImport([&](exchange::frmImportDB& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"my table\""));
        const std::pair<const char*, const char*> cases[] = {
            {"select * from nowhere", "no such table: nowhere"},
            {"selekt", "syntax error"},
            {"delete from \"my table\"", "Nothing was changed"},
            {"drop table \"my table\"", "Nothing was changed"},
            {"delete from \"my table\"; commit", "has the word \"commit\""},
            {"/* x */ COMMIT; delete from \"my table\"", "has the word \"commit\""},
            {"end", "has the word \"end\""},
            {"  ", "There is no statement."},
        };
        for (const auto& [sql, note] : cases) {
            form.txtSQL.UserTyped(QLatin1String(sql));
            form.cmdPre.Click();
            EXPECT_EQ(form.txtSample.Text(), QString()) << sql;
            EXPECT_TRUE(form.lblNote.Caption().contains(QLatin1String(note)))
                << form.lblNote.Caption().toStdString();
            form.OKButton.Click();
        }
    });
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(t.frame().FormCount(), 0);
    EXPECT_EQ(file.Query("select count(*) from \"my table\""), "1");
}

TEST_F(ImportDatabase, WhatXmlCanNotHoldIsLeftOutOnlyWithConsent) {
    file.Run("create table t(a text); insert into t values(char(1) || 'x'), ('aé'), (cast(x'61EDA08162' as "
             "text));");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        t.prompts.Answer(answer);
        const int closed = InImport([&](exchange::frmImportDB& form) {
            if (answer == Answer::No)
                MakeSource(form.source, QStringLiteral("stock"));
            form.Form_Activate();
            form.chkAttr.UserSet(true);
            form.OKButton.Click();
        });
        EXPECT_EQ(closed, answer == Answer::Yes ? 1 : 0);
        EXPECT_TRUE(
            t.prompts.Texts().last().startsWith(QStringLiteral("2 character(s) can not stand in XML")))
            << t.prompts.Texts().last().toStdString();
    }
    EXPECT_NE(test::TextOf(t).find("<row a=\"x\" />\n\t<row a=\"aé\" />\n\t<row a=\"ab\" />"),
              std::string::npos)
        << test::TextOf(t);
}

TEST_F(ImportDatabase, ADateThatIsNoneIsLeftEmptyOnlyWithConsent) {
    file.Run("create table t(n integer, d timestamp, s text); insert into t values(1, '1900-01-00 00:00:00', "
             "'1900-00-00'), (2, '2024-05-06 07:08:09', '');");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        t.prompts.Answer(answer);
        EXPECT_EQ(InImport([&](exchange::frmImportDB& form) {
                      if (answer == Answer::No)
                          MakeSource(form.source, QStringLiteral("stock"));
                      form.Form_Activate();
                      form.chkAttr.UserSet(true);
                      form.cmdPre.Click();
                      EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("1 value(s)")));
                      form.OKButton.Click();
                  }),
                  answer == Answer::Yes ? 1 : 0);
    }
    EXPECT_NE(test::TextOf(t).find("<row n=\"1\" d=\"\" s=\"1900-00-00\" />\n\t<row n=\"2\" "
                                   "d=\"2024-05-06T07:08:09\" s=\"\" />"),
              std::string::npos)
        << test::TextOf(t);
}

TEST_F(ImportDatabase, NamesThatWillNotParseAreToldAndCanBeRepaired) {
    file.Run("create table t(\"2 a\" integer, \"so \"\"b\"\"\" text, 价格 text); insert into t values(1, "
             "'x', 'y' || char(0) || 'z');");
    InImport([&](exchange::frmImportDB& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        form.chkAttr.UserSet(true);
        form.cmdPre.Click();
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("\"2 a\" is no name")));
        EXPECT_TRUE(form.txtSample.Text().contains(QStringLiteral("<row 2 a=\"1\" so \"b\"=\"x\" 价格=\"y")));
        form.chkRepair.UserSet(true);
        form.txtSQL.UserTyped(QStringLiteral("select \"2 a\", \"so \"\"b\"\"\", 'é末' as 价格 from t"));
        form.OKButton.Click();
    });
    EXPECT_NE(test::TextOf(t).find("<row _2_a=\"1\" so__b_=\"x\" 价格=\"é末\" />"), std::string::npos)
        << test::TextOf(t);
}

TEST_F(ImportDatabase, ASourceThatIsNotThereIsToldWithTheDriversWords) {
    InImport([&](exchange::frmImportDB& form) {
        t.prompts.Answer(Answer::Ok);
        const std::string typed = "nothing.mdb";
        for (const char letter : typed) { // no message for each letter
            form.source.txtDS.UserTyped(form.source.txtDS.Text() + QLatin1Char(letter));
            form.source.txtDS.KeyUp(0, 0);
        }
        EXPECT_EQ(form.source.ConnectionString(),
                  QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=nothing.mdb"));
        t.prompts.Choose(t.folder.Write(QStringLiteral("no access.mdb"), "plain text"));
        form.source.cmdAccess.Click();
        EXPECT_EQ(t.prompts.Texts(),
                  QStringList(QStringLiteral("Operation was canceled. Please check DSN and try again.")));
        EXPECT_FALSE(form.lblNote.Caption().isEmpty());
    });
    EXPECT_EQ(t.prompts.dialogs.back().filter,
              QStringLiteral("Microsoft Access MDBs (*.mdb)|*.mdb|All Files (*.*)|*.*"));
}

TEST_F(ImportDatabase, AnAccessFileIsImportedAndDescribed) {
    const QString folder = qEnvironmentVariable("VANTREL_ACCESS_SAMPLES");
    if (folder.isEmpty())
        GTEST_SKIP() << "VANTREL_ACCESS_SAMPLES names no folder with Access files";
    InImport([&](exchange::frmImportDB& form) {
        t.prompts.Choose(folder + QStringLiteral("/dates.mdb"));
        form.source.cmdAccess.Click();
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"DateTest\""));
        file.Run("create table other(a)");
        MakeSource(form.source, QStringLiteral("stock"));
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from other"));
        form.source.txtDS.KeyUp(Qt::Key_Left, 0); // its file is meant now, and its tables
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"DateTest\""));
        test::ChooseSource(form.source, "stock");
        form.source.optAccess.UserChose();
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select * from \"DateTest\""));
        form.txtSQL.UserTyped(QStringLiteral("select  * from \"DateTest\""));
        form.source.txtDS.KeyUp(Qt::Key_Left, 0);
        EXPECT_EQ(form.txtSQL.Text(), QStringLiteral("select  * from \"DateTest\""))
            << "nothing new is meant";
        form.chkAttr.UserSet(true);
        t.prompts.Answer(Answer::Yes); // its dates before 1900 are none to the driver
        form.OKButton.Click();
    });
    EXPECT_TRUE(t.prompts.Texts().last().startsWith(QStringLiteral("8 value(s)")));
    EXPECT_NE(test::TextOf(t).find("<row IDCol=\"1\" DateTimeCol=\"2021-12-02T00:00:00\""),
              std::string::npos);
    InSchema([&](exchange::frmCreateDBSchema& form) {
        t.prompts.Choose(folder + QStringLiteral("/dates.mdb"));
        form.source.cmdAccess.Click();
        form.cmdPre.Click();
        const QString schema = form.txtSample.Text();
        EXPECT_TRUE(schema.contains(QStringLiteral("<xsd:element name=\"DateTest\">")));
        EXPECT_TRUE(schema.contains(QStringLiteral("<xsd:element name=\"IDCol\" type=\"xsd:integer\"/>")));
        EXPECT_TRUE(schema.contains(QStringLiteral("<xsd:element name=\"DateCol\" type=\"xsd:dateTime\"/>")));
        EXPECT_FALSE(schema.contains(QStringLiteral("MSysObjects")));
    });
}

TEST_F(ImportDatabase, TablesBecomeASchema) {
    file.Run("create table T(a integer, b varchar(50), c decimal(9,2), d boolean); create view V as select * "
             "from T;");
    const int closed = InSchema([&](exchange::frmCreateDBSchema& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        form.cmdPre.Click();
        EXPECT_EQ(
            Plain(form.txtSample.Text()),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xsd:schema "
            "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n"
            "\t<xsd:element name=\"T\">\n\t\t<xsd:complexType>\n\t\t\t<xsd:sequence>\n"
            "\t\t\t<xsd:element name=\"a\" type=\"xsd:integer\"/>\n\t\t\t<xsd:element name=\"b\">\n"
            "\t\t\t\t<xsd:simpleType>\n\t\t\t\t\t<xsd:restriction base=\"xsd:string\">\n"
            "\t\t\t\t\t\t<xsd:maxLength value=\" "
            "50\"/>\n\t\t\t\t\t</xsd:restriction>\n\t\t\t\t</xsd:simpleType>\n"
            "\t\t\t</xsd:element>\n\t\t\t<xsd:element name=\"c\" type=\"xsd:decimal\"/>\n"
            "\t\t\t<xsd:element name=\"d\" "
            "type=\"xsd:boolean\"/>\n\t\t\t</xsd:sequence>\n\t\t</xsd:complexType>\n\t</xsd:element>\n</"
            "xsd:schema>");
        form.chkAttr.UserSet(true);
        t.prompts.Answer(services::Answer::Ok); // the blank in maxLength: the new window tells of it
        form.OKButton.Click();
    });
    EXPECT_EQ(closed, 1);
    t.FinishChecks();
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("Schema error!"));
    EXPECT_TRUE(t.window().kind.schema);
    EXPECT_EQ(t.window().Caption, QStringLiteral("new1.xsd"));
    EXPECT_NE(test::TextOf(t).find("\t\t\t<xsd:attribute name=\"b\">\n\t\t\t\t<xsd:simpleType>"),
              std::string::npos);
    EXPECT_EQ(test::TextOf(t).find("xsd:sequence"), std::string::npos);
}

// Names that become the same one, and a table with the root's name.
TEST_F(ImportDatabase, TheBoxMakesASchemaThatJudgesTheRows) {
    file.Run("create table a_b(x_y integer, \"x y\" integer, day date, primary key(\"x y\", x_y));"
             "create table \"a b\"(note varchar(3), p integer, q integer,"
             " foreign key(p, q) references a_b(x_y, \"x y\"));"
             "create table data(\"1\" text);");
    InSchema([&](exchange::frmCreateDBSchema& form) {
        form.chkRepair.UserSet(true);
        form.chkAttr.UserSet(true);
        MakeSource(form.source, QStringLiteral("stock"));
        form.cmdPre.Click();
        t.folder.Write(QStringLiteral("made.xsd"), form.txtSample.Text().toUtf8());
    });
    const auto judged = [&](const QByteArray& rows) {
        t.folder.Write(QStringLiteral("rows.xml"),
                       "<data_2><a_b x_y='1' x_y_2='2' day='2024-05-06'/>" + rows + "</data_2>");
        QProcess judge;
        judge.start(QStringLiteral("xmllint"),
                    {QStringLiteral("--noout"), QStringLiteral("--schema"),
                     t.folder.Path(QStringLiteral("made.xsd")), t.folder.Path(QStringLiteral("rows.xml"))});
        EXPECT_TRUE(judge.waitForFinished());
        return judge.readAllStandardError().toStdString();
    };
    const std::pair<const char*, const char*> cases[] = {
        {"<a_b_2 p='1' q='2' note='abc'/><data _1='x'/>", "rows.xml validates"},
        {"<a_b_2 p='2' q='1'/>", "No match found for key-sequence"},
        {"<a_b x_y='1' x_y_2='2'/>", "Duplicate key-sequence"},
        {"<a_b_2 note='abcd'/>", "maxLength"},
        {"<a_b x_y='2' x_y_2='2' day='soon'/>", "xs:date"},
    };
    for (const auto& [rows, word] : cases)
        EXPECT_NE(judged(rows).find(word), std::string::npos) << rows << "\n" << judged(rows);
}

TEST_F(ImportDatabase, ASchemaOfManyTablesCanBeCancelled) {
    QByteArray tables;
    for (int i = 0; i < 300; ++i)
        tables += "create table t" + QByteArray::number(i) + "(a integer);";
    file.Run(tables.constData());
    InSchema([&](exchange::frmCreateDBSchema& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        t.progress.cancelAtStep = t.progress.steps + 100;
        t.prompts.Answer(Answer::Ok);
        form.cmdPre.Click();
        EXPECT_EQ(form.lblNote.Caption(), QStringLiteral("Cancelled."));
        EXPECT_EQ(form.txtSample.Text(), QString());
    });
}

TEST_F(ImportDatabase, AnEmptyDatabaseGivesASchemaOfItsRootAlone) {
    InSchema([&](exchange::frmCreateDBSchema& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        form.cmdPre.Click();
        EXPECT_EQ(Plain(form.txtSample.Text()),
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xsd:schema "
                  "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n</xsd:schema>");
    });
}

TEST_F(ImportDatabase, ASourceIsReplacedAndAFileMadeOnlyWithConsent) {
    const QString fresh = t.folder.Path(QStringLiteral("fresh.db"));
    InSchema([&](exchange::frmCreateDBSchema& form) {
        MakeSource(form.source, QStringLiteral("stock"));
        t.prompts.Answer({Answer::Ok, Answer::No, Answer::No, Answer::No, Answer::Yes});
        form.source.newDSNShown.disconnectAll();
        form.source.newDSNShown.connect([&](exchange::frmNewDSN& dialog) {
            dialog.txtName.UserTyped(QStringLiteral("stock"));
            dialog.OKButton.Click();
            EXPECT_TRUE(t.prompts.Texts().last().endsWith(QStringLiteral("needs a file.")));
            dialog.txtDatabase.UserTyped(file.Path());
            dialog.OKButton.Click();
            EXPECT_FALSE(t.prompts.Texts().last().contains(QStringLiteral("another driver")));
            dialog.cmbDriver.UserChose(
                static_cast<int>(dialog.cmbDriver.Items().indexOf(QStringLiteral("MDBTools"))));
            dialog.OKButton.Click();
            EXPECT_TRUE(t.prompts.Texts().last().contains(QStringLiteral("another driver")));
            dialog.cmbDriver.UserChose(
                static_cast<int>(dialog.cmbDriver.Items().indexOf(QStringLiteral("SQLite3"))));
            dialog.txtName.UserTyped(QStringLiteral("other"));
            dialog.txtDatabase.UserTyped(fresh);
            dialog.OKButton.Click();
            EXPECT_EQ(dialog.Made(), QString());
            EXPECT_FALSE(t.folder.Has(QStringLiteral("fresh.db")));
            dialog.OKButton.Click();
        });
        form.source.cmdNewDSN.Click();
        EXPECT_TRUE(t.prompts.Texts().last().startsWith(QStringLiteral("Can not find ") + fresh));
        EXPECT_EQ(form.source.ConnectionString(), QStringLiteral("DSN=other;"));
        form.cmdPre.Click();
        EXPECT_FALSE(form.txtSample.Text().isEmpty());
    });
    EXPECT_TRUE(t.folder.Has(QStringLiteral("fresh.db")));
}

} // namespace
