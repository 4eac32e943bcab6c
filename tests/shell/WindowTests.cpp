// SPDX-License-Identifier: GPL-3.0-or-later
// Several documents at once: names, order, saving, closing, ending.
#include "tests/support/TestApp.h"
#include <QFile>
#include <gtest/gtest.h>

namespace {

using services::Answer;
using test::TestApp;

const QString kEdited = QStringLiteral("<a>edited</a>");

/// The captions of the windows that became active, in order; "-" for none.
struct ActiveLog {
    explicit ActiveLog(frmMDIMain& frame) {
        frame.activeFormChanged.connect([this](DocumentWindow* window) {
            names << (window ? window->Caption.section(QLatin1Char('/'), -1) : QStringLiteral("-"));
        });
    }
    QStringList names;
};

TEST(Window, AnOpenFileIsBroughtToTheFrontInsteadOfOpenedAgain) {
    TestApp t;
    int added = 0;
    t.frame().formAdded.connect([&](DocumentWindow*) { ++added; });
    DocumentWindow& a = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.OpenText(QStringLiteral("b.xml"), "<b/>");
    t.frame().OpenNamed(t.folder.Path(QStringLiteral("a.xml")));
    EXPECT_EQ(t.frame().ActiveForm(), &a);
    EXPECT_EQ(t.app().CurrentFileName, a.Caption);
    int shown = 0; // it may be minimised, which only the skin knows
    t.frame().activeFormChanged.connect([&](DocumentWindow* active) { shown += active == &a ? 1 : 0; });
    t.frame().OpenNamed(a.Caption);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(added, 2);
}

// Two windows on one file would save over each other.
TEST(Window, OtherSpellingsOfAPathAreTheSameFile) {
    TestApp t;
    DocumentWindow& a = t.OpenText(QStringLiteral("sub/a.xml"), "<a/>");
    const QString link = t.folder.Path(QStringLiteral("link.xml")),
                  folder = t.folder.Path(QStringLiteral("to"));
    ASSERT_TRUE(QFile::link(QStringLiteral("sub/a.xml"), link));
    ASSERT_TRUE(QFile::link(t.folder.Path(QStringLiteral("sub")), folder));
    const QStringList spellings{t.folder.Path(QStringLiteral("./sub/../sub/a.xml")),
                                t.folder.Path(QStringLiteral("sub//a.xml")), link,
                                folder + QStringLiteral("/a.xml")};
    DocumentWindow& b = t.OpenText(QStringLiteral("b.xml"), "<b/>");
    for (const QString& spelling : spellings) {
        t.frame().ActivateForm(&b);
        t.frame().OpenNamed(spelling);
        EXPECT_EQ(t.frame().ActiveForm(), &a) << spelling.toStdString();
        EXPECT_EQ(t.app().CurrentFileName, a.Caption);
        t.frame().OpenNamed(spelling); // it is in front already
        EXPECT_EQ(t.app().CurrentFileName, a.Caption);

        t.frame().ActivateForm(&b);
        const QString own = b.Caption;
        t.prompts.Choose(spelling);
        t.prompts.Answer({Answer::Ok, Answer::Ok});
        t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
        t.ClickNode(b.tvXML.Nodes(1));
        t.ChooseMenu(QStringLiteral("mnuEditName"));
        b.tvXML.EndLabelEdit(spelling);
        b.tvXML.CancelLabelEdit();
        EXPECT_EQ(b.Caption, own) << spelling.toStdString();
        EXPECT_EQ(t.folder.Read(QStringLiteral("sub/a.xml")), "<a/>");
        EXPECT_TRUE(t.prompts.boxes.back().text.endsWith(QStringLiteral("is open in another window.")));
    }
    t.frame().ActivateForm(&a);
    t.ClickNode(a.tvXML.Nodes(1));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    a.tvXML.EndLabelEdit(link);
    EXPECT_EQ(a.Caption, link) << "its own file under another name: nothing to replace, nothing to ask";
    EXPECT_EQ(t.frame().FormCount(), 2);
    t.OpenText(QStringLiteral("sub/A.xml"), "<A/>");
    EXPECT_EQ(t.frame().FormCount(), 3) << "case matters";
}

TEST(Window, NewDocumentsAreCountedTogetherAndNumbersAreNotUsedAgain) {
    TestApp t;
    t.prompts.Answer(Answer::No); // a new document is in no file, so closing it asks
    QStringList names;
    for (const char* entry : {"mnuFileNew", "mnuNewschema", "mnuFileClose", "mnuFileNew"}) {
        t.ChooseMenu(QLatin1String(entry));
        names << t.window().Caption;
    }
    t.PressButton(QStringLiteral("tbFileEdit"), QStringLiteral("newfile"));
    names << t.window().Caption;
    EXPECT_EQ(names,
              QStringList({QStringLiteral("new1.xml"), QStringLiteral("new2.xsd"), QStringLiteral("new1.xml"),
                           QStringLiteral("new3.xml"), QStringLiteral("new4.xml")}));
}

TEST(Window, ALoadingWindowIsTheActiveFormButIsAnnouncedOnlyWhenItIsFilled) {
    TestApp t;
    t.OpenText(QStringLiteral("good.xml"), "<a/>");
    const ActiveLog log(t.frame());
    QString whileTold;
    t.prompts.onBox = [&](const test::Box&) {
        whileTold = t.window().Caption;
        EXPECT_FALSE(t.window().bLoaded);
        EXPECT_EQ(log.names, QStringList());
    };
    t.frame().formAdded.connect([](DocumentWindow* window) { EXPECT_TRUE(window->bLoaded); });
    t.prompts.Answer(Answer::Ok); // "This is not valid XML"
    DocumentWindow& bad = t.OpenText(QStringLiteral("bad.xml"), "<a><b></a>");
    EXPECT_EQ(whileTold, bad.Caption);
    EXPECT_EQ(log.names, QStringList(QStringLiteral("bad.xml")));
}

TEST(Window, ClosingShowsTheWindowThatWasActiveBefore) {
    TestApp t;
    DocumentWindow& a = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.OpenText(QStringLiteral("b.xml"), "<b/>");
    t.OpenText(QStringLiteral("c.xml"), "<c/>");
    t.frame().ActivateForm(&a);
    const ActiveLog log(t.frame());
    t.frame().formRemoved.connect([&](DocumentWindow* gone) { EXPECT_NE(t.frame().ActiveForm(), gone); });
    while (t.frame().ActiveForm())
        t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(log.names,
              QStringList({QStringLiteral("c.xml"), QStringLiteral("b.xml"), QStringLiteral("-")}));
    EXPECT_EQ(t.frame().FormCount(), 0);
}

TEST(Window, BackAndForwardBothSendTheActiveWindowBehindTheOthers) {
    TestApp t;
    for (const char* name : {"a.xml", "b.xml", "c.xml"})
        t.OpenText(QLatin1String(name), "<a/>");
    const ActiveLog log(t.frame());
    for (const char* key : {"back", "back", "forward"})
        t.PressButton(QStringLiteral("tbNavigate"), QLatin1String(key));
    EXPECT_EQ(log.names,
              QStringList({QStringLiteral("b.xml"), QStringLiteral("a.xml"), QStringLiteral("c.xml")}));
}

TEST(Window, ATypedTextReachesItsOwnTreeWhenAnotherDocumentOpens) {
    TestApp t;
    DocumentWindow& a = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    a.tbsXML.Select(QStringLiteral("textview"));
    a.rtxtXML.UserSelected(0, a.rtxtXML.Text().size());
    a.rtxtXML.Type(QStringLiteral("<fresh/>"));
    t.ChooseMenu(QStringLiteral("mnuFileNew")); // by its key: the text still has the focus
    a.rtxtXML.LostFocus();
    const controls::TreeNode root = a.tvXML.Nodes(1);
    EXPECT_EQ(root.Key(), a.Caption);
    EXPECT_EQ(root.Child().Text(), QStringLiteral("fresh"));
    EXPECT_EQ(t.app().CurrentFileName, QStringLiteral("new1.xml"));
}

TEST(Window, CloseAllComesBackToAWindowThatWasKept) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.OpenText(QStringLiteral("b.xml"), "<b/>");
    t.EditText(kEdited);
    t.prompts.Answer({Answer::Cancel, Answer::Cancel, Answer::No});
    t.ChooseMenu(QStringLiteral("mnuCloseAll"));
    EXPECT_EQ(t.prompts.boxes.size(), 3u);
    EXPECT_EQ(t.frame().FormCount(), 0);
}

TEST(Window, ExitEndsWithoutAskingAndWithoutSaving) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.EditText(kEdited);
    int ended = 0;
    t.frame().ended.connect([&] { ++ended; });
    t.ChooseMenu(QStringLiteral("mnuFileExit"));
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(t.folder.Read(QStringLiteral("a.xml")), "<a/>");
}

TEST(Window, SaveWritesTheActiveWindowAndSaveAllWritesNone) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.EditText(kEdited);
    t.ChooseMenu(QStringLiteral("mnuFileSaveAll"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("a.xml")), "<a/>");
    t.PressButton(QStringLiteral("tbFileEdit"), QStringLiteral("savefile"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("a.xml")), kEdited.toUtf8());
}

// What the panels say is about the document in front.
TEST(Window, AMessageDoesNotStayBesideAnotherDocument) {
    TestApp t;
    const auto panel = [&t](int number) { return t.frame().StatusBar1().Panel(number).toStdString(); };
    DocumentWindow& good = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    DocumentWindow& fresh = t.window();
    t.frame().StatusBar1().SetPanel(1, QStringLiteral("about the new one"));
    t.frame().ActivateForm(&good);
    EXPECT_EQ(panel(1), "");

    t.window().tbsXML.Select(QStringLiteral("textview"));
    t.window().rtxtXML.KeyUp(Qt::Key_Right, 0);
    const std::string place = panel(2);
    EXPECT_NE(place, "");
    t.frame().ActivateForm(&fresh);
    EXPECT_EQ(panel(2), "") << "the list view has no caret";
    t.frame().ActivateForm(&good);
    EXPECT_EQ(panel(2), place);

    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    t.frame().StatusBar1().SetPanel(1, QStringLiteral("about this one"));
    t.prompts.Answer({Answer::Cancel, Answer::No});
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_NE(panel(1), "") << "it stays";
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(panel(1), "");
}

TEST(Window, ArrangingIsTheSkinsAffairByCode) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    std::vector<int> codes;
    t.frame().arranged.connect([&](int code) { codes.push_back(code); });
    for (const char* name :
         {"mnuWindowCascade", "mnuWindowTileHorizontal", "mnuWindowTileVertical", "mnuWindowArrangeIcons"})
        t.ChooseMenu(QLatin1String(name));
    EXPECT_EQ(codes, std::vector<int>({0, 1, 2, 3}));
}

} // namespace
