// SPDX-License-Identifier: GPL-3.0-or-later
// The check of schemas, of documents against them, and what the user is told and shown of it.
#include "schema/SchemaState.h"
#include "schema/SchemaTree.h"
#include "tests/schema/CheckDesk.h"
#include "tests/support/LoopbackServer.h"
#include <QDirIterator>
#include <QXmlStreamReader>
#include <sys/stat.h>

namespace {

using services::Answer;
using Check = test::CheckDesk;

constexpr char kGood[] = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                         "<xs:element name='a'><xs:complexType><xs:sequence>"
                         "<xs:element name='b' type='xs:int' maxOccurs='2'/></xs:sequence>"
                         "<xs:attribute name='n' type='xs:int' use='required'/></xs:complexType></xs:element>"
                         "</xs:schema>";

TEST_F(Check, AFaultOfASchemaIsToldAndItsNodeAndTextComeUp) {
    t.prompts.Answer(Answer::Ok);
    Show(QStringLiteral("a.xsd"), Inside("<xs:element name='a'/><xs:element name='b' type='xs:nothing'/>"));
    EXPECT_EQ(LastBox(), "Schema error!");
    EXPECT_EQ(t.prompts.boxes.back().icon, services::Icon::Critical);
    const QStringList told = LastText().split(u'\n');
    EXPECT_EQ(told[0], w->Caption + QStringLiteral("#/schema[1]/element[2]"));
    EXPECT_TRUE(told[1].contains(QStringLiteral("XMLSchema:nothing"))) << told[1].toStdString();
    EXPECT_EQ(w->txtXPath.Text(), QStringLiteral("/xs:schema[1]/xs:element[2]"));
    EXPECT_EQ(w->tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_EQ(w->rtxtXML.Long().mid(w->rtxtXML.SelStart(), 21), QStringLiteral("<xs:element name='b' "));
    EXPECT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 3), "/xs:schema[1]/xs:element[2]");

    // One that is saved is told of in the list alone: the user goes on typing.
    const qsizetype at = w->rtxtXML.Text().indexOf(QStringLiteral("nothing"));
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(at, 7);
    w->rtxtXML.Type(QStringLiteral("never"));
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    t.FinishChecks();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_NE(Fault(1, 2).find("never"), std::string::npos);
    EXPECT_EQ(w->rtxtXML.Text().mid(w->rtxtXML.SelStart() - 5, 5), QStringLiteral("never"));
    t.prompts.Answer(Answer::Ok);
    w->rtxtXML.LostFocus();
    t.FinishChecks();
    EXPECT_TRUE(LastText().contains(QStringLiteral("never"))) << "it is told when the text is left";
    w->rtxtXML.LostFocus();
    t.FinishChecks();
    EXPECT_EQ(t.prompts.boxes.size(), 2U) << "once";

    t.EditText(QString::fromUtf8(kGood));
    EXPECT_EQ(Faults().Count(), 0) << "it is checked again when the text is left";
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));
}

TEST_F(Check, WhatIsNoSchemaOrABadOneIsTold) {
    const QByteArray cases[] = {
        "<a/>",
        "<schema/>",
        "<xs:schema xmlns:xs='urn:x'/>",
        Inside("<xs:schema/>"),
        Inside("<xs:simpleType name='t'><xs:restriction base='t'/></xs:simpleType>"),
        Inside("<xs:simpleType name='t'><xs:restriction base='xs:int'><xs:minInclusive value='2'/>"
               "<xs:maxInclusive value='1'/></xs:restriction></xs:simpleType>"),
        Inside("<xs:complexType name='t'><xs:sequence><xs:element name='a' minOccurs='0'/>"
               "<xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType>"),
    };
    int number = 0;
    for (const QByteArray& text : cases) {
        SCOPED_TRACE(text.toStdString());
        t.prompts.Answer(Answer::Ok);
        Show(QStringLiteral("s%1.xsd").arg(++number), text);
        EXPECT_EQ(LastBox(), "Schema error!");
        EXPECT_GT(Faults().Count(), 0);
    }
    Show(QStringLiteral(
             "reused.xsd"), // a prefix bound anew inside, a namesake of another namespace, long words
         Inside("<xs:annotation><xs:documentation>" + QByteArray(2'000'000, 'w') +
                "<xs:element xmlns:xs='urn:o' name='x'/></xs:documentation></xs:annotation>"
                "<xs:element name='a'/>"));
    EXPECT_EQ(Faults().Count(), 0);
}

TEST_F(Check, OtherDocumentsAreLookedForBesideTheFile) {
    t.folder.Write(QStringLiteral("part.xsd"), Inside("<xs:element name='p' type='xs:int'/>"));
    t.folder.Write(QStringLiteral("round.xsd"), Inside("<xs:include schemaLocation='round.xsd'/>"));
    Show(QStringLiteral("whole.xsd"),
         Inside("<xs:include schemaLocation='part.xsd'/>"
                "<xs:include schemaLocation='./round.xsd'/>"
                "<xs:import namespace='http://www.w3.org/XML/1998/namespace' "
                "schemaLocation='http://www.w3.org/2001/xml.xsd'/>"
                "<xs:group name='g'><xs:sequence><xs:element ref='p'/></xs:sequence>"
                "</xs:group><xs:attributeGroup name='h'><xs:attribute ref='xml:lang'/>"
                "</xs:attributeGroup>"));
    EXPECT_EQ(Faults().Count(), 0);

    // What a part has wrong leads into its own window.
    t.folder.Write(QStringLiteral("part.xsd"), Inside("\n<xs:element name='p' type='xs:nothing'/>"));
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_EQ(LastBox(), "Schema error!");
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 1).substr(0, 10), "part.xsd 2");
    DocumentWindow* whole = w;
    Faults().ItemClick(1);
    t.FinishChecks();
    EXPECT_NE(&t.window(), whole);
    EXPECT_EQ(t.window().txtXPath.Text(), QStringLiteral("/xs:schema[1]/xs:element[1]"));
}

// Nothing hangs, and what can't be had is told without a box at opening.
TEST_F(Check, WhatCantBeHadIsInTheList) {
    mkfifo((t.folder.Path(QStringLiteral("pipe.xsd"))).toUtf8().constData(), 0600);
    for (const char* location : {"missing.xsd", ".", "pipe.xsd", "/dev/zero", "http://127.0.0.1:9/x.xsd"}) {
        SCOPED_TRACE(location);
        Show(QStringLiteral("s%1.xsd").arg(qHash(QByteArray(location))),
             Inside(QByteArray("<xs:include schemaLocation='") + location + "'/>"));
        ASSERT_EQ(Faults().Count(), 1);
        EXPECT_NE(Fault(1, 2).find("can't be read"), std::string::npos) << Fault(1, 2);
    }
    t.ChooseMenu(QStringLiteral("mnuNewschema"));
    w = &t.window();
    t.EditText(QString::fromUtf8(Inside("<xs:include schemaLocation='part.xsd'/>")));
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_NE(Fault(1, 2).find("no place yet"), std::string::npos) << Fault(1, 2);
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(Check, AnAddressIsFetchedOnlyWhereTheUserAllowsIt) {
    const test::LoopbackServer server([this](const QByteArray&) {
        return "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" + Inside("<xs:element name='p'/>");
    });
    const QString address = server.Url(QStringLiteral("/part.xsd"));
    Show(QStringLiteral("a.xsd"),
         Inside("<xs:include schemaLocation='" + address.toUtf8() +
                "'/><xs:group name='g'><xs:sequence><xs:element ref='p'/></xs:sequence></xs:group>"));
    EXPECT_EQ(Faults().Count(), 3) << "what is missing, and what follows from that";
    t.prompts.Answer({Answer::No, Answer::Ok});
    Validate();
    EXPECT_TRUE(t.prompts.boxes[0].text.contains(address));
    EXPECT_EQ(t.prompts.boxes[1].title, QStringLiteral("Schema error!"));
    t.prompts.Answer({Answer::Yes, Answer::Ok});
    Validate();
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));
    EXPECT_EQ(Faults().Count(), 0);
}

// Another host learns that the document is read only where the user agrees, and what the schema refers to is
// looked for where it was found in the end. Each address is asked about once.
TEST_F(Check, ASchemaThatHasMovedToAnotherHostIsAskedAboutAgain) {
    const test::LoopbackServer second([this](const QByteArray& request) {
        const bool part = request.startsWith("GET /deep/part.xsd");
        return "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" +
               (part ? Inside("<xs:include schemaLocation='more.xsd'/><xs:element name='p' type='t'/>")
                     : Inside("<xs:simpleType name='t'><xs:restriction base='xs:int'/></xs:simpleType>"));
    });
    const test::LoopbackServer first([&second](const QByteArray&) {
        return QByteArray("HTTP/1.0 302 Found\r\nLocation: " +
                          second.Url(QStringLiteral("/deep/part.xsd")).toUtf8() + "\r\n\r\n");
    });
    const QString address = first.Url(QStringLiteral("/part.xsd"));
    t.folder.Write(QStringLiteral("b.xsd"),
                   Inside("<xs:include schemaLocation='" + address.toUtf8() + "'/>"));
    Show(QStringLiteral("a.xsd"), Inside("<xs:include schemaLocation='" + address.toUtf8() +
                                         "'/><xs:include schemaLocation='b.xsd'/>"));
    t.prompts.Answer({Answer::Yes, Answer::No, Answer::Ok});
    Validate();
    EXPECT_TRUE(t.prompts.boxes[1].text.contains(second.Url(QStringLiteral("/deep/part.xsd"))));
    EXPECT_EQ(t.prompts.boxes[2].title, QStringLiteral("Schema error!"));
    EXPECT_EQ(second.Requests(), 0);
    t.prompts.boxes.clear();
    t.prompts.Answer({Answer::Yes, Answer::Yes, Answer::Yes, Answer::Ok});
    Validate();
    EXPECT_TRUE(t.prompts.boxes[2].text.contains(second.Url(QStringLiteral("/deep/more.xsd"))));
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));
}

// What isn't read can make anything wrong, and anything right.
TEST_F(Check, AnExternalEntityLeavesTheVerdictOpen) {
    t.folder.Write(QStringLiteral("e.txt"),
                   "<xs:element xmlns:xs='http://www.w3.org/2001/XMLSchema' name='p'/>");
    t.folder.Write(QStringLiteral("part.xsd"),
                   "<!DOCTYPE xs:schema [<!ENTITY e SYSTEM 'e.txt'>]>" + Inside("&e;"));
    Show(QStringLiteral("a.xsd"), Inside("<xs:include schemaLocation='part.xsd'/>"));
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_NE(Fault(1, 2).find("can't be told whether the document is valid"), std::string::npos);
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_TRUE(LastText().contains(QStringLiteral("e.txt"))) << LastText().toStdString();
}

TEST_F(Check, SchemasThatInnerElementsNameCountAsWell) {
    t.folder.Write(QStringLiteral("b.xsd"), Inside("<xs:element name='b' type='xs:int'/>"));
    const auto validate = [this](const QByteArray& instance, const QByteArray& value) {
        Show(QStringLiteral("d%1.xml").arg(qHash(instance + value)),
             "<!DOCTYPE a [<!ENTITY e ']>'><!ELEMENT a ANY>]><a><o t='&e;'><b xmlns:i='" + instance +
                 "' i:noNamespaceSchemaLocation='b.xsd'>" + value + "</b></o><c/></a>");
        t.prompts.Answer(Answer::Ok);
        Validate();
        return LastText();
    };
    constexpr char kInstance[] = "http://www.w3.org/2001/XMLSchema-instance";
    EXPECT_EQ(validate(kInstance, "1"), QStringLiteral("It is valid XML!"));
    validate(kInstance, "x");
    EXPECT_EQ(LastBox(), "Schema error!");
    ASSERT_GE(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 3), "/a[1]/o[1]/b[1]");
    EXPECT_EQ(validate("urn:another", "x"), QStringLiteral("It is valid XML!")) << "names no schema";
}

// Places follow the text: the row goes to the node that the fault is about, wherever it stands by now.
TEST_F(Check, AfterAnEditADiagnosticStillLeadsToItsNode) {
    t.prompts.Answer(Answer::Ok);
    Show(QStringLiteral("a.xsd"),
         Inside("<xs:element name='first'/><xs:group name='g'><xs:sequence>"
                "<xs:element name='b' type='xs:nothing'/></xs:sequence></xs:group>"));
    ASSERT_EQ(Fault(1, 3), "/xs:schema[1]/xs:group[1]/xs:sequence[1]/xs:element[1]");
    const std::string place = Fault(1, 1);
    w->tbsXML.Select(QStringLiteral("listview"));
    Select(Element().Child()); // the tree: the text is written anew, on many lines, without this element
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Fault(1, 1), "was " + place);
    Select(Element());
    Faults().ItemClick(1);
    EXPECT_EQ(w->tvXML.SelectedItem().Tag(), QStringLiteral("name=\"b\" type=\"xs:nothing\""));
    const auto tag = [this] { return w->rtxtXML.Text().indexOf(QStringLiteral("<xs:element name=\"b\"")); };
    EXPECT_EQ(w->rtxtXML.SelStart(), tag());

    w->tbsXML.Select(QStringLiteral("textview")); // typed, and not in the tree yet
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(0, 0);
    w->rtxtXML.Type(QStringLiteral("<!--x-->\r\n"));
    t.ChooseMenu(QStringLiteral("mnuNextDiagnostic"));
    EXPECT_EQ(w->rtxtXML.SelStart(), tag());
    w->rtxtXML.LostFocus();
    t.prompts.Answer(Answer::Ok);
    t.FinishChecks();
    EXPECT_EQ(Fault(1, 1).find("was"), std::string::npos) << "the next check has its own places";
}

TEST_F(Check, ABoundDocumentIsCheckedAgainstItsSchema) {
    t.folder.Write(QStringLiteral("a.xsd"), kGood);
    constexpr char kBound[] = "<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                              "xsi:noNamespaceSchemaLocation='a.xsd' ";
    Show(QStringLiteral("good.xml"), QByteArray(kBound) + "n='1'><b>1</b></a>");
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));

    Show(QStringLiteral("bad.xml"), QByteArray(kBound) + "><b>x</b><b>1</b><b>2</b></a>");
    EXPECT_EQ(Faults().Count(), 0) << "opening it checks nothing";
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_EQ(LastBox(), "Schema error!");
    ASSERT_EQ(Faults().Count(), 3);
    EXPECT_EQ(Fault(1, 3), "/a[1]");
    EXPECT_EQ(Fault(2, 3), "/a[1]/b[1]");
    EXPECT_EQ(Fault(3, 3), "/a[1]") << "told at its end tag";

    // F8 walks through them, in any view, and begins anew behind the last.
    w->tbsXML.Select(QStringLiteral("listview"));
    std::string walked;
    for (const char* entry : {"mnuNextDiagnostic", "mnuNextDiagnostic", "mnuNextDiagnostic",
                              "mnuNextDiagnostic", "mnuPreviousDiagnostic", "mnuPreviousDiagnostic"}) {
        t.ChooseMenu(QLatin1String(entry));
        walked += std::to_string(Faults().SelectedItem()) + w->txtXPath.Text().toStdString() + ' ';
    }
    EXPECT_EQ(walked, "1/a[1] 2/a[1]/b[1] 3/a[1] 1/a[1] 3/a[1] 2/a[1]/b[1] ");
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());

    t.prompts.Answer(Answer::Ok); // a text that isn't well-formed has its fault in the list
    w->tbsXML.Select(QStringLiteral("textview"));
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(0, w->rtxtXML.Text().size());
    w->rtxtXML.Type(QStringLiteral("<a>\r\n<b></a>"));
    t.ChooseMenu(QStringLiteral("mnuXMLValidate"));
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 1).substr(0, 1), "2");
    t.prompts.AllowAnyBox();
}

// What a document type says of entities counts. What it would put in is left open, and never told as a fault.
TEST_F(Check, ADocumentTypeMakesNoFaults) {
    t.folder.Write(QStringLiteral("a.xsd"), kGood);
    const auto validate = [this](const QByteArray& type, const QByteArray& value) {
        Show(QStringLiteral("d%1.xml").arg(qHash(type + value)),
             "<!DOCTYPE a " + type +
                 "><a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                 "xsi:noNamespaceSchemaLocation='a.xsd'" +
                 value + "</a>");
        t.prompts.Answer(Answer::Ok);
        Validate();
        return LastText();
    };
    EXPECT_EQ(validate("[<!-- ] --><!ENTITY e '1'><!ELEMENT a EMPTY>]", " n='1'><b>&e;</b>"),
              QStringLiteral("It is valid XML!"));
    const QString left = validate("[<!ATTLIST a n CDATA '1'>]", "><b>1</b>");
    EXPECT_TRUE(left.contains(QStringLiteral("can't be told"))) << left.toStdString();
    EXPECT_EQ(Faults().Count(), 1);
    validate("[<!ATTLIST a n CDATA '1'>]", "><b>x</b>");
    EXPECT_EQ(Faults().Count(), 2) << "what is wrong all the same";
    EXPECT_TRUE(validate("SYSTEM 'a.dtd'", " n='1'><b>1</b>").contains(QStringLiteral("\"a.dtd\"")));
    validate("[<!ENTITY e 'x'>]", " n='1'><b>&e;</b>");
    EXPECT_EQ(Fault(1, 3), "/a[1]/b[1]");
}

// What the document has to say stands at its element; what is open elsewhere isn't what was judged.
TEST_F(Check, WhatADocumentRefersToIsToldWithIt) {
    Show(QStringLiteral("a.xsd"), Inside("<xs:annotation/>\r\n<xs:include schemaLocation='missing.xsd'/>"));
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 1).substr(0, 1), "2");
    EXPECT_EQ(Fault(1, 3), "/xs:schema[1]/xs:include[1]");
    Show(QStringLiteral("b.xsd"), Inside("<xs:include schemaLocation='ftp://127.0.0.1:9/x.xsd'/>"));
    t.prompts.Answer(Answer::Ok);
    Validate(); // without a question that would lead nowhere
    EXPECT_NE(LastText().indexOf(QStringLiteral("Only addresses of the web")), -1);

    Show(QStringLiteral("c.xsd"), Inside("<xs:include schemaLocation='http://127.0.0.1:9/x.xsd'/>"));
    t.prompts.Answer({Answer::Yes, Answer::Ok});
    Validate(); // allowed, and not to be had: the true reason
    EXPECT_EQ(LastText().indexOf(QStringLiteral("allowed")), -1) << LastText().toStdString();
    EXPECT_EQ(Fault(1, 3), "/xs:schema[1]/xs:include[1]");
    t.prompts.Answer(Answer::Ok);
    Show(QStringLiteral("d.xsd"), Inside("<xs:element name='a' type='T'/>"));
    EXPECT_NE(Fault(1, 2).find("'T' not found"), std::string::npos) << Fault(1, 2);

    Show(QStringLiteral("part.xsd"), Inside("<xs:element name='p' type='xs:int'/>"));
    Select(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    Show(QStringLiteral("whole.xsd"), Inside("<xs:include schemaLocation='part.xsd'/>"));
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 2), "part.xsd has changes that aren't saved. Its file was checked.");
    t.prompts.Answer(Answer::Ok);
    Validate();
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));
}

// Each address is named before it is asked for, and one No is enough.
TEST_F(Check, ManyAddressesAreAskedAboutTogether) {
    const test::LoopbackServer server([this](const QByteArray&) {
        return "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" + Inside("<xs:annotation/>");
    });
    QByteArray includes;
    for (int i = 0; i < 45; ++i)
        includes += "<xs:include schemaLocation='" +
                    server.Url(QStringLiteral("/%1.xsd").arg(i, 2, 10, QLatin1Char('0'))).toUtf8() + "'/>";
    Show(QStringLiteral("a.xsd"), Inside(includes + "<xs:element name='a'/>"));
    t.prompts.Answer({Answer::Yes, Answer::No, Answer::Ok});
    Validate();
    EXPECT_TRUE(t.prompts.boxes[0].text.contains(QStringLiteral("/19.xsd")));
    EXPECT_FALSE(t.prompts.boxes[0].text.contains(QStringLiteral("/20.xsd")));
    t.prompts.Answer({Answer::Yes, Answer::Yes, Answer::Yes, Answer::Ok});
    Validate();
    EXPECT_EQ(LastText(), QStringLiteral("It is valid XML!"));
    // An edit doesn't forget what came; nothing is asked for again.
    t.EditText(QString::fromUtf8(Inside(includes + "<xs:element name='b'/>")));
    EXPECT_EQ(Faults().Count(), 0);
    EXPECT_EQ(t.prompts.boxes.size(), 7U);
}

// A check that needs too much is given up, and the program goes on.
TEST_F(Check, AGreedySchemaIsGivenUp) {
    const auto bounded = services::MakeSchemas({}, {.seconds = 1, .bytes = qint64(3) << 30});
    const auto narrow = services::MakeSchemas({}, {.seconds = 30, .bytes = qint64(64) << 20});
    const auto none = services::MakeSchemas(QStringLiteral("/nowhere/at/all"));
    QByteArray lengthy; // the time grows with the square of the declarations
    for (int i = 0; i < 40'000; ++i)
        lengthy += "<xs:element name='e" + QByteArray::number(i) + "' type='xs:string'/>";
    QByteArray large = "<xs:element name='e' maxOccurs='3000'/>";
    for (int i = 0; i < 12; ++i)
        large = "<xs:sequence minOccurs='0' maxOccurs='900'>" + large + "</xs:sequence>";
    large = "<xs:complexType name='t'>" + large + "</xs:complexType>";
    const auto outcome = [&](services::Schemas& checker, const QByteArray& inside,
                             const std::function<bool()>& step = {}) {
        services::SchemaRequest request;
        request.schema = true;
        request.text = text::LongText(QString::fromUtf8(Inside(inside)));
        return checker.Check(request, step).outcome;
    };
    EXPECT_EQ(outcome(*bounded, lengthy), services::SchemaOutcome::TooLong);
    EXPECT_NE(outcome(*bounded, large), services::SchemaOutcome::Checked);
    EXPECT_EQ(outcome(*bounded, lengthy, [] { return false; }), services::SchemaOutcome::Cancelled);
    EXPECT_EQ(outcome(*bounded, {}), services::SchemaOutcome::Checked);
#ifndef __SANITIZE_ADDRESS__ // that needs address space without end
    EXPECT_EQ(outcome(*narrow, "<xs:annotation><xs:documentation>" + QByteArray(60'000'000, 'w') +
                                   "</xs:documentation></xs:annotation>"),
              services::SchemaOutcome::TooLarge);
#endif
    EXPECT_EQ(outcome(*none, {}), services::SchemaOutcome::Failed);
}

// Those that the packages of the machine have brought, with what stands beside them.
TEST_F(Check, EachSchemaOfTheMachineOpensIsCheckedAndSavesUnchanged) {
    QStringList names;
    for (const char* root : {"/usr/share", "/usr/lib"}) {
        QDirIterator files(QLatin1String(root), {QStringLiteral("*.xsd")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext() && names.size() < 100) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            names << file.fileName().mid(1);
            t.folder.Write(names.back(), file.readAll());
        }
    }
    if (names.isEmpty())
        GTEST_SKIP() << "no package of this machine has brought a schema";
    t.prompts.AllowAnyBox();
    int copies = 0, marked = 0;
    const auto hasMark = [this] {
        const controls::TreeNode schema = schema::GetSchemaNode(w->tvXML);
        for (controls::TreeNode node = schema ? schema.Child() : schema; node; node = node.Next()) {
            if (schema::IsMarkedAsRoot(node))
                return true;
        }
        return false;
    };
    for (const QString& name : std::as_const(names)) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray bytes = t.folder.Read(name);
        Show(name, bytes);
        QXmlStreamReader reader(bytes);
        reader.readNextStartElement(); // one that is kept in another document is told to be none
        EXPECT_EQ(bool(schema::GetSchemaNode(w->tvXML)), reader.name() == QStringLiteral("schema"));
        EXPECT_TRUE(reader.name() == QStringLiteral("schema") || Faults().Count() > 0);
        marked += w->tvXML.Nodes.Count() > 0 && hasMark() ? 1 : 0;
        for (int row = 1; row <= Faults().Count(); ++row)
            EXPECT_EQ(Fault(row, 2).find("The check"), std::string::npos) << Fault(row, 2);
        t.prompts.Choose(t.folder.Path(QStringLiteral("%1.copy.xsd").arg(++copies)));
        t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
        EXPECT_EQ(t.folder.Read(QStringLiteral("%1.copy.xsd").arg(copies)), bytes);
        t.ChooseMenu(QStringLiteral("mnuFileClose"));
    }
    EXPECT_GT(marked, copies / 4) << "they show their roots";
}

} // namespace
