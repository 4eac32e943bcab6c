// SPDX-License-Identifier: GPL-3.0-or-later
// Samples that the check accepts: each one is made from its dialog and checked as a user would, against the
// schema that it names.
#include "platform/services/Schemas.h"
#include "platform/text/TextFile.h"
#include "schema/dialogs/MakeDialogs.h"
#include "schema/dialogs/frmValidSample.h"
#include "tests/exchange/ExchangeDesk.h"
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <functional>

namespace {

using schema::frmValidSample;
using services::Answer;
using Act = std::function<void(frmValidSample&)>;

QByteArray Schema(const QByteArray& inside, bool space = true) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'" +
           QByteArray(
               space ? " targetNamespace='urn:t' xmlns='urn:t' xmlns:t='urn:t' elementFormDefault='qualified'"
                     : "") +
           ">" + inside + "</xs:schema>";
}

QByteArray Simple(const QByteArray& base, const QByteArray& facets) {
    return "<xs:simpleType><xs:restriction base='" + base + "'>" + facets +
           "</xs:restriction></xs:simpleType>";
}

QByteArray Pattern(const QByteArray& value) {
    return "<xs:pattern value='" + value + "'/>";
}

QByteArray Bound(const QByteArray& facet, const QByteArray& value) {
    return "<xs:" + facet + " value='" + value + "'/>";
}

// Types of the language by their names, and types of a schema's own.
const QByteArray kSimpleTypes[] = {
    Simple("xs:string", Pattern("((a+)+)+b{10,50}")),
    Simple("xs:string", Pattern("\\p{Lu}\\p{Ll}+-\\d{3}[\\i-[:]]\\c*")),
    Simple("xs:string", Pattern("\\p{IsGreek}+[^\\p{L}]\\P{IsBasicLatin}")),
    Simple("xs:string", Pattern("[A-Z]{2}") + Pattern("(a|[0-9]0){5}|x") + Bound("length", "7")),
    Simple("xs:string", Pattern("([a-c]|xyz)*") + Bound("minLength", "500")),
    Simple("xs:string", Bound("whiteSpace", "collapse") + Pattern("a b")),
    Simple("xs:token", Pattern("(\\+|00)[1-9]\\d{0,2}( \\d{2,4}){2,3}") + Bound("minLength", "12")),
    "<xs:simpleType><xs:restriction>" +
        Simple("xs:string", Pattern("[A-Z]+[a-z0-9]*") + Bound("maxLength", "8")) + Pattern(".*[0-9].*") +
        Bound("minLength", "6") + "</xs:restriction></xs:simpleType>",
    Simple("xs:decimal", Bound("minExclusive", "0.1") + Bound("maxExclusive", "0.2")),
    Simple("xs:decimal",
           Bound("totalDigits", "3") + Bound("fractionDigits", "1") + Bound("minInclusive", "12.3")),
    Simple("xs:integer",
           Bound("minExclusive", "99999999999999999999") + Bound("maxExclusive", "100000000000000000001")),
    Simple("xs:int", Pattern("\\d*7") + Bound("minInclusive", "100") + Bound("maxInclusive", "130")),
    Simple("xs:double", Bound("minExclusive", "1e300") + Bound("maxInclusive", "1.1e300")),
    Simple("xs:float", Bound("minInclusive", "-2.5") + Bound("maxExclusive", "-2.4")),
    Simple("xs:date", Bound("minExclusive", "1999-12-31") + Bound("maxExclusive", "2000-01-02")),
    Simple("xs:date", Pattern("19\\d\\d-.*")),
    Simple("xs:dateTime",
           Bound("minInclusive", "2030-02-28T23:59:59Z") + Pattern("\\d{4}-\\d\\d-\\d\\dT[\\d:]{8}Z")),
    Simple("xs:time", Bound("minExclusive", "23:59:58")),
    Simple("xs:duration", Bound("minExclusive", "P1Y") + Bound("maxInclusive", "P1Y1M")),
    Simple("xs:gYear", Bound("minInclusive", "-0010") + Bound("maxInclusive", "-0005")),
    Simple("xs:gMonthDay", Bound("minExclusive", "--11-30") + Bound("maxExclusive", "--12-02")),
    Simple("xs:hexBinary", Bound("length", "20")),
    Simple("xs:base64Binary", Bound("length", "16")),
    Simple("xs:NOTATION", Bound("enumeration", "t:jpg") + Bound("enumeration", "t:gif")),
    "<xs:simpleType><xs:restriction><xs:simpleType><xs:list itemType='xs:NMTOKEN'/></xs:simpleType>"
    "<xs:enumeration value='a b c'/></xs:restriction></xs:simpleType>",
    "<xs:simpleType><xs:restriction><xs:simpleType><xs:list itemType='xs:int'/></xs:simpleType>"
    "<xs:length value='4'/></xs:restriction></xs:simpleType>",
    "<xs:simpleType><xs:restriction><xs:simpleType><xs:union memberTypes='xs:int xs:token'/></xs:simpleType>"
    "<xs:enumeration value='none'/></xs:restriction></xs:simpleType>",
    "<xs:simpleType><xs:list><xs:simpleType><xs:union memberTypes='xs:date "
    "xs:NCName'/></xs:simpleType></xs:list>"
    "</xs:simpleType>",
};

QByteArray AllSimpleTypes() {
    QByteArray elements;
    int number = 0;
    for (const QByteArray& type : kSimpleTypes)
        elements += "<xs:element name='e" + QByteArray::number(++number) + "'>" + type + "</xs:element>";
    for (const char* name : {"string",
                             "normalizedString",
                             "token",
                             "language",
                             "Name",
                             "NCName",
                             "ID",
                             "NMTOKEN",
                             "NMTOKENS",
                             "QName",
                             "anyURI",
                             "boolean",
                             "decimal",
                             "float",
                             "double",
                             "byte",
                             "unsignedLong",
                             "negativeInteger",
                             "nonPositiveInteger",
                             "date",
                             "dateTime",
                             "time",
                             "gYear",
                             "gYearMonth",
                             "gMonth",
                             "gDay",
                             "gMonthDay",
                             "duration",
                             "hexBinary",
                             "base64Binary",
                             "anySimpleType",
                             "IDREF",
                             "IDREFS"})
        elements += "<xs:element name='" + QByteArray(name) + "' type='xs:" + name + "'/>";
    return Schema("<xs:element name='r'><xs:complexType><xs:sequence>" + elements +
                  "</xs:sequence></xs:complexType></xs:element><xs:notation name='jpg' public='a'/>"
                  "<xs:notation name='gif' public='b'/>");
}

// Content, each with an element "r" to begin with.
const QByteArray kContents[] = {
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' minOccurs='2' maxOccurs='5'/>"
    "<xs:choice minOccurs='3' maxOccurs='3'><xs:element name='b'/><xs:sequence><xs:element name='c'/>"
    "<xs:element name='d' "
    "minOccurs='0'/></xs:sequence></xs:choice></xs:sequence></xs:complexType></xs:element>",
    "<xs:element name='r'><xs:complexType mixed='true'><xs:all><xs:element name='a' type='xs:int' "
    "nillable='true'/>"
    "<xs:element name='b' minOccurs='0' type='xs:date'/></xs:all><xs:attribute name='c' form='qualified' "
    "use='required'/>"
    "<xs:attribute ref='xml:lang' use='required'/></xs:complexType></xs:element>",
    // What is abstract has something that stands for it.
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='t'/><xs:element ref='h' "
    "maxOccurs='9'/>"
    "</xs:sequence></xs:complexType></xs:element><xs:complexType name='t' abstract='true'/><xs:complexType "
    "name='u'>"
    "<xs:complexContent><xs:extension base='t'><xs:sequence><xs:element name='x' "
    "type='xs:int'/></xs:sequence>"
    "</xs:extension></xs:complexContent></xs:complexType><xs:element name='h' abstract='true' "
    "type='xs:string'/>"
    "<xs:element name='m' substitutionGroup='h'/><xs:element name='n' type='xs:token' "
    "substitutionGroup='m'/>",
    // Types and elements inside themselves end as early as they may.
    "<xs:element name='r' type='n'/><xs:complexType name='n'><xs:choice><xs:element name='leaf' "
    "type='xs:int'/>"
    "<xs:sequence><xs:element name='l' type='n'/><xs:element name='m' "
    "type='n'/></xs:sequence></xs:choice></xs:complexType>",
    "<xs:element name='r' nillable='true'><xs:complexType><xs:sequence><xs:element ref='r'/></xs:sequence>"
    "</xs:complexType></xs:element>",
    // Keys differ, and references lead to them.
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='p' minOccurs='4' "
    "maxOccurs='9'><xs:complexType>"
    "<xs:sequence><xs:element name='a'><xs:simpleType><xs:restriction base='xs:string'><xs:enumeration "
    "value='x'/>"
    "<xs:enumeration value='y'/></xs:restriction></xs:simpleType></xs:element><xs:element name='b' "
    "type='xs:boolean'/>"
    "</xs:sequence><xs:attribute name='k' type='xs:int' use='required'/><xs:attribute "
    "name='q'/></xs:complexType>"
    "</xs:element><xs:element name='u' minOccurs='2' maxOccurs='2'><xs:complexType><xs:attribute name='to' "
    "type='xs:int' "
    "use='required'/></xs:complexType></xs:element></xs:sequence></xs:complexType><xs:key "
    "name='k1'><xs:selector "
    "xpath='t:p'/><xs:field xpath='@k'/></xs:key><xs:key name='k2'><xs:selector xpath='.//t:p'/><xs:field "
    "xpath='t:a'/>"
    "<xs:field xpath='t:b'/></xs:key><xs:unique name='k3'><xs:selector xpath='t:p'/><xs:field "
    "xpath='@q'/></xs:unique>"
    "<xs:keyref name='k4' refer='k1'><xs:selector xpath='t:u'/><xs:field "
    "xpath='@to'/></xs:keyref></xs:element>",
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='i' minOccurs='3' "
    "maxOccurs='3'><xs:complexType>"
    "<xs:attribute name='id' type='xs:ID'/><xs:attribute name='ref' type='xs:IDREF' "
    "use='required'/></xs:complexType>"
    "</xs:element></xs:sequence></xs:complexType></xs:element>",
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:any namespace='##other' processContents='lax' "
    "minOccurs='2' "
    "maxOccurs='3'/><xs:any namespace='##local' processContents='skip'/><xs:any "
    "processContents='strict'/></xs:sequence>"
    "</xs:complexType></xs:element><xs:element name='leaf' fixed='7' type='xs:int'/>",
    // Groups, derived types, and what has its own form.
    "<xs:element name='r'><xs:complexType><xs:group ref='g' minOccurs='2' maxOccurs='2'/><xs:attributeGroup "
    "ref='ag'/>"
    "</xs:complexType></xs:element><xs:group name='g'><xs:choice><xs:element name='a'/><xs:element "
    "name='b'/></xs:choice>"
    "</xs:group><xs:attributeGroup name='ag'><xs:attribute name='q' type='xs:QName' use='required'/>"
    "<xs:attribute name='w' default='d'/></xs:attributeGroup>",
    "<xs:element name='r'><xs:complexType><xs:complexContent><xs:restriction "
    "base='b'><xs:sequence><xs:element name='x' "
    "type='xs:int'/></xs:sequence><xs:attribute name='a' "
    "use='prohibited'/></xs:restriction></xs:complexContent>"
    "</xs:complexType></xs:element><xs:complexType name='b'><xs:sequence><xs:element name='x' type='xs:int' "
    "minOccurs='0' "
    "maxOccurs='3'/></xs:sequence><xs:attribute name='a' type='xs:string'/></xs:complexType>",
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element ref='h' minOccurs='2' "
    "maxOccurs='unbounded'/>"
    "</xs:sequence></xs:complexType></xs:element><xs:element name='h' type='b'/><xs:complexType "
    "name='b'><xs:sequence/>"
    "</xs:complexType><xs:complexType name='c'><xs:complexContent><xs:extension base='b'><xs:attribute "
    "name='k' "
    "type='xs:int' use='required'/></xs:extension></xs:complexContent></xs:complexType><xs:element name='m1' "
    "type='c' "
    "substitutionGroup='h'/><xs:element name='m2' substitutionGroup='m1' block='extension'/>",
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' form='unqualified' "
    "type='xs:int'/>"
    "<xs:element name='b' type='xs:anyType'/><xs:element name='e' type='xs:ENTITY' minOccurs='0'/><xs:any "
    "namespace='urn:q' processContents='strict' minOccurs='0'/></xs:sequence></xs:complexType></xs:element>",
    "<xs:element name='r'><xs:complexType><xs:simpleContent><xs:extension base='xs:decimal'><xs:attribute "
    "name='c' "
    "use='required' type='xs:language'/></xs:extension></xs:simpleContent></xs:complexType></xs:element>",
    "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='x' type='xs:IDREF'/></xs:sequence>"
    "<xs:attribute name='id' type='xs:ID'/></xs:complexType></xs:element>",
    "<xs:element name='r'><xs:complexType><xs:sequence maxOccurs='unbounded'><xs:choice "
    "maxOccurs='unbounded'>"
    "<xs:element name='a'/><xs:sequence><xs:element name='c'/><xs:element ref='r' "
    "minOccurs='0'/></xs:sequence></xs:choice>"
    "<xs:element name='end'/></xs:sequence></xs:complexType></xs:element>",
    // The branch without a value isn't taken.
    "<xs:element name='r'><xs:complexType><xs:choice><xs:element name='bad'><xs:simpleType><xs:restriction "
    "base='xs:string'><xs:pattern "
    "value='[a-b-[a-b]]'/></xs:restriction></xs:simpleType></xs:element><xs:element name='good' "
    "fixed='x'/></xs:choice><xs:attribute name='u' fixed='7' use='required'><xs:simpleType><xs:union "
    "memberTypes='xs:int xs:token'/></xs:simpleType></xs:attribute><xs:attribute name='w' type='xs:int' "
    "default='3'/>"
    "</xs:complexType></xs:element>",
};

const Act kMinimal = [](frmValidSample& form) { form.optMinimal.UserChose(); };
const Act kTypical = [](frmValidSample& form) { form.txtSeed.SetText(QStringLiteral("7")); };
const Act kAll = [](frmValidSample& form) { form.optAll.UserChose(); };

struct ValidSample : testing::Test {
    test::TestApp t;

    // The sample's text; empty where none came.
    std::string Make(const QByteArray& text, const Act& act) {
        t.OpenText(QStringLiteral("s %1.xsd").arg(++number), text);
        return MakeFromFront(act);
    }
    std::string MakeFromFront(const Act& act) {
        const int before = t.frame().FormCount();
        const auto chosen = [&](frmValidSample& form) {
            act(form);
            form.OKButton.Click();
        };
        EXPECT_EQ(test::InDialog<frmValidSample>(t, schema::MakeDialogsOf(t.app()).validSampleShown,
                                                 "mnuSValidSample", chosen),
                  1);
        return t.frame().FormCount() == before ? std::string() : test::TextOf(t);
    }
    bool IsValid() {
        t.window().tbsXML.Select(QStringLiteral("textview"));
        t.prompts.Answer(Answer::Ok);
        t.ChooseMenu(QStringLiteral("mnuXMLValidate"));
        return t.prompts.boxes.back().text == QStringLiteral("It is valid XML!");
    }
    int number = 0;
};

TEST_F(ValidSample, EveryKindOfValueIsOneThatTheCheckTakes) {
    for (const Act& act : {kMinimal, kTypical, kAll}) {
        const std::string made = Make(AllSimpleTypes(), act);
        ASSERT_FALSE(made.empty());
        EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();
    }
}

TEST_F(ValidSample, EveryKindOfContentIsOneThatTheCheckTakes) {
    for (const QByteArray& content : kContents) {
        for (const Act& act : {kMinimal, kTypical, kAll}) {
            const QByteArray xml = content.contains("xml:lang")
                                       ? "<xs:import namespace='http://www.w3.org/XML/1998/namespace'/>"
                                       : "";
            const std::string made = Make(Schema(xml + content), act);
            ASSERT_FALSE(made.empty()) << content.toStdString();
            EXPECT_TRUE(IsValid()) << made << t.prompts.boxes.back().text.toStdString();
        }
    }
}

TEST_F(ValidSample, WhatCantBeHadIsToldAndNoDocumentComes) {
    struct Case {
        const char* content;
        const char* told;
    };
    const Case cases[] = {
        {"<xs:element name='r'><xs:complexType><xs:sequence><xs:element "
         "ref='r'/></xs:sequence></xs:complexType>"
         "</xs:element>",
         "no finite instance"},
        {"<xs:element name='r'><xs:simpleType><xs:restriction base='xs:int'><xs:pattern value='[a-z]+'/>"
         "</xs:restriction></xs:simpleType></xs:element>",
         "No value was found for the type of \"r\""},
        {"<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' minOccurs='100000000' "
         "maxOccurs='unbounded'/></xs:sequence></xs:complexType></xs:element>",
         "too large"},
        {"<xs:complexType name='t'/>", "no element that a document could begin with"},
    };
    for (const Case& one : cases) {
        t.prompts.Answer(Answer::Ok);
        EXPECT_EQ(Make(Schema(one.content), kTypical), "");
        EXPECT_TRUE(t.prompts.boxes.back().text.contains(QLatin1String(one.told)))
            << t.prompts.boxes.back().text.toStdString();
    }
    t.prompts.Answer({Answer::Ok, Answer::Ok}); // the schema's own fault is told when it is opened
    EXPECT_EQ(Make(Schema("<xs:element name='r' type='nowhere'/>"), kTypical), "");
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("faults")));
}

TEST_F(ValidSample, TheDialogOffersTheLikelyRootFirstAndTheSeedMakesOthers) {
    const QByteArray text =
        Schema("<xs:element name='part' type='xs:int'/><xs:element name='no' abstract='true'/>"
               "<xs:element name='whole'><xs:complexType><xs:choice maxOccurs='unbounded'>"
               "<xs:element ref='part'/><xs:element ref='part2'/></xs:choice></xs:complexType>"
               "</xs:element><xs:element name='part2' type='xs:date'/>",
               false);
    DocumentWindow& schema = t.OpenText(QStringLiteral("s.xsd"), text);
    QStringList offered;
    const auto make = [&](const char* seed) {
        t.frame().ActivateForm(&schema);
        return MakeFromFront([&](frmValidSample& form) {
            offered = form.cmbRoot.Items();
            form.cmbRoot.UserChose(static_cast<int>(offered.indexOf(QStringLiteral("whole"))));
            form.txtSeed.SetText(QLatin1String(seed));
        });
    };
    const std::string first = make("1");
    EXPECT_EQ(offered.join(u' '), QStringLiteral("whole part part2")) << "what is abstract isn't offered";
    EXPECT_NE(first.find("<whole"), std::string::npos) << first;
    EXPECT_EQ(make("1"), first);
    EXPECT_TRUE(make("2") != first || make("3") != first || make("4") != first);
}

// Schemas that packages have brought: not all machines have them.
TEST_F(ValidSample, SchemasOfTheMachineHaveSamples) {
    QDirIterator files(QStringLiteral("/usr/share/xml"), {QStringLiteral("*.xsd")}, QDir::Files,
                       QDirIterator::Subdirectories);
    int tried = 0, made = 0;
    while (files.hasNext() && tried < 40) {
        const QString path = files.next();
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = text::Decode(file.readAll()).text.toString();
        services::SampleWish wish;
        const QRegularExpression space(QStringLiteral("targetNamespace=[\"']([^\"']*)"));
        wish.targetNamespace = space.match(text).captured(1);
        wish.encoding = QStringLiteral("UTF-8");
        const services::SampleAnswer answer =
            t.app().services.schemas->MakeSample({text::LongText(text), path, true, {}}, wish, {});
        const QString why = answer.remarks.join(u' ');
        if (why.contains(QStringLiteral("faults")) || why.contains(QStringLiteral("no element that")))
            continue; // what it refers to isn't there, or it has types alone
        ++tried;
        made += answer.text.isEmpty() ? 0 : 1;
    }
    EXPECT_GE(made * 100, tried * 95) << made << " of " << tried;
}

} // namespace
