// SPDX-License-Identifier: GPL-3.0-or-later
// Delimited text becomes a document: what the dialog shows, and what OK opens.
#include "exchange/dialogs/frmImportTxt.h"
#include "tests/exchange/ExchangeDesk.h"
#include <QDir>
#include <QProcess>
#include <QStringEncoder>
#include <QXmlStreamReader>

namespace {

using services::Answer;
using test::TestApp;

class ImportText : public testing::Test {
protected:
    TestApp t;

    /// Opens a file in the dialog, sets options by `act`, and presses OK.
    int Import(const QByteArray& bytes, const std::function<void(exchange::frmImportTxt&)>& act = {}) {
        t.prompts.Choose(t.folder.Write(QStringLiteral("stock.csv"), bytes));
        return test::InDialog<exchange::frmImportTxt>(t, t.frame().exchangeDialogs.importTxtShown,
                                                      "mnuTImpText", [&](exchange::frmImportTxt& form) {
                                                          form.cmdOpenFile.Click();
                                                          if (act)
                                                              act(form);
                                                          form.OKButton.Click();
                                                      });
    }
    static void Attributes(exchange::frmImportTxt& form) { form.chkUseAttr.UserSet(true); }
    static void Named(exchange::frmImportTxt& form) { form.chkFirst.UserSet(true); }
    static void Both(exchange::frmImportTxt& form) {
        Attributes(form);
        Named(form);
    }
    static void Repaired(exchange::frmImportTxt& form) {
        Both(form);
        form.chkRepair.UserSet(true);
        form.chkQuotes.UserSet(true);
    }
    /// The lines of the rows, without the root.
    std::string Rows() {
        const QString text = QString::fromStdString(test::TextOf(t));
        return text.section(u'\n', 1, -2).remove(u'\t').toStdString();
    }
};

TEST_F(ImportText, AttributesAndElementsAreWrittenLineByLine) {
    EXPECT_EQ(Import("a,b\r\n1,2\r\n3,4", Both), 1);
    EXPECT_EQ(test::TextOf(t), "<data>\n\t<row a=\"1\" b=\"2\" />\n\t<row a=\"3\" b=\"4\" />\n</data>");
    EXPECT_EQ(t.window().Caption, QStringLiteral("new1.xml"));
    Import("a,b\n1,2\n", Named);
    EXPECT_EQ(test::TextOf(t), "<data>\n\t<row>\n\t\t<a>1</a>\n\t\t<b>2</b>\n\t</row>\n</data>");
    EXPECT_EQ(
        t.prompts.dialogs[0].filter,
        QStringLiteral("Text Files (*.txt;*.csv;*.tab;*.asc)|*.txt;*.csv;*.tab;*.asc|All Files (*.*)|*.*"));
}

// It stands nowhere but in its window.
TEST_F(ImportText, AnImportedDocumentIsNotClosedWithoutAQuestion) {
    Import("1,2\n", Attributes);
    t.prompts.Answer(Answer::Cancel);
    EXPECT_FALSE(t.frame().CloseForm(&t.window()));
    EXPECT_EQ(t.frame().FormCount(), 1);
}

TEST_F(ImportText, QuotesBlankLinesAndShortRows) {
    const std::pair<const char*, const char*> cases[] = {
        {"\"a,b\",c\n", "<row field1=\"a,b\" field2=\"c\" />"},
        {"\"say \"\"hi\"\"\"\n", "<row field1=\"say &quot;hi&quot;\" />"},
        {"a,\"\",b\n", "<row field1=\"a\" field2=\"&quot;\" field3=\"b\" />"},
        {"a,\"b,c\nd,e\n", "<row field1=\"a\" field2=\"b,c\" />\n<row field1=\"d\" field2=\"e\" />"},
        {"\n  \n1\n\n1,2,\n",
         "<row field1=\"1\" field2=\"\" field3=\"\" />\n<row field1=\"1\" field2=\"2\" field3=\"\" />"},
        {"<&>'\n", "<row field1=\"&lt;&amp;&gt;&apos;\" />"},
        {"a\tb\n", "<row field1=\"a&#9;b\" />"},
    };
    for (const auto& [text, rows] : cases) {
        Import(text, Attributes);
        EXPECT_EQ(Rows(), rows) << text;
    }
    Import("'a,b'\n", [](exchange::frmImportTxt& form) {
        Attributes(form);
        form.cmbQualifier.UserChose(1);
    });
    EXPECT_EQ(Rows(), "<row field1=\"&apos;a\" field2=\"b&apos;\" />");
    Import("\"a,b\"\n", [](exchange::frmImportTxt& form) {
        Attributes(form);
        form.cmbQualifier.UserChose(2);
    });
    EXPECT_EQ(Rows(), "<row field1=\"&quot;a\" field2=\"b&quot;\" />");
}

TEST_F(ImportText, EveryDelimiterParts) {
    const std::pair<int, const char*> cases[] = {
        {0, "a\tb"}, {1, "a;b"}, {2, "a,b"}, {3, "a b"}, {4, "a||b"}};
    for (const auto& [option, text] : cases) {
        int focused = 0;
        Import(text, [&, which = static_cast<std::size_t>(option)](exchange::frmImportTxt& form) {
            Attributes(form);
            form.delimiter.txtOther.focusRequested.connect([&] { ++focused; });
            form.delimiter.txtOther.UserTyped(QStringLiteral("||"));
            EXPECT_TRUE(form.delimiter.optChoose[4].Value()) << "it is what the user wants";
            form.delimiter.optChoose[which].UserChose();
            EXPECT_EQ(form.grdSample.Cols(), 2);
        });
        EXPECT_EQ(Rows(), "<row field1=\"a\" field2=\"b\" />") << option;
        EXPECT_EQ(focused, option == 4 ? 1 : 0);
    }
}

TEST_F(ImportText, NamesComeFromTheFirstRow) {
    Import("first name,,field1,\n1,2,3,4,5\n", [](exchange::frmImportTxt& form) {
        Named(form);
        EXPECT_EQ(form.grdSample.FixedRows(), 1);
        EXPECT_EQ(form.grdSample.TextMatrix(0, 0), QStringLiteral("first name"));
        EXPECT_EQ(form.lblNote.Caption(), QString());
    });
    EXPECT_EQ(
        Rows(),
        "<row>\n<first_name>1</first_name>\n<field2>2</field2>\n<field1>3</field1>\n<field3>4</field3>\n"
        "<field4>5</field4>\n</row>");
}

TEST_F(ImportText, TheDialogNamesTheFieldThatWillNotParse) {
    const std::tuple<const char*, bool, const char*> cases[] = {
        {"a,2nd\n1,2\n", false, "\"2nd\" is no name"},
        {"a,b:c\n1,2\n", true, "\"b:c\" is no name"},
        {"a,a\n1,2\n", true, "\"a\" stands twice"},
        {"a,a\n1,2\n", false, ""},
    };
    t.prompts.AllowAnyBox();
    for (const auto& [text, attributes, note] : cases) {
        t.prompts.Choose(t.folder.Write(QStringLiteral("stock.csv"), text));
        test::InDialog<exchange::frmImportTxt>(
            t, t.frame().exchangeDialogs.importTxtShown, "mnuTImpText", [&](exchange::frmImportTxt& form) {
                form.cmdOpenFile.Click();
                Named(form);
                form.chkUseAttr.UserSet(attributes);
                EXPECT_TRUE(form.lblNote.Caption().contains(QLatin1String(note))) << note;
                EXPECT_EQ(form.lblNote.Caption().isEmpty(), *note == 0)
                    << form.lblNote.Caption().toStdString();
            });
    }
}

TEST_F(ImportText, TheBoxMakesNamesValidAndKeepsLineEndsInQuotes) {
    Import("2nd,a b,a_b,,größe!\n\"line 1\r\nline 2\",\"\",5\" pipe,x,\"say \"\"hi\"\"\"\n", Repaired);
    EXPECT_EQ(Rows(),
              "<row _2nd=\"line 1&#10;line 2\" a_b=\"\" a_b_2=\"5&quot; pipe\" field1=\"x\" größe_=\"say "
              "&quot;hi&quot;\" />");
    t.prompts.Answer(Answer::Ok);
    const int forms = t.frame().FormCount();
    EXPECT_EQ(Import("a\n\"never\nends\n", Repaired), 0);
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("begins in line 2 does not end")));
    EXPECT_EQ(t.frame().FormCount(), forms);
}

TEST_F(ImportText, WhatTheUsualReadingMakesOfQuotesIsTold) {
    const std::pair<const char*, bool> cases[] = {{"a,\"b,c\",d\n", false},
                                                  {"\"say \"\"hi\"\"\",x\n", false},
                                                  {"a,\"\",b\n", true},
                                                  {"a,\"line 1\nline 2\"\n", true},
                                                  {"5\" pipe,x\n", true}};
    for (const auto& [text, told] : cases) {
        Import(text, [&, expected = told](exchange::frmImportTxt& form) {
            EXPECT_EQ(form.lblNote.Caption().contains(QStringLiteral("\"Quotes as in CSV files\"")), expected)
                << form.lblNote.Caption().toStdString();
            form.chkQuotes.UserSet(true);
            EXPECT_EQ(form.lblNote.Caption().toStdString(), "");
        });
    }
    Import("2nd\n1\n", [](exchange::frmImportTxt& form) {
        Repaired(form);
        EXPECT_EQ(form.grdSample.TextMatrix(0, 0), QStringLiteral("_2nd")) << "as it will be";
        form.delimiter.optChoose[4].UserChose();
        EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("No delimiter is typed")));
    });
}

TEST_F(ImportText, LineEndsOfOneKindPartTheLines) {
    const std::pair<const char*, int> cases[] = {{"1\r2\r3", 3}, {"1\n2\n3\n", 3}, {"1\r\n2\r\n3", 3}};
    for (const auto& [text, rows] : cases) {
        Import(text, Attributes);
        EXPECT_EQ(QString::fromStdString(Rows()).count(QStringLiteral("<row")), rows) << text;
    }
    Import("1\n2\r\n3\r4", [](exchange::frmImportTxt& form) {
        Attributes(form);
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("mixes its line ends")));
    });
    EXPECT_EQ(Rows(), "<row field1=\"1&#10;2\" />\n<row field1=\"3&#13;4\" />");
    Import("1\n2\r\n3\r4", Repaired);
    EXPECT_EQ(Rows(), "<row _1=\"2\" />\n<row _1=\"3\" />\n<row _1=\"4\" />");
}

TEST_F(ImportText, TheEncodingIsFoundAndCanBeChanged) {
    const QString text = QStringLiteral("赤ワイン,1\r\n");
    for (const auto encoding :
         {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        Import(encoder.encode(text), Attributes);
        EXPECT_EQ(Rows(), "<row field1=\"赤ワイン\" field2=\"1\" />");
    }
    const QByteArray gb2312("\xBE\xC6,1\n"); // 酒
    Import(gb2312, [&](exchange::frmImportTxt& form) {
        Attributes(form);
        EXPECT_FALSE(form.lblNote.Caption().isEmpty());
        t.prompts.Answer(Answer::Ok);
        form.cmbEnc.UserChose(static_cast<int>(form.cmbEnc.Items().indexOf(QStringLiteral("UTF-8"))));
        EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("aren't in the encoding \"UTF-8\"")));
        EXPECT_EQ(form.cmbEnc.Text(), QStringLiteral("8859-1")) << "not another name for the same";
        form.cmbEnc.UserChose(static_cast<int>(form.cmbEnc.Items().indexOf(QStringLiteral("GB2312"))));
        EXPECT_EQ(form.grdSample.TextMatrix(0, 0), QStringLiteral("酒"));
        EXPECT_EQ(form.lblNote.Caption(), QString());
    });
    EXPECT_EQ(Rows(), "<row field1=\"酒\" field2=\"1\" />");
}

TEST_F(ImportText, TheBeginningIsShownAtOnceAndTheWholeFileComes) {
    QByteArray bytes;
    for (int i = 0; i < 400000; ++i)
        bytes += QByteArray::number(i) + ",plain text\n";
    bytes += "last,a,\"wider, row\"\n";
    Import(bytes, [](exchange::frmImportTxt& form) {
        Attributes(form);
        EXPECT_EQ(form.grdSample.Rows(), 200);
        EXPECT_EQ(form.grdSample.Cols(), 2);
    });
    const DocumentWindow& window = t.window();
    EXPECT_EQ(window.tvXML.Nodes(2).Children(), 400001);
    EXPECT_TRUE(window.rtxtXML.Text().endsWith(
        QStringLiteral("<row field1=\"last\" field2=\"a\" field3=\"wider, row\" />\r\n</data>")));
    EXPECT_TRUE(window.rtxtXML.Text().startsWith(
        QStringLiteral("<data>\r\n\t<row field1=\"0\" field2=\"plain text\" field3=\"\" />")));

    t.progress.cancelAtStep = t.progress.steps + 4;
    EXPECT_EQ(Import(bytes, Attributes), 0);
    EXPECT_EQ(t.frame().FormCount(), 1) << "a cancelled import left something behind";
    EXPECT_EQ(t.progress.ended, static_cast<int>(t.progress.begun.size()));
}

TEST_F(ImportText, WhatXmlCanNotHoldIsLeftOutOnlyWithConsent) {
    const QByteArray bytes = QByteArray("a\0b,\x01\nc,d\n", 10) + QByteArray(50, ' ') + "\n";
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        t.prompts.Answer(answer);
        EXPECT_EQ(Import(bytes, Attributes), answer == Answer::Yes ? 1 : 0);
        EXPECT_TRUE(t.prompts.boxes.back().text.startsWith(
            QStringLiteral("2 character(s) can not stand in XML, the first is U+0000 in row 1.")));
    }
    EXPECT_EQ(Rows(), "<row field1=\"ab\" field2=\"\" />\n<row field1=\"c\" field2=\"d\" />");
}

TEST_F(ImportText, BadFilesAreToldAndLeaveTheDialogAsItWas) {
    const QString good = t.folder.Write(QStringLiteral("good.csv"), "1,2,3\n");
    const QString gone = t.folder.Path(QStringLiteral("gone.csv"));
    test::InDialog<exchange::frmImportTxt>(
        t, t.frame().exchangeDialogs.importTxtShown, "mnuTImpText", [&](exchange::frmImportTxt& form) {
            t.prompts.Answer({Answer::Ok, Answer::Ok, Answer::Ok, Answer::Ok});
            EXPECT_FALSE(form.OKButton.Enabled());
            form.OKButton.Click();
            EXPECT_EQ(t.prompts.boxes.back().text, QStringLiteral("No text file is chosen."));
            for (const QString& name :
                 {good, gone, t.folder.Path(), QString(), QStringLiteral("/dev/null")}) {
                t.prompts.Choose(name);
                form.cmdOpenFile.Click();
                EXPECT_EQ(form.grdSample.Cols(), 3);
                EXPECT_EQ(form.lblFile.Caption(), good);
            }
            EXPECT_EQ(t.prompts.boxes[1].text, QStringLiteral("Can not find ") + gone);
            form.CancelButton.Click();
        });
    EXPECT_EQ(t.frame().FormCount(), 0);
    Import("  \n\n   ", [](exchange::frmImportTxt& form) { EXPECT_EQ(form.grdSample.Rows(), 0); });
    EXPECT_EQ(test::TextOf(t), "<data>\n</data>");
}

TEST_F(ImportText, EveryEncodingOfDocumentsIsRead) {
    for (const auto& [label, word] : test::kEncodings) {
        text::FileForm form;
        form.encoding = QLatin1String(label);
        const QString line = QString::fromUtf8(word) + QStringLiteral(",1\r\n");
        t.prompts.AllowAnyBox();
        Import(text::Encode(line, form).bytes, [label = label](exchange::frmImportTxt& dialog) {
            Attributes(dialog);
            for (int typed = 1; typed <= QByteArrayView(label).size(); ++typed) // no box for each letter
                dialog.cmbEnc.UserTyped(QLatin1String(label, typed));
            EXPECT_EQ(dialog.lblNote.Caption().toStdString(), "") << label;
        });
        EXPECT_EQ(Rows(), "<row field1=\"" + std::string(word) + "\" field2=\"1\" />") << label;
    }
}

// The beginning that is shown ends in the middle of a line, or of a character.
TEST_F(ImportText, ALargeFileOfOneLineIsReadInAnyEncoding) {
    for (const char* label : {"UTF-8", "UTF-16"}) {
        for (const char* front : {"", "x"}) {
            text::FileForm form;
            form.encoding = QLatin1String(label);
            const QString line = QLatin1String(front) + QString::fromUtf8("😀").repeated(1100000);
            Import(text::Encode(line, form).bytes, [&](exchange::frmImportTxt& dialog) {
                Attributes(dialog);
                EXPECT_EQ(dialog.lblNote.Caption().toStdString(), "") << label;
                EXPECT_TRUE(line.startsWith(dialog.grdSample.TextMatrix(0, 0))) << label;
            });
            EXPECT_EQ(t.window().rtxtXML.Text().count(u'\xD83D'), 1100000) << label;
        }
    }
}

// Only the encoding tells where the beginning that is shown may end.
TEST_F(ImportText, TheEncodingOfALargeFileCanBeChanged) {
    const std::tuple<const char*, const char*, int> cases[] = {
        {"UTF-16LE", "酒,赤\n", 600'000}, {"GB2312", "酒", 2'200'000}, {"EUC-KR", "한,국\n", 750'000}};
    for (const auto& [label, unit, count] : cases) {
        QProcess iconv; // an encoder that writes no mark
        iconv.start(QStringLiteral("iconv"), {QStringLiteral("-f"), QStringLiteral("UTF-8"),
                                              QStringLiteral("-t"), QLatin1String(label)});
        iconv.write("x" + QByteArray(unit).repeated(count));
        iconv.closeWriteChannel();
        ASSERT_TRUE(iconv.waitForFinished(60000));
        t.prompts.AllowAnyBox(Answer::Ok);
        const bool lines = QByteArray(unit).contains('\n');
        EXPECT_EQ(Import(iconv.readAllStandardOutput(),
                         [&, name = label,
                          first = u'x' + QString::fromUtf8(unit).left(1)](exchange::frmImportTxt& form) {
                             Attributes(form);
                             form.cmbEnc.UserTyped(QLatin1String(name));
                             EXPECT_EQ(form.lblNote.Caption().toStdString(), "") << name;
                             EXPECT_TRUE(form.grdSample.TextMatrix(0, 0).startsWith(first)) << name;
                             EXPECT_EQ(form.grdSample.Cols(), lines ? 2 : 1);
                         }),
                  1);
        EXPECT_EQ(t.window().rtxtXML.Text().count(QString::fromUtf8(unit).left(1)), count) << label;
    }
}

TEST_F(ImportText, AnEncodingIsChosenBeforeTheFileAndRefusedWhereItDoesNotFit) {
    const QString gb2312 = t.folder.Write(QStringLiteral("gb.csv"), "\xBE\xC6,1\n"); // 酒
    test::InDialog<exchange::frmImportTxt>(
        t, t.frame().exchangeDialogs.importTxtShown, "mnuTImpText", [&](exchange::frmImportTxt& form) {
            t.prompts.Choose(gb2312);
            form.cmbEnc.UserTyped(QStringLiteral("GB2312"));
            form.cmdOpenFile.Click();
            EXPECT_EQ(form.cmbEnc.Text(), QStringLiteral("GB2312"));
            EXPECT_EQ(form.grdSample.TextMatrix(0, 0), QStringLiteral("酒"));
            form.cmbEnc.UserTyped(QStringLiteral("no such"));
            EXPECT_EQ(form.lblNote.Caption(), QStringLiteral("No encoding is called \"no such\"."));
            t.prompts.Answer({Answer::Ok, Answer::Ok});
            form.OKButton.Click();
            form.cmbEnc.UserTyped(QStringLiteral("utf-8"));
            form.OKButton.Click();
            EXPECT_EQ(t.prompts.Texts().last(),
                      QStringLiteral("The bytes of the file aren't in the encoding \"utf-8\"."));
            form.cmbEnc.UserTyped({});
            EXPECT_TRUE(form.lblNote.Caption().startsWith(QStringLiteral("The file names no encoding")))
                << form.lblNote.Caption().toStdString();
        });
    EXPECT_EQ(t.frame().FormCount(), 0);
    // NULs in front make it look like UTF-16.
    t.prompts.Answer(Answer::Yes);
    EXPECT_EQ(Import(QByteArray("a\0", 2) + QByteArray("赤,x\n").repeated(900'000), Attributes), 1);
    EXPECT_EQ(t.prompts.boxes.size(), 3u) << "no box without a text";
}

TEST_F(ImportText, AFileThatIsNoTextIsOpenedOnlyWithConsent) {
    QByteArray bytes("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    for (int i = 0; i < 4000; ++i)
        bytes += static_cast<char>((i * 37) % 256);
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        t.prompts.Answer(answer);
        t.prompts.Choose(t.folder.Write(QStringLiteral("picture.csv"), bytes));
        test::InDialog<exchange::frmImportTxt>(
            t, t.frame().exchangeDialogs.importTxtShown, "mnuTImpText", [&](exchange::frmImportTxt& form) {
                form.cmdOpenFile.Click();
                EXPECT_EQ(form.lblFile.Caption().isEmpty(), answer == Answer::Cancel);
            });
        EXPECT_TRUE(t.prompts.boxes.back().text.startsWith(QStringLiteral("This file does not look like")));
    }
    // Half of a pair, which no document can hold.
    t.prompts.Answer(Answer::No);
    EXPECT_EQ(Import(QByteArray("\xFF\xFE"
                                "a\0\x3D\xD8"
                                "b\0",
                                8),
                     Attributes),
              0);
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("U+D83D in row 1")))
        << t.prompts.boxes.back().text.toStdString();
}

/// Fields of all rows, as another reader of such files has them, and as the attributes of a document do.
QString ReadByAnother(const QString& path) {
    QProcess python;
    python.start(
        QStringLiteral("python3"),
        {QStringLiteral("-c"),
         QStringLiteral("import csv, sys\n"
                        "rows = list(csv.reader(open(sys.argv[1], newline='', encoding='utf-8')))[1:]\n"
                        "print('\\x1e'.join('\\x1f'.join(row) for row in rows).replace('\\r\\n', '\\n'), "
                        "end='')"),
         path});
    EXPECT_TRUE(python.waitForFinished(60000));
    return QString::fromUtf8(python.readAllStandardOutput());
}
QString AttributesOf(const QString& document) {
    QXmlStreamReader reader(document);
    QStringList rows;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        QStringList fields;
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            fields << attribute.value().toString();
        if (!fields.isEmpty())
            rows << fields.join(u'\x1f');
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return rows.join(u'\x1e');
}

TEST_F(ImportText, APublicSetIsReadAsAnotherReaderReadsIt) {
    const QDir folder(QStringLiteral("/usr/share/ieee-data"));
    const QStringList names = folder.entryList({QStringLiteral("*.csv")}, QDir::Files);
    if (names.isEmpty())
        GTEST_SKIP() << "the package ieee-data isn't installed";
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        t.prompts.AllowAnyBox();
        EXPECT_EQ(Import(file.readAll(), Repaired), 1) << name.toStdString();
        EXPECT_TRUE(AttributesOf(t.window().rtxtXML.Text()) == ReadByAnother(file.fileName()))
            << name.toStdString();
    }
}

TEST_F(ImportText, VeryWideAndVeryLongLinesComeWhole) {
    QByteArray wide;
    for (int i = 0; i < 5000; ++i)
        wide += QByteArray::number(i) + ',';
    Import(wide + "end\n", [](exchange::frmImportTxt& form) {
        Attributes(form);
        EXPECT_EQ(form.grdSample.Cols(), 5001);
    });
    EXPECT_NE(test::TextOf(t).find("field5001=\"end\""), std::string::npos);
    for (const bool quoted : {false, true}) { // no row of any table
        t.prompts.Answer(Answer::Ok);
        EXPECT_EQ(Import("a,b\n" + QByteArray(quoted ? "\"x\"" : "") + QByteArray(3 << 20, ','),
                         [](exchange::frmImportTxt& form) {
                             Attributes(form);
                             EXPECT_TRUE(
                                 form.lblNote.Caption().startsWith(QStringLiteral("A line has more")));
                         }),
                  0);
        EXPECT_TRUE(
            t.prompts.boxes.back().text.startsWith(QStringLiteral("Line 2 has more than 100000 fields")));
    }
    // Equal and empty names by the ten thousand.
    for (const char* name : {"a,", ","}) {
        EXPECT_EQ(Import(QByteArray(name).repeated(20'000) + "a\n1,2\n",
                         [](exchange::frmImportTxt& form) {
                             Repaired(form);
                             EXPECT_TRUE(form.lblNote.Caption().startsWith(
                                 QStringLiteral("A row has more than 10000 attributes")));
                             form.chkUseAttr.UserSet(false);
                             EXPECT_EQ(form.lblNote.Caption().toStdString(), "");
                         }),
                  1);
        const QString row = t.window().rtxtXML.Text();
        const QString last = *name == 'a' ? QStringLiteral("a_20000") : QStringLiteral("field20000");
        EXPECT_TRUE(row.contains(QStringLiteral("<%1></%1>").arg(last))) << name;
    }
    const QByteArray line(6 << 20, 'x');
    for (const bool repaired : {false, true})
        Import("!" + line + "\n1\n", [&](exchange::frmImportTxt& form) {
            Both(form);
            form.chkRepair.UserSet(repaired);
            EXPECT_LT(form.lblNote.Caption().size(), 200);
            EXPECT_EQ(form.lblNote.Caption().isEmpty(), repaired) << form.lblNote.Caption().toStdString();
            form.chkFirst.UserSet(repaired);
        });
    EXPECT_EQ(t.window().tvXML.Nodes(1).Child().Children(), 1) << "the repaired one";
    Import(line, [](exchange::frmImportTxt& form) { EXPECT_EQ(form.grdSample.Rows(), 1); });
    EXPECT_EQ(t.window().rtxtXML.Text().count(u'x'), line.size());
}

} // namespace
