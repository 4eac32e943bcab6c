// SPDX-License-Identifier: GPL-3.0-or-later
// The check of an opened or edited schema goes on beside the user's work.
#include "schema/CheckBeside.h"
#include "tests/schema/CheckDesk.h"

namespace {

/// A schema whose check takes long: many declarations, and a fault.
struct CheckBeside : test::CheckDesk {
    schema::CheckBeside& State() { return schema::CheckBesideOf(*w); }
    QByteArray Slow() {
        QByteArray inside = "<xs:element name='bad' type='xs:nothing'/>";
        for (int i = 0; i < 6000; ++i)
            inside += "<xs:element name='e" + QByteArray::number(i) + "' type='xs:string'/>";
        return Inside(inside);
    }
    /// Opens it without waiting for its check.
    void OpenOnly(const QString& name, const QByteArray& text) {
        t.frame().OpenNamed(t.folder.Write(name, text));
        w = &t.window();
        EXPECT_TRUE(State().busy());
        State().tmCheck.Tick();
        EXPECT_TRUE(State().running);
    }
    QString Said() { return t.frame().StatusBar1().Panel(1); }
};

TEST_F(CheckBeside, WhatIsDoneMeanwhileStaysAndNoBoxComesOverIt) {
    const QString before = Said();
    OpenOnly(QStringLiteral("a.xsd"), Slow());
    EXPECT_EQ(Faults().Count(), 0) << "the window is there before it is checked";
    State().tmCheck.Tick();
    EXPECT_NE(Said(), before) << "the user can see that it is being checked";
    Select(Element().Child());
    t.FinishChecks();
    EXPECT_TRUE(t.prompts.boxes.empty());
    EXPECT_EQ(Faults().Count(), 1);
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
    EXPECT_NE(Said().indexOf(QStringLiteral("nothing")), -1);

    // Another document in front: its window stays there, and says nothing of this one.
    OpenOnly(QStringLiteral("b.xsd"), Slow());
    DocumentWindow* slow = w;
    DocumentWindow& plain = t.OpenText(QStringLiteral("c.xml"), "<a/>");
    const QString plainSaid = Said();
    test::TestApp::FinishChecks(*w);
    EXPECT_EQ(&t.window(), &plain);
    EXPECT_EQ(Said(), plainSaid);
    EXPECT_EQ(schema::DiagnosticsOf(*slow).lvDiagnostics.Count(), 1);
    EXPECT_TRUE(t.prompts.boxes.empty());
}

TEST_F(CheckBeside, WhatWasFoundInATextThatHasChangedIsntTold) {
    OpenOnly(QStringLiteral("a.xsd"), Slow());
    Select(Element().Child());
    t.ChooseMenu(QStringLiteral("mnuDelete")); // the bad one
    t.FinishChecks();
    EXPECT_EQ(Faults().Count(), 0);
    EXPECT_TRUE(t.prompts.boxes.empty());

    OpenOnly(QStringLiteral("b.xsd"), Slow()); // while a text is being typed nothing is checked
    w->tbsXML.Select(QStringLiteral("textview"));
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(w->rtxtXML.Long().indexOf(u"xs:nothing", 0, Qt::CaseSensitive), 10);
    w->rtxtXML.Type(QStringLiteral("xs:int"));
    t.FinishChecks();
    EXPECT_EQ(Faults().Count(), 0);
    EXPECT_FALSE(State().busy());
    w->rtxtXML.LostFocus();
    t.FinishChecks();
    EXPECT_EQ(Faults().Count(), 0);

    OpenOnly(QStringLiteral("c.xsd"), Slow());
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(t.frame().FormNamed(t.folder.Path(QStringLiteral("c.xsd"))), nullptr);
    EXPECT_TRUE(t.prompts.boxes.empty());
}

// The click that leaves the text for another window leads there, and no box of this one takes it back.
TEST_F(CheckBeside, ATextThatIsLeftForAnotherWindowBringsNoBox) {
    DocumentWindow& plain = t.OpenText(QStringLiteral("c.xml"), "<a/>");
    Show(QStringLiteral("a.xsd"), Inside("<xs:element name='a' type='xs:int'/>"));
    const auto spoil = [this](const char* from, const char* to) {
        w->tbsXML.Select(QStringLiteral("textview"));
        w->rtxtXML.GotFocus();
        w->rtxtXML.UserSelected(w->rtxtXML.Text().indexOf(QLatin1String(from)), qstrlen(from));
        w->rtxtXML.Type(QLatin1String(to));
    };
    spoil("int", "nothing");
    w->rtxtXML.LostFocus();
    t.frame().ActivateForm(&plain);
    test::TestApp::FinishChecks(*w);
    EXPECT_EQ(&t.window(), &plain);
    EXPECT_EQ(Faults().Count(), 1);
    EXPECT_TRUE(t.prompts.boxes.empty());

    t.frame().ActivateForm(w); // within the window it comes, where the text was left for the tree
    spoil("nothing", "never");
    w->rtxtXML.LostFocus();
    Select(Element());
    t.prompts.Answer(services::Answer::Ok);
    test::TestApp::FinishChecks(*w);
    EXPECT_EQ(LastBox(), "Schema error!");
    EXPECT_EQ(w->tvXML.SelectedItem(), Element().Child());
}

// The library's time for these grows with their square; the user has the window meanwhile.
TEST_F(CheckBeside, ASchemaOfManyDeclarationsIsThereToBeWorkedOn) {
    QByteArray inside;
    for (int i = 0; i < 100'000; ++i)
        inside += "<xs:element name='e" + QByteArray::number(i) + "' type='xs:string'/>";
    OpenOnly(QStringLiteral("large.xsd"), Inside(inside));
    EXPECT_EQ(Element().Children(), 100'000);
    Select(Element().LastChild());
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Element().Children(), 99'999);
    State().tmCheck.Tick(); // the check of the text before is given up, not waited for
    EXPECT_FALSE(State().running);
    EXPECT_TRUE(State().due);
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_FALSE(t.folder.Read(QStringLiteral("large.xsd")).contains("e99999"));
}

} // namespace
