// SPDX-License-Identifier: GPL-3.0-or-later
// The list of diagnostics: what stands in it while the document is worked on, and where its rows lead.
#include "core/edit/FileOnDisk.h"
#include "schema/CheckBeside.h"
#include "tests/schema/CheckDesk.h"
#include "tests/support/LoopbackServer.h"

namespace {

using services::Answer;

struct Diagnostics : test::CheckDesk {
    /// Goes into the text and types over a stretch of it.
    void TypeOver(const char* from, const char* to) {
        w->tbsXML.Select(QStringLiteral("textview"));
        w->rtxtXML.GotFocus();
        const qsizetype at = w->rtxtXML.Text().indexOf(QLatin1String(from));
        ASSERT_GE(at, 0) << from;
        w->rtxtXML.UserSelected(at, static_cast<qsizetype>(qstrlen(from)));
        w->rtxtXML.Type(QLatin1String(to));
    }
    void Leave() {
        w->rtxtXML.LostFocus();
        test::TestApp::FinishChecks(*w);
    }
    /// The attributes of the node that a row leads to.
    std::string NodeOfRow(int row) {
        Select(Root());
        Faults().ItemClick(row);
        return w->tvXML.SelectedItem().Tag().toStdString();
    }
    QString AtCaret(DocumentWindow& window, int length) {
        return window.rtxtXML.Long().mid(window.rtxtXML.SelStart(), length);
    }
    void WritePart() {
        t.folder.Write(QStringLiteral("part.xsd"), Inside("\r\n<xs:element name='p' type='xs:no1'/>\r\n"
                                                          "<xs:element name='q' type='xs:no2'/>\r\n"));
    }
};

// A step of the history isn't checked; the text that it leads to is, once it has been left.
TEST_F(Diagnostics, AFaultThatUndoHasTakenAwayIsntTold) {
    Show(QStringLiteral("a.xsd"), Inside("<xs:element name='a' type='xs:int'/>"));
    TypeOver("int", "nothing");
    t.ChooseMenu(QStringLiteral("mnuFileSave")); // finds it, and lets the user type
    t.FinishChecks();
    ASSERT_EQ(Faults().Count(), 1);
    while (w->rtxtXML.Text().contains(QStringLiteral("nothing")))
        t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    Leave();
    EXPECT_TRUE(t.prompts.boxes.empty());
    EXPECT_EQ(Faults().Count(), 0);
    w->rtxtXML.GotFocus();
    t.ChooseMenu(QStringLiteral("mnuRedo"));
    while (!w->rtxtXML.Text().contains(QStringLiteral("nothing")))
        t.ChooseMenu(QStringLiteral("mnuRedo"));
    Leave();
    EXPECT_EQ(Faults().Count(), 1) << "and what redo has brought back stands there again";
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(Diagnostics, ACheckThatEndsWhileTheUserTypesIsMadeUpFor) {
    const QByteArray bad = Inside("<xs:element name='a' type='xs:nothing'/>");
    const auto open = [&](const QString& name) {
        t.frame().OpenNamed(t.folder.Write(name, bad));
        w = &t.window();
        schema::CheckBesideOf(*w).tmCheck.Tick(); // it is under way
    };
    open(QStringLiteral("a.xsd"));
    TypeOver("'a'", "'ax'");
    t.FinishChecks();
    EXPECT_EQ(Faults().Count(), 0);
    TypeOver("'ax'", "'a'");
    Leave();
    EXPECT_EQ(Faults().Count(), 1);

    open(QStringLiteral("b.xsd")); // the same text again by the time the check ends, and not left yet
    TypeOver("'a'", "'ax'");
    TypeOver("'ax'", "'a'");
    t.FinishChecks();
    ASSERT_EQ(Faults().Count(), 1);
    EXPECT_EQ(Fault(1, 3), "/xs:schema[1]/xs:element[1]");
    EXPECT_TRUE(t.prompts.boxes.empty());
}

// The user is where a row has led them: no box takes them to another fault.
TEST_F(Diagnostics, WhoGoesToADiagnosticStaysThere) {
    WritePart();
    t.prompts.Answer(Answer::Ok);
    Show(QStringLiteral("whole.xsd"), Inside("<xs:include schemaLocation='part.xsd'/>"));
    ASSERT_EQ(Faults().Count(), 2);
    Faults().ItemClick(2);
    DocumentWindow& part = t.window();
    ASSERT_NE(&part, w);
    test::TestApp::FinishChecks(part);
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(part.txtXPath.Text(), QStringLiteral("/xs:schema[1]/xs:element[2]"));
    EXPECT_TRUE(t.frame().StatusBar1().Panel(1).contains(QStringLiteral("no2")));

    w = &part; // the click that leaves an edited text for a row
    TypeOver("'p'", "'pp'");
    w->rtxtXML.LostFocus();
    Faults().ItemClick(2);
    t.FinishChecks();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(w->txtXPath.Text(), QStringLiteral("/xs:schema[1]/xs:element[2]"));
    Leave();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
}

TEST_F(Diagnostics, RowsLeadToTheirElementsWhateverIsEdited) {
    t.prompts.Answer(Answer::Ok);
    const QByteArray text = Inside("<xs:element name='a'/><xs:element name='b' type='xs:no1'/>"
                                   "<xs:element name='c' type='xs:no2'/>");
    Show(QStringLiteral("a.xsd"), text);
    ASSERT_EQ(Faults().Count(), 2);
    t.prompts.Answer(Answer::Ok);
    TypeOver("<xs:element name='a'", "<xs:element name='z'/><xs:element name='a'"); // in front of both
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    t.FinishChecks();
    Leave();
    w->tbsXML.Select(QStringLiteral("listview"));
    Select(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Fault(2, 3), "/xs:schema[1]/xs:element[3]") << "the path follows the tree";
    t.ChooseMenu(QStringLiteral("mnuEditUndo")); // the tree is built anew, with other keys
    EXPECT_EQ(Fault(2, 3), "/xs:schema[1]/xs:element[4]");
    EXPECT_EQ(NodeOfRow(1), "name=\"b\" type=\"xs:no1\"");
    EXPECT_EQ(NodeOfRow(2), "name=\"c\" type=\"xs:no2\"");
    t.ChooseMenu(QStringLiteral("mnuRedo"));
    EXPECT_EQ(NodeOfRow(2), "name=\"c\" type=\"xs:no2\"");

    // A plain document isn't checked by itself: its rows outlast many readings.
    t.folder.Write(QStringLiteral("d.xsd"), Inside("<xs:element name='d'><xs:complexType><xs:sequence>"
                                                   "<xs:element name='n' type='xs:int' maxOccurs='9'/>"
                                                   "</xs:sequence></xs:complexType></xs:element>"));
    Show(QStringLiteral("d.xml"), "<d xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                                  "xsi:noNamespaceSchemaLocation='d.xsd'>\r\n<n id='1'>1</n>\r\n"
                                  "<n id='2'>2</n>\r\n<n id='3'>3</n>\r\n</d>");
    t.prompts.Answer(Answer::Ok);
    Validate();
    ASSERT_EQ(Faults().Count(), 3);
    TypeOver("<n id='1'>1", "<n>1"); // mends the first
    Leave();
    w->tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(NodeOfRow(2), "id=\"2\"");
    TypeOver("<n id=\"2\">2</n>", ""); // takes the second away
    Leave();
    EXPECT_EQ(NodeOfRow(3), "id=\"3\"");
    EXPECT_EQ(Fault(2, 3), "") << "its element is gone";
    const std::string row = std::to_string(Faults().SelectedItem());
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(std::to_string(Faults().SelectedItem()), row) << "the current row stays so";

    TypeOver(w->rtxtXML.Text().toUtf8().constData(), " "); // emptied
    Leave();
    EXPECT_EQ(Faults().Count(), 0);
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNextDiagnostic")).Usable());
}

// F8 walks one list through all the windows that it leads to.
TEST_F(Diagnostics, AListIsWalkedThroughOtherDocuments) {
    WritePart();
    const test::LoopbackServer server([this](const QByteArray&) {
        return "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" +
               Inside("\r\n<xs:element name='w' type='xs:no3'/>");
    });
    const QString address = server.Url(QStringLiteral("/net.xsd"));
    Show(QStringLiteral("whole.xsd"),
         Inside("<xs:include schemaLocation='part.xsd'/><xs:include schemaLocation='" + address.toUtf8() +
                "'/><xs:element name='own' type='xs:no0'/>"));
    DocumentWindow& whole = *w;
    t.prompts.Answer({Answer::Yes, Answer::Ok});
    Validate();
    ASSERT_EQ(Faults().Count(), 4);
    std::string walked;
    for (int step = 0; step < 5; ++step) {
        t.ChooseMenu(QStringLiteral("mnuNextDiagnostic"));
        t.FinishChecks();
        walked += t.window().tvXML.SelectedItem().Tag().section(u'"', 1, 1).toStdString() + ' ';
    }
    EXPECT_EQ(walked, "own p q w own ");
    EXPECT_EQ(&t.window(), &whole);

    // The other document has been edited since, and not saved: the row leads to its place all the same.
    t.frame().OpenNamed(t.folder.Path(QStringLiteral("part.xsd")));
    w = &t.window();
    TypeOver("<xs:element name='p'", "<!-- one -->\r\n<!-- two --><xs:element name='p'");
    t.prompts.Answer(Answer::Ok);
    Leave();
    t.frame().ActivateForm(&whole);
    schema::DiagnosticsOf(whole).lvDiagnostics.ItemClick(3);
    EXPECT_EQ(&t.window(), w);
    EXPECT_TRUE(w->tvXML.SelectedItem().Tag().contains(QStringLiteral("no2")));
}

TEST_F(Diagnostics, UnderAnotherNameASchemaIsCheckedAgain) {
    t.folder.Write(QStringLiteral("there/part.xsd"), Inside("<xs:element name='p'/>"));
    Show(QStringLiteral("a.xsd"), Inside("<xs:include schemaLocation='part.xsd'/>"));
    ASSERT_EQ(Faults().Count(), 1);
    t.prompts.Choose(t.folder.Path(QStringLiteral("there/a.xsd")));
    t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    t.FinishChecks();
    EXPECT_EQ(Faults().Count(), 0);
    EXPECT_TRUE(t.prompts.boxes.empty());
    TypeOver(w->rtxtXML.Text().toUtf8().constData(), " ");
    Leave();
    EXPECT_EQ(Faults().Count(), 0) << "an empty text has no faults";
    EXPECT_TRUE(t.prompts.boxes.empty());
}

// Reloaded, a schema is told of as if it had been opened.
TEST_F(Diagnostics, AReloadedSchemaIsToldOf) {
    Show(QStringLiteral("a.xsd"), Inside("<xs:element name='a'/>"));
    t.folder.Write(QStringLiteral("a.xsd"), Inside("<xs:element name='a' type='xs:nothing'/>"));
    t.prompts.AnswerChoice({0});
    t.prompts.Answer(Answer::Ok);
    edit::FilesOf(t.app()).CameToFront(w);
    edit::FilesOf(t.app()).tmLook.Tick();
    t.FinishChecks();
    EXPECT_EQ(LastBox(), "Schema error!");
}

} // namespace
