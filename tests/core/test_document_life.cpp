// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/NodePath.h"
#include "core/edit/Open.h"
#include "core/edit/Save.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using services::Answer;
using test::TestApp;

constexpr char kOrder[] = "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\n";

TEST(Opening, ShowsTheDocumentAsItsFileHasIt) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    EXPECT_EQ(window.rtxtXML.Text().toStdString(),
              "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\r\n");
    EXPECT_EQ(window.bond.msOpenText.toString(), window.rtxtXML.Text());
    EXPECT_TRUE(window.bLoaded);
    EXPECT_EQ(window.Caption, app.folder.Path(QStringLiteral("order.xml")));
    EXPECT_EQ(window.tvXML.Nodes(1).Key(), window.Caption);
    EXPECT_TRUE(window.tvXML.Nodes(1).Expanded());
    EXPECT_EQ(window.tvXML.SelectedItem(), window.tvXML.Nodes(1));
    // The list shows the root's children.
    ASSERT_EQ(window.ListView1.Count(), 1);
    EXPECT_EQ(window.ListView1.Item(1).Text, QStringLiteral("order"));
    EXPECT_EQ(window.ListView1.Item(1).Sub[0], QStringLiteral("id=\"7\""));
    EXPECT_EQ(app.frame().cmbAddress().Text(), window.Caption);
}

TEST(Opening, BadTextIsShownWithItsErrorSelected) {
    TestApp app;
    app.prompts.Answer(Answer::Ok);
    DocumentWindow& window = app.OpenText(QStringLiteral("bad.xml"), "<a>\n<b></c>\n</a>");
    ASSERT_EQ(app.prompts.boxes.size(), 1U);
    const test::Box& box = app.prompts.boxes[0];
    EXPECT_EQ(box.title, QStringLiteral("This is not valid XML"));
    EXPECT_EQ(box.icon, services::Icon::Critical);
    const QStringList lines = box.text.split(QStringLiteral("\r\n"));
    ASSERT_EQ(lines.size(), 8); // the reason ends its line itself
    EXPECT_EQ(lines[1], QStringLiteral("FilePos:11"));
    EXPECT_EQ(lines[2], QStringLiteral("Line:2"));
    EXPECT_EQ(lines[3], QStringLiteral("LinePos:6"));
    EXPECT_EQ(lines[6], QStringLiteral("SrcText:<b></c>"));
    EXPECT_EQ(lines[7], QStringLiteral("Url:"));
    EXPECT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_EQ(window.rtxtXML.SelText(), QStringLiteral("c"));
    EXPECT_EQ(app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 6"));
    EXPECT_EQ(window.tvXML.Nodes(1).Children(), 2); // a declaration and a comment stand in
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());
}

// Colouring puts a blank into comments, and the error stands behind them.
TEST(Opening, TheErrorIsSelectedBehindCommentsToo) {
    TestApp t;
    t.prompts.Answer(Answer::Ok);
    DocumentWindow& window = t.OpenText(QStringLiteral("bad.xml"), "<!--a-->\n<!--b-->\n<r><x></r>");
    EXPECT_EQ(window.rtxtXML.SelText(), QStringLiteral("r"));
    EXPECT_EQ(window.rtxtXML.Text().mid(window.rtxtXML.SelStart() - 2, 4), QStringLiteral("</r>"));
}

TEST(Opening, ANewDocumentHasNothingToUndo) {
    TestApp t;
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuEditUndo")).Enabled());
    EXPECT_EQ(textview::StateOf(t.window()).UndoPos, 0);
}

TEST(Opening, AFailedReloadLeavesTheWindowAlone) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    const QString text = window.rtxtXML.Text();
    app.prompts.Answer(Answer::Ok);
    DocumentWindow* form = &window;
    edit::OpenFile(app.app(), app.folder.Path(QStringLiteral("gone.xml")), form);
    EXPECT_EQ(app.prompts.Texts().last(),
              QStringLiteral("Can not find ") + app.folder.Path(QStringLiteral("gone.xml")));
    EXPECT_EQ(window.rtxtXML.Text(), text);
    EXPECT_EQ(window.tvXML.Nodes.Count(), 6);
    EXPECT_EQ(app.app().CurrentFileName, window.Caption);
}

TEST(Opening, TheActiveDocumentAgainIsShownAgain) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    int shown = 0; // it may be minimised, which only the skin knows
    app.frame().activeFormChanged.connect(
        [&](DocumentWindow* active) { shown += active == &window ? 1 : 0; });
    app.frame().OpenNamed(window.Caption);
    EXPECT_EQ(shown, 1);
    app.frame().NextWindow();
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(app.frame().FormCount(), 1);
}

TEST(Opening, TheProgramKnowsTheFolderThatItLiesIn) {
    TestApp app;
    EXPECT_TRUE(QFile::exists(app.app().options.ApplicationFolder + QStringLiteral("core_tests")))
        << app.app().options.ApplicationFolder.toStdString();
}

TEST(Opening, WhatIsNoAddressIsANewDocumentOfThatName) {
    TestApp app;
    app.frame().OpenNamed(QStringLiteral("plain.xml"));
    EXPECT_EQ(app.window().Caption, QStringLiteral("plain.xml"));
    EXPECT_EQ(app.window().tvXML.Nodes(1).Child().Tag(),
              QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
}

TEST(TextView, AnEditReachesTheTreeOnLeaving) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<order><item>Kaffee</item></order>"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Child().Tag(), QStringLiteral("Kaffee"));
    EXPECT_FALSE(window.bond.bTextChanged());
    // The text view still shows, so it takes the tree's form of the text.
    EXPECT_EQ(window.rtxtXML.Text().toStdString(), "<order>\r\n\t<item>Kaffee</item>\r\n</order>");
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());
}

TEST(TextView, ABadEditKeepsTheTreeAndIsReportedOnce) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.prompts.Answer(Answer::Ok);
    app.EditText(QStringLiteral("<order><item></order>"));
    EXPECT_EQ(window.tvXML.Nodes.Count(), 6);
    EXPECT_EQ(window.rtxtXML.Text(), QStringLiteral("<order><item></order>"));
    window.rtxtXML.LostFocus();
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
}

TEST(TextView, AClickOnAnotherTabCountsAsLeaving) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.GotFocus();
    window.rtxtXML.UserSelected(0, window.rtxtXML.Text().size());
    window.rtxtXML.Type(QStringLiteral("<order><x/></order>"));
    window.tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Text(), QStringLiteral("x"));
    // A bad text holds the user in the text view, with one box.
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.UserSelected(0, 1);
    app.prompts.Answer(Answer::Ok);
    window.rtxtXML.Type(QStringLiteral("<<"));
    window.tbsXML.Select(QStringLiteral("listview"));
    EXPECT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
    EXPECT_EQ(window.rtxtXML.SelStart(), 1); // the second "<" is the error
}

TEST(TextView, TheListFollowsATreeThatWasBuiltAnew) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<invoice/>"));
    app.ClickNode(window.tvXML.Nodes(1));
    window.tbsXML.Select(QStringLiteral("listview"));
    ASSERT_EQ(window.ListView1.Count(), 1);
    EXPECT_EQ(window.ListView1.Item(1).Text, QStringLiteral("invoice"));
    EXPECT_TRUE(window.tvXML.Nodes.Find(window.ListView1.Item(1).Key));
}

TEST(TextView, AnEditThatWasTakenBackLeavesTheTreeAlone) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("c.xml"), "<a><![CDATA[kept]]></a>");
    const QString text = window.rtxtXML.Text();
    app.EditText(text);
    EXPECT_EQ(window.rtxtXML.Text(), text);
    EXPECT_FALSE(window.bond.bTextChanged());
}

TEST(TextView, CaretAndTreeFollowEachOther) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    const TreeNode second = window.tvXML.Nodes(1).Child().LastChild();
    app.ClickNode(second);
    window.tbsXML.Select(QStringLiteral("textview"));
    EXPECT_EQ(window.rtxtXML.SelStart(), window.rtxtXML.Text().lastIndexOf(QStringLiteral("<item>")));
    EXPECT_EQ(window.rtxtXML.SelLength(), 1);
    window.rtxtXML.UserSelected(window.rtxtXML.Text().indexOf(QStringLiteral("Tee")), 0);
    window.rtxtXML.Click();
    EXPECT_EQ(window.tvXML.SelectedItem(), window.tvXML.Nodes(1).Child().Child());
}

TEST(TextView, EmptyingItClearsTheTree) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText({});
    EXPECT_EQ(window.tvXML.Nodes.Count(), 1);
    EXPECT_TRUE(app.prompts.boxes.empty());
}

TEST(Views, TabsShowWhatTheyAreFor) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), kOrder);
    const std::vector<std::pair<const char*, int>> views{{"textview", edit::kViewText},
                                                         {"tableview", edit::kViewTable},
                                                         {"browserview", edit::kViewBrowser},
                                                         {"schema", edit::kViewSchema},
                                                         {"listview", edit::kViewList}};
    for (const auto& [key, view] : views) {
        window.tbsXML.Select(QString::fromLatin1(key));
        EXPECT_EQ(edit::miCurrentView(window), view) << key;
    }
    EXPECT_FALSE(window.rtxtXML.TabStop);
    const QString preview = window.IE.LocationURL();
    ASSERT_TRUE(preview.endsWith(QStringLiteral("tempbv_forVantrel.xml")));
    EXPECT_TRUE(app.app().services.files.Exists(preview));
    app.frame().CloseForm(&window);
    EXPECT_FALSE(app.app().services.files.Exists(preview));
}

TEST(NodePaths, LeadThereAndBack) {
    TestApp app;
    DocumentWindow& window =
        app.OpenText(QStringLiteral("p.xml"),
                     "<p:a xmlns:p=\"u\"><!--one--><b/><!--two--><b>x<c/>x<c/></b><?pi data?></p:a>");
    const TreeNode root = window.tvXML.Nodes(1);
    const std::vector<const char*> paths{"/p:a[1]/b[2]/c[2]", "/p:a[1]/comment()[2]",
                                         "/p:a[1]/b[2]/text()[2]", "/p:a[1]/b[1]", "/p:a[1]"};
    for (const char* path : paths) {
        window.txtXPath.UserTyped(QString::fromLatin1(path));
        window.txtXPath.KeyUp(Qt::Key_Return, 0);
        EXPECT_EQ(edit::GetXPath(window.tvXML.SelectedItem()).toStdString(), path);
    }
    EXPECT_EQ(edit::GetXPath(root), QString());
    EXPECT_EQ(edit::GetXPath(root.Child().LastChild()).toStdString(),
              "/p:a[1]/"); // an instruction adds nothing
    app.prompts.Answer(Answer::Ok);
    window.txtXPath.UserTyped(QStringLiteral("/nowhere["));
    window.txtXPath.KeyUp(Qt::Key_Enter, 0);
    EXPECT_EQ(app.prompts.Texts().last(), QStringLiteral("Can not find any node by path:"));
}

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

TEST(Saving, ClosingAsksOnlyAfterAChange) {
    TestApp app;
    DocumentWindow* window = &app.OpenText(QStringLiteral("order.xml"), kOrder);
    EXPECT_TRUE(app.frame().CloseForm(window));
    EXPECT_TRUE(app.prompts.boxes.empty());

    window = &app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<order/>"));
    app.prompts.Answer({Answer::Cancel, Answer::No});
    EXPECT_FALSE(app.frame().CloseForm(window));
    EXPECT_EQ(app.frame().ActiveForm(), window);
    EXPECT_TRUE(app.frame().CloseForm(window));
    EXPECT_EQ(app.prompts.boxes[0].text,
              QStringLiteral("This XML file has been changed. Do you want to save it?"));
    EXPECT_EQ(app.prompts.boxes[0].buttons, services::Buttons::YesNoCancel);
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), QByteArray(kOrder));

    window = &app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.EditText(QStringLiteral("<order></order>"));
    app.prompts.Answer(Answer::Yes);
    EXPECT_TRUE(app.frame().CloseForm(window));
    EXPECT_EQ(app.folder.Read(QStringLiteral("order.xml")), "<order></order>");
}

TEST(Saving, BackingOutOfTheDialogKeepsAClosingWindow) {
    TestApp app;
    app.ChooseMenu(QStringLiteral("mnuFileNew"));
    DocumentWindow* window = &app.window();
    app.prompts.Answer(Answer::Yes);
    app.prompts.Choose({});
    EXPECT_FALSE(app.frame().CloseForm(window));
    EXPECT_EQ(app.frame().ActiveForm(), window);
}

TEST(Saving, ATextThatDoesNotParseAsksOnClosingEvenUnchanged) {
    TestApp app;
    app.prompts.Answer({Answer::Ok, Answer::No});
    DocumentWindow& window = app.OpenText(QStringLiteral("bad.xml"), "<a>");
    EXPECT_TRUE(app.frame().CloseForm(&window));
    EXPECT_EQ(app.prompts.boxes.size(), 2U);
}

TEST(Saving, ABadTextInOneWindowMakesAnotherAskOnClosing) {
    TestApp app;
    DocumentWindow& good = app.OpenText(QStringLiteral("order.xml"), kOrder);
    app.prompts.Answer({Answer::Ok, Answer::No});
    DocumentWindow& bad = app.OpenText(QStringLiteral("bad.xml"), "<a>");
    EXPECT_TRUE(app.frame().CloseForm(&good));
    ASSERT_EQ(app.prompts.boxes.size(), 2U);
    EXPECT_EQ(app.prompts.boxes[1].text,
              QStringLiteral("This XML file has been changed. Do you want to save it?"));
    // A text that parses is what ends it, for the bad one too.
    app.OpenText(QStringLiteral("fine.xml"), "<fine/>");
    EXPECT_TRUE(app.frame().CloseForm(&bad));
    EXPECT_EQ(app.prompts.boxes.size(), 2U);
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
    // The name was taken before the question.
    EXPECT_EQ(window.Caption, other);
    EXPECT_EQ(window.tvXML.Nodes(1).Key(), other);
    EXPECT_EQ(app.app().CurrentFileName, other);

    app.prompts.Choose({});
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs")); // a cancelled dialog ends it without a word
    EXPECT_EQ(app.prompts.boxes.size(), 1U);
    EXPECT_EQ(window.Caption, other);
}

TEST(Saving, ANewDocumentAsksForItsName) {
    TestApp app;
    app.ChooseMenu(QStringLiteral("mnuFileNew"));
    EXPECT_EQ(app.window().Caption, QStringLiteral("new1.xml"));
    EXPECT_EQ(app.frame().cmbAddress().Text(), QString());
    const QString name = app.folder.Path(QStringLiteral("first.xml"));
    app.prompts.Choose(name);
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.prompts.dialogs.back().title, QStringLiteral("Save As"));
    const QByteArray bytes = app.folder.Read(QStringLiteral("first.xml"));
    EXPECT_TRUE(bytes.startsWith(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!-- edited with Vantrel v2.0 by Orvane ("))
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

// The blanks that colouring puts into comments don't tell the lines between them from those of the file.
TEST(Saving, KeepsTheLineEndsOfAMixedFileBetweenComments) {
    TestApp t;
    t.OpenText(QStringLiteral("mixed.xml"), "<!--a-->\r\n<r>\n<b/>\r\n<c/>\n</r>\n<!--z-->");
    t.prompts.Choose(t.folder.Path(QStringLiteral("copy.xml")));
    t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("copy.xml")), "<!-- a-->\r\n<r>\n<b/>\r\n<c/>\n</r>\n<!-- z-->");
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
    ASSERT_EQ(window.ListView1.Count(), 3);
    EXPECT_EQ(window.ListView1.Item(1).Sub[0], QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
    for (int row = 1; row <= 3; ++row)
        EXPECT_TRUE(window.tvXML.Nodes.Find(window.ListView1.Item(row).Key)) << row;
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
}

} // namespace
