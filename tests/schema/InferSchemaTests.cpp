// SPDX-License-Identifier: GPL-3.0-or-later
// Schemas made of documents: each takes all that it was made of.
#include "schema/dialogs/MakeDialogs.h"
#include "schema/dialogs/frmInferSchema.h"
#include "tests/exchange/ExchangeDesk.h"
#include <QDirIterator>
#include <QFile>

namespace {

using schema::frmInferSchema;
using services::Answer;

struct InferSchema : testing::Test {
    test::TestApp t;

    QString Path(const char* name) { return t.folder.Path(QLatin1String(name)); }
    // The schema's text with LF line ends and without indentation; empty where none came. The question
    // whether to bind the document is answered with No.
    std::string Infer(const QByteArray& document, const QStringList& further = {}, bool expected = true) {
        doc = &t.OpenText(QStringLiteral("d%1.xml").arg(++number), document);
        t.prompts.Answer(expected ? Answer::No : Answer::Ok);
        const int before = t.frame().FormCount();
        const auto act = [&](frmInferSchema& form) {
            form.txtFiles.SetText(further.join(u'\n'));
            form.OKButton.Click();
        };
        EXPECT_EQ(test::InDialog<frmInferSchema>(t, schema::MakeDialogsOf(t.app()).inferSchemaShown,
                                                 "mnuInferSchema", act),
                  1);
        if (t.frame().FormCount() == before)
            return {};
        schemaText = t.window().rtxtXML.Text();
        QString plain = schemaText;
        return plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).remove(u'\t').toStdString();
    }
    // As a user would find out.
    bool IsValid(const QString& schemaFile) {
        t.frame().ActivateForm(doc);
        t.prompts.Choose(schemaFile);
        if (doc->rtxtXML.Text().contains(QStringLiteral("chemaLocation")))
            t.prompts.Answer(Answer::Yes);
        t.ChooseMenu(QStringLiteral("mnuApplySchema"));
        doc->tbsXML.Select(QStringLiteral("textview"));
        t.prompts.Answer(Answer::Ok);
        t.ChooseMenu(QStringLiteral("mnuXMLValidate"));
        return t.prompts.boxes.back().text == QStringLiteral("It is valid XML!");
    }
    bool IsValid() {
        QFile file(Path("inferred.xsd"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(schemaText.toUtf8());
        file.close();
        return IsValid(file.fileName());
    }
    static bool Has(const std::string& text, const char* part) {
        return text.find(part) != std::string::npos;
    }

    DocumentWindow* doc = nullptr;
    QString schemaText;
    int number = 0;
};

TEST_F(InferSchema, TakesOrderTypesAttributesAndTextFromWhatIsThere) {
    const std::string made = Infer(
        "<order id='7' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
        "xsi:noNamespaceSchemaLocation='b.xsd'>"
        "<date>2024-02-29</date><item sku='a' xml:lang='de'>x<b>y</b></item><item sku='b'>z</item><note/>"
        "<price cur='EUR'>1.5</price><price cur='USD'>2</price><sub><order id='300'><date>2023-01-03</date>"
        "<item sku='c'/><blank> <!--c--> </blank></order></sub></order>");
    EXPECT_TRUE(Has(made, "<xs:element name=\"order\" type=\"orderType\"/>")) << made;
    EXPECT_TRUE(Has(made, "<xs:element name=\"date\" type=\"xs:date\"/>"));
    EXPECT_TRUE(
        Has(made, "<xs:element name=\"item\" maxOccurs=\"unbounded\">\n<xs:complexType mixed=\"true\">"));
    EXPECT_TRUE(Has(made, "<xs:attribute ref=\"xml:lang\"/>"));
    EXPECT_TRUE(Has(made, "<xs:extension base=\"xs:decimal\">"));
    EXPECT_TRUE(Has(made, "<xs:attribute name=\"id\" use=\"required\" type=\"xs:unsignedShort\"/>"));
    EXPECT_TRUE(Has(made, "<xs:element ref=\"order\"/>"));
    EXPECT_FALSE(Has(made, "chemaLocation=\"b"));
    EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();
}

TEST_F(InferSchema, FindsSequencesChoicesAndAnyOrder) {
    struct Case {
        const char* document;
        const char* expected;
    };
    const Case cases[] = {
        {"<r><p><a/><b/></p><p><a/><c/></p></r>", "<xs:sequence>\n<xs:element name=\"a\">"},
        {"<r><p><a/><b/></p><p><a/><c/></p></r>", "<xs:choice>\n<xs:element name=\"b\">"},
        {"<r><p><a/><b/></p><p><b/><a/></p></r>", "<xs:all>"},
        {"<r><p><a/><b/><a/></p><p><b/></p></r>", "<xs:choice maxOccurs=\"unbounded\">"},
        {"<r><p><a/><a/></p><p><a/><a/></p><p><a/><a/></p></r>",
         "<xs:element name=\"a\" minOccurs=\"2\" maxOccurs=\"2\">"},
        {"<r><p><a/></p><p/></r>", "<xs:element name=\"a\" minOccurs=\"0\">"},
        {"<r>x<p>1</p>y<p>true</p><p>1</p></r>",
         "<xs:element name=\"p\" maxOccurs=\"unbounded\" type=\"xs:boolean\"/>"},
    };
    for (const Case& one : cases) {
        const std::string made = Infer(one.document);
        EXPECT_TRUE(Has(made, one.expected)) << made << one.expected;
        EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();
    }
}

TEST_F(InferSchema, TakesTheNarrowestTypeThatHoldsForAllValues) {
    struct Case {
        QStringList values;
        const char* type;
    };
    const Case cases[] = {
        {{"0", "255"}, "unsignedByte"},
        {{"-1", "127"}, "byte"},
        {{"-1", "70000"}, "int"},
        {{"99999999999999999999", "1"}, "integer"},
        {{"9000000000000000000", "-4"}, "long"},
        {{"1", "+1.50", ".5"}, "decimal"},
        {{"1", "2.5e10", "INF"}, "double"},
        {{"2024-02-29", "1999-12-31Z"}, "date"},
        {{"2023-02-29", "x y"}, "string"},
        {{"2024-01-01T00:00:00+01:00", "2024-01-01T23:59:59.5"}, "dateTime"},
        {{"23:59:59"}, "time"},
        {{"P1Y2M", "-PT5S"}, "duration"},
        {{"http://a.b/c?d=e&amp;f=g", "urn://x"}, "anyURI"},
        {{"a-b", "c.d"}, "NCName"},
        {{"1a", "a:b"}, "NMTOKEN"},
        {{" 5 ", "6\n"}, "unsignedByte"},
        {{"", "5"}, "string"},
    };
    QByteArray document = "<r>";
    for (int round = 0; round < 2; ++round) {
        int element = 0;
        for (const Case& one : cases) {
            ++element;
            for (const QString& value : one.values)
                document += QStringLiteral("<e%1 a='%2'>%2</e%1>").arg(element).arg(value).toUtf8();
        }
    }
    const std::string made = Infer(document + "</r>");
    ASSERT_FALSE(made.empty());
    std::size_t at = 0;
    for (const Case& one : cases) {
        const std::string head = "<xs:extension base=\"xs:" + std::string(one.type) + "\">";
        at = made.find(head, at + 1);
        EXPECT_NE(at, std::string::npos) << one.type << made;
    }
    EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();

    // Few values that come again and again are all that there are.
    QByteArray few = "<r>";
    for (int i = 0; i < 12; ++i)
        few += i % 3 == 0 ? "<c>red</c>" : "<c>light blue</c>";
    EXPECT_TRUE(Has(Infer(few + "</r>"), "<xs:enumeration value=\"light blue\"/>"));
    EXPECT_TRUE(IsValid());
}

TEST_F(InferSchema, SeveralDocumentsFitTogetherAndABadOneIsTold) {
    t.OpenText(QStringLiteral("more.xml"), "<r><b n='x'/>&#65;<![CDATA[<]]></r>");
    t.OpenText(QStringLiteral("bad.xml"), "<r/>");
    const std::string made = Infer("<r><a/></r>", {Path("more.xml")});
    EXPECT_TRUE(Has(made, "<xs:choice>") && Has(made, "mixed=\"true\"") && Has(made, "\"n\"")) << made;
    EXPECT_TRUE(IsValid());

    QFile bad(Path("bad.xml"));
    EXPECT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("<r><a></r>");
    bad.close();
    EXPECT_EQ(Infer("<r/>", {bad.fileName()}, false), "") << "a document that doesn't parse";
    EXPECT_TRUE(t.prompts.boxes.back().text.startsWith(bad.fileName()));
}

TEST_F(InferSchema, EachNamespaceGetsAFileBesideTheFirst) {
    const QByteArray document =
        "<o xmlns='urn:o' xmlns:p='urn:p' p:k='1'><p:a><in xmlns=''><p:a/></in></p:a><own/></o>";
    t.prompts.Choose(Path("set.xsd"));
    const std::string made = Infer(document);
    EXPECT_TRUE(Has(made, "targetNamespace=\"urn:o\"")) << made;
    EXPECT_TRUE(QFile::exists(Path("set-2.xsd")) && QFile::exists(Path("set-3.xsd")));
    EXPECT_EQ(t.window().Caption, Path("set.xsd"));
    // Nothing is written over.
    t.prompts.Choose(Path("set.xsd"));
    EXPECT_EQ(Infer(document, {}, false), "");
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("set-2.xsd")));
}

TEST_F(InferSchema, DocumentsOfAnyDepthAndWidthComeToAnEnd) {
    QByteArray deep, wide = "<r>", same;
    for (int i = 0; i < 2000; ++i)
        deep += "<d" + QByteArray::number(i) + ">";
    for (int i = 1999; i >= 0; --i)
        deep += "</d" + QByteArray::number(i) + ">";
    EXPECT_FALSE(Infer(deep).empty());
    for (int i = 0; i < 3000; ++i)
        wide += "<w" + QByteArray::number(i * 7919 % 3000) + "/>";
    EXPECT_TRUE(
        Has(Infer(wide + "</r>"), "<xs:any namespace=\"##local\" minOccurs=\"0\" maxOccurs=\"unbounded\"/>"));
    EXPECT_TRUE(IsValid());
    wide = "<r>";
    for (int i = 0; i < 20001; ++i)
        wide += "<w" + QByteArray::number(i) + "/>";
    EXPECT_EQ(Infer(wide + "</r>", {}, false), "");
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("20000")));
}

TEST_F(InferSchema, OddValuesAndTypedAndNilElementsDontKeepADocumentFromItsSchema) {
    const std::string made =
        Infer("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
              "xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
              "<a xml:lang='zh_TW'/><a xml:lang=''/><n xsi:nil='true'/><n>5</n><v xsi:type='xs:int'>7</v>"
              "<v xsi:type='xs:date'>2024-01-01</v><c><![CDATA[a<b]]>&amp;&quot;</c></r>");
    EXPECT_TRUE(
        Has(made,
            "<xs:anyAttribute namespace=\"http://www.w3.org/XML/1998/namespace\" processContents=\"skip\"/>"))
        << made;
    EXPECT_TRUE(Has(made, "nillable=\"true\"") && Has(made, "type=\"xs:unsignedByte\""));
    EXPECT_TRUE(Has(made, "type=\"xs:anyType\""));
    EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();
    // A type that no schema has can't be made up.
    EXPECT_EQ(
        Infer("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:type='mine'>7</r>", {}, false),
        "");
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("mine")));
}

// Documents that packages have brought: not all machines have them.
TEST_F(InferSchema, DocumentsOfTheMachineFitTheirSchemas) {
    QDirIterator files(QStringLiteral("/usr/share/mime"), {QStringLiteral("*.xml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    int tried = 0;
    while (files.hasNext() && tried < 25) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly) || file.size() > 100000)
            continue;
        ++tried;
        t.prompts.AllowAnyBox();
        const QByteArray bytes = file.readAll();
        EXPECT_NE(Infer(bytes), "") << file.fileName().toStdString();
        t.prompts.ForgetUnused();
    }
}

} // namespace
