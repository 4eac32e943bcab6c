// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using services::Answer;
using test::TestApp;

constexpr char kOrder[] = "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\n";

TEST(Saving, UnchangedAndChanged) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), QByteArray(kOrder));
    app.EditText(QStringLiteral("<order>\r\n\t<item>Kaffee</item>\r\n</order>"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    // The file has LF line ends, and keeps them.
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), "<order>\n\t<item>Kaffee</item>\n</order>");
    EXPECT_EQ(window.bond.msOpenText.toString(), window.rtxtXML.Text());
    EXPECT_TRUE(app.prompts.boxes.empty());
}

TEST(Saving, ATreeChangeIsSavedFromAnyView) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    for (const char* tab : {"listview", "browserview"}) {
        window.tbsXML.Select(QString::fromLatin1(tab));
        TreeNode text = window.tvXML.Nodes(1).Child().Child().Child();
        text.SetTag(QStringLiteral("from ") + QString::fromLatin1(tab));
        edit::DoTree(window);
        app.ChooseMenu(QStringLiteral("mnuFileSave"));
        EXPECT_TRUE(app.folder.Read(QStringLiteral("order.xml")).contains(QByteArray("from ") + tab)) << tab;
    }
}

TEST(Saving, ClosingAsksOnlyAfterAChangeAndFollowsTheAnswer) {
    TestApp app;
    const QString question = QStringLiteral("This XML file has been changed. Do you want to save it?");
    EXPECT_TRUE(app.frame().CloseForm(&app.OpenText(QStringLiteral("order.xml"), kOrder)));
    EXPECT_TRUE(app.prompts.boxes.empty());

    DocumentWindow* window = &app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<order></order>"));
    app.prompts.Answer({Answer::Cancel, Answer::No});
    app.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(app.frame().ActiveForm(), window);
    EXPECT_TRUE(app.frame().Menu(QStringLiteral("mnuFileSave")).Usable()) << "the menu of a window is back";
    EXPECT_TRUE(app.frame().CloseForm(window));
    EXPECT_EQ(app.prompts.Texts(), QStringList({question, question}));
    EXPECT_EQ(app.prompts.boxes[0].buttons, services::Buttons::YesNoCancel);
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), QByteArray(kOrder));

    window = &app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<order></order>"));
    app.prompts.Answer(Answer::Yes);
    EXPECT_TRUE(app.frame().CloseForm(window));
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), "<order></order>");

    app.ChooseMenu(QStringLiteral("mnuFileNew"));
    app.prompts.Answer(Answer::Yes);
    app.prompts.Choose({}); // and backs out of the dialog
    EXPECT_FALSE(app.frame().CloseForm(&app.window()));
}

// Which text the last failed parse was of says nothing about a document that is in its file.
TEST(Saving, ADocumentThatIsInItsFileIsNotAskedAbout) {
    TestApp app;
    DocumentWindow& good = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.prompts.Answer(Answer::Ok);
    DocumentWindow& bad = app.OpenText(QStringLiteral("bad.xml"), "<a>");
    EXPECT_TRUE(app.frame().CloseForm(&bad));
    EXPECT_TRUE(app.frame().CloseForm(&good));
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
}

TEST(Saving, UnsavedChangesShowUntilTheyAreSavedOrTakenBack) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    const QString clean = window.Caption, marked = u'*' + clean;
    int shown = 0;
    window.captionChanged.connect([&shown] { ++shown; });
    EXPECT_EQ(window.ShownCaption(), clean);
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.GotFocus();
    window.rtxtXML.UserSelected(7, 0);
    window.rtxtXML.Type(QStringLiteral(" "));
    EXPECT_EQ(window.ShownCaption(), marked) << "typed, and not yet read";
    EXPECT_EQ(window.Caption, clean) << "a path, whatever is shown";
    app.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(window.ShownCaption(), clean);
    EXPECT_EQ(shown, 2);

    window.tbsXML.Select(QStringLiteral("listview"));
    app.ClickNode(window.tvXML.Nodes(1).Child());
    app.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(window.ShownCaption(), marked);
    app.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(window.ShownCaption(), clean);
    app.EditText(QStringLiteral("<order/>"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(window.ShownCaption(), clean);
    EXPECT_EQ(app.frame().StatusBar1().Panel(1), clean + QStringLiteral(" has been saved."));
    EXPECT_TRUE(app.frame().CloseForm(&window));
    EXPECT_TRUE(app.prompts.boxes.empty());
}

TEST(Saving, ANewDocumentIsUnsavedAndGreetsWithoutAnErrorCode) {
    TestApp app;
    for (const char* entry : {"mnuFileNew", "mnuNewschema"}) {
        app.ChooseMenu(QLatin1String(entry));
        DocumentWindow& window = app.window();
        const auto said = [&] { return app.frame().StatusBar1().Panel(1).toStdString(); };
        EXPECT_EQ(window.ShownCaption().at(0), u'*') << "closing asks";
        EXPECT_EQ(said(), "");
        window.tbsXML.Select(QStringLiteral("textview"));
        window.rtxtXML.GotFocus();
        window.rtxtXML.LostFocus();
        window.tbsXML.Select(QStringLiteral("listview"));
        EXPECT_EQ(said(), "");
        app.prompts.Answer(Answer::No);
        EXPECT_TRUE(app.frame().CloseForm(&window));
    }
    EXPECT_EQ(app.prompts.boxes.size(), 2U);
    EXPECT_EQ(app.prompts.beeps, 0);
}

TEST(Saving, ClosingABadTextAsksBeforeItIsToldAndNamesTheFile) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        TestApp app;
        DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
        const QString name = window.Caption;
        app.OpenText(QStringLiteral("other.xml"), "<other/>");
        app.frame().ActivateForm(&window);
        window.tbsXML.Select(QStringLiteral("textview"));
        window.rtxtXML.GotFocus();
        window.rtxtXML.UserSelected(0, window.rtxtXML.Text().size());
        window.rtxtXML.Type(QStringLiteral("<a>"));
        app.prompts.Answer({answer, Answer::Ok});
        EXPECT_TRUE(app.frame().CloseForm(&window));
        const bool saved = answer == Answer::Yes;
        ASSERT_EQ(app.prompts.boxes.size(), saved ? 2U : 1U);
        EXPECT_TRUE(app.prompts.boxes[0].text.startsWith(QStringLiteral("This XML file has been changed.")));
        EXPECT_EQ(app.prompts.boxes[0].about, name);
        EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")),
                  saved ? QByteArray("<a>") : QByteArray(kOrder));
        if (saved)
            EXPECT_EQ(app.prompts.boxes[1].about, name);
        else
            app.prompts.ForgetUnused();
    }
}

TEST(Saving, SaveAsRenamesWindowAndRoot) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    const QString copy = app.folder.Path(QStringLiteral("copy.xml"));
    app.prompts.Choose(copy);
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("copy.xml")), QByteArray(kOrder));
    EXPECT_EQ(window.Caption, copy);
    EXPECT_EQ(window.tvXML.Nodes(1).Key(), copy);
    EXPECT_EQ(window.tvXML.Nodes(1).Text(), copy);
    EXPECT_EQ(app.app().CurrentFileName, copy);
    EXPECT_EQ(app.frame().cmbAddress().Text(), copy);

    const QString other = app.folder.Write(QStringLiteral("other.xml"), "<keep/>");
    app.prompts.Choose(other);
    app.prompts.Answer(Answer::No);
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_EQ(app.prompts.boxes.back().title, QStringLiteral("Save file ..."));
    EXPECT_EQ(app.prompts.boxes.back().text,
              other + QStringLiteral(" already exists. Do you want to replace it?"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("other.xml")), "<keep/>");
    EXPECT_EQ(window.Caption, copy) << "the next plain save must not write there";
    EXPECT_EQ(window.tvXML.Nodes(1).Key(), copy);
    EXPECT_EQ(app.app().CurrentFileName, copy);

    app.prompts.Choose({});
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs")); // a cancelled dialog ends it without a word
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
    EXPECT_EQ(window.Caption, copy);

    app.OpenText(QStringLiteral("open.xml"), "<open/>");
    app.frame().ActivateForm(&window);
    app.prompts.Choose(app.folder.Path(QStringLiteral("open.xml")));
    app.prompts.Answer(Answer::Ok);
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_TRUE(app.prompts.boxes.back().text.endsWith(QStringLiteral("is open in another window.")));
    EXPECT_EQ(window.Caption, copy);
    EXPECT_EQ(app.folder.Read(QStringLiteral("open.xml")), "<open/>");
}

TEST(Saving, ANewDocumentAsksForItsName) {
    TestApp app;
    app.ChooseMenu(QStringLiteral("mnuFileNew"));
    EXPECT_EQ(app.window().Caption, QStringLiteral("new1.xml"));
    EXPECT_EQ(app.frame().cmbAddress().Text(), QString());
    EXPECT_FALSE(app.frame().Menu(QStringLiteral("mnuEditUndo")).Enabled());
    const QString name = app.folder.Path(QStringLiteral("first.xml"));
    app.prompts.Choose(name);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.prompts.dialogs.back().title, QStringLiteral("Save As"));
    const QByteArray bytes = app.folder.Read(QStringLiteral("first.xml"));
    EXPECT_TRUE(bytes.startsWith(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!--edited with Vantrel v2.0 by Orvane ("))
        << bytes.toStdString();
}

TEST(Saving, KeepsEncodingMarkAndLineEnds) {
    TestApp app;
    for (const char* name : {"addresses-gb2312.xml", "museum-utf16.xml", "poems-utf8.xml", "orders.xml",
                             "catalogue-doctype-cdata.xml"}) {
        QFile sample(QStringLiteral(VANTREL_SOURCE_DIR "/samples/") + QString::fromLatin1(name));
        ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
        const QByteArray bytes = sample.readAll();
        app.OpenText(QString::fromLatin1(name), bytes);
        const QString copy = app.folder.Path(QStringLiteral("copy-") + QString::fromLatin1(name));
        app.prompts.Choose(copy);
        app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
        EXPECT_EQ(app.folder.Read(QStringLiteral("copy-") + QString::fromLatin1(name)), bytes) << name;
    }
}

// The blanks that colouring shows in comments don't tell the lines between them from those of the file.
TEST(Saving, KeepsTheLineEndsOfAMixedFileBetweenComments) {
    TestApp t;
    t.OpenText(QStringLiteral("mixed.xml"), "<!--a-->\r\n<r>\n<b/>\r\n<c/>\n</r>\n<!--z-->");
    t.prompts.Choose(t.folder.Path(QStringLiteral("copy.xml")));
    t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("copy.xml")), "<!--a-->\r\n<r>\n<b/>\r\n<c/>\n</r>\n<!--z-->");
}

TEST(Saving, ACharacterThatTheEncodingCantHoldIsAskedFor) {
    TestApp app;
    const QByteArray latin = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n<a>caf\xE9</a>";
    DocumentWindow& window = app.OpenText(QStringLiteral("latin.xml"), latin);
    const QString edited =
        QString(window.rtxtXML.Text()).replace(QStringLiteral("caf"), QString::fromUtf8("中文 caf"));
    app.EditText(edited);
    app.prompts.Answer(Answer::No);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("latin.xml")), latin);

    app.EditText(edited + QStringLiteral(" "));
    app.prompts.Answer(Answer::Yes);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(QString::fromUtf8(app.folder.Read(QStringLiteral("latin.xml"))),
              QString::fromUtf8("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>中文 café</a>"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Tag(), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
}

TEST(Saving, TheListFollowsADeclarationThatSavingChanged) {
    TestApp app;
    DocumentWindow& window =
        app.OpenText(QStringLiteral("latin.xml"), "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><a/>");
    TreeNode comment = window.tvXML.Nodes.Add(
        window.tvXML.Nodes(1), controls::tvwChild, m_tvXML::GetDistinctElementKey(app.app(), 8),
        QStringLiteral("#comment"), QStringLiteral("comment"), QStringLiteral("opencomment"));
    comment.SetTag(QString::fromUtf8("中文"));
    edit::DoTree(window);
    ASSERT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("listview"));
    app.prompts.Answer(Answer::Yes);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(window.ListView1.Item(1).Sub[0], QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
    EXPECT_TRUE(window.tvXML.Nodes.Find(window.ListView1.Item(3).Key));
}

TEST(Saving, ADeclarationThatNamesNoCodeIsAskedForOnce) {
    TestApp app;
    const QByteArray before = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a></a>";
    app.OpenText(QStringLiteral("a.xml"), before);
    app.EditText(QStringLiteral("<?xml version=\"1.0\" encoding=\"klingon\"?><a>x</a>"));
    app.prompts.Answer({Answer::No, Answer::Yes});
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    ASSERT_EQ(app.prompts.Texts(), QStringList{QStringLiteral(
                                       "The encoding klingon is not known. Do you want to save as UTF-8?")});
    EXPECT_EQ(app.folder.Read(QStringLiteral("a.xml")), before);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("a.xml")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>x</a>");
    app.EditText(app.window().rtxtXML.Text() + QStringLiteral("<!--more-->"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.prompts.boxes.size(), 2U);
}

TEST(Saving, HalfOfAPairIsRefusedAndShownInThePreview) {
    for (const char* code : {"UTF-8", "iso-8859-1"}) {
        TestApp app;
        const QByteArray before = QByteArray("<?xml version=\"1.0\" encoding=\"") + code + "\"?>\r\n<a></a>";
        DocumentWindow& window = app.OpenText(QStringLiteral("a.xml"), before);
        app.prompts.Answer({Answer::Ok, Answer::Ok, Answer::Yes, Answer::Ok});
        app.EditText(
            QString(window.rtxtXML.Text()).replace(QStringLiteral("<a>"), QStringLiteral("<a>\xD83D")));
        app.ChooseMenu(QStringLiteral("mnuFileSave"));
        const QString refused = QStringLiteral("The character at line 2, position 4 is half of a pair and "
                                               "can not be saved. Nothing was written.");
        ASSERT_EQ(app.prompts.boxes.size(), 2U) << code; // the parser's complaint, and this
        EXPECT_EQ(app.prompts.boxes[1].text, refused) << code;
        EXPECT_EQ(app.prompts.boxes[1].buttons, services::Buttons::Ok);
        EXPECT_FALSE(app.frame().CloseForm(&window)); // Yes, save it
        EXPECT_EQ(app.prompts.boxes.back().text, refused) << code;
        EXPECT_EQ(app.folder.Read(QStringLiteral("a.xml")), before) << code;

        window.tbsXML.Select(QStringLiteral("browserview"));
        EXPECT_EQ(app.prompts.boxes.size(), 4U) << code;
        QFile preview(window.IE.LocationURL());
        ASSERT_TRUE(preview.open(QIODevice::ReadOnly));
        EXPECT_TRUE(preview.readAll().endsWith("<a>\xEF\xBF\xBD</a>")) << code;
    }
}

TEST(Saving, ARefusedWriteLeavesTheFileAndTellsWhy) {
    TestApp app;
    app.OpenText(QStringLiteral("order.xml"), kOrder);
    QFile::setPermissions(app.folder.Path(QStringLiteral("order.xml")), QFileDevice::ReadOwner);
    app.EditText(QStringLiteral("<order/>"));
    app.prompts.Answer(Answer::Ok);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_TRUE(app.prompts.Texts().last().endsWith(
        QStringLiteral("\r\nPlease check file attributes (Read-only, etc).")));
    EXPECT_EQ(app.prompts.boxes.back().icon, services::Icon::Exclamation);
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), QByteArray(kOrder));
    EXPECT_EQ(app.window().ShownCaption().at(0), u'*');
    app.prompts.Answer(Answer::Ok);
    app.ChooseMenu(QStringLiteral("mnuFileSave")); // tried again
    EXPECT_EQ(app.prompts.boxes.size(), 2U);

    app.EditText(QStringLiteral("<order>more</order>"));
    app.prompts.Answer({Answer::Yes, Answer::Ok});
    EXPECT_FALSE(app.frame().CloseForm(&app.window())) << "the text would be nowhere";
}

} // namespace
