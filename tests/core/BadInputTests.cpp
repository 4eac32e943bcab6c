// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/TestApp.h"
#include "textview/TreeText.h"
#include <QDir>
#include <QTcpServer>
#include <gtest/gtest.h>
#include <sys/stat.h>

// Whatever is opened, the program answers clearly, stays usable, and changes and loses nothing.
namespace {

using services::Answer;
using test::TestApp;

constexpr char kBadName[] = "Bad file name! Do you want to create new xml file with name: ";

// Another document that must survive everything, and proof that the program still works.
class BadInput : public ::testing::Test {
protected:
    BadInput() { app.OpenText(QStringLiteral("bystander.xml"), "<by>stander</by>"); }

    void ExpectUsable(int forms) {
        EXPECT_EQ(app.frame().FormCount(), forms);
        EXPECT_EQ(app.folder.Read(QStringLiteral("bystander.xml")), "<by>stander</by>");
        const std::size_t boxes = app.prompts.boxes.size();
        DocumentWindow& good = app.OpenText(QStringLiteral("good.xml"), "<good/>");
        EXPECT_EQ(good.tvXML.Nodes(1).Child().Text(), QStringLiteral("good"));
        EXPECT_EQ(app.prompts.boxes.size(), boxes);
    }

    // A text whose parse fails: opened with the parse box, shown as it is, its file untouched.
    DocumentWindow& OpenBad(const QByteArray& bytes) {
        app.prompts.AllowAnyBox();
        DocumentWindow& window = app.OpenText(QStringLiteral("bad.xml"), bytes);
        const QString title = app.prompts.boxes.empty() ? QString() : app.prompts.boxes.back().title;
        EXPECT_EQ(title, QStringLiteral("This is not valid XML"));
        EXPECT_EQ(app.folder.Read(QStringLiteral("bad.xml")), bytes);
        EXPECT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("textview"));
        return window;
    }

    TestApp app;
};

TEST_F(BadInput, FolderDeviceAndPipe) {
    const QString folder = app.folder.Path(QStringLiteral("folder.xml"));
    QDir().mkdir(folder);
    const QString pipe = app.folder.Path(QStringLiteral("pipe.xml"));
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    for (const QString& name : {folder, pipe, QStringLiteral("/dev/zero")}) {
        app.prompts.Answer({Answer::Ok, Answer::No});
        app.frame().OpenNamed(name);
        EXPECT_TRUE(app.prompts.Texts().last().startsWith(QString::fromLatin1(kBadName)))
            << name.toStdString();
    }
    EXPECT_EQ(app.prompts.boxes.size(), 6U);
    ExpectUsable(1);
}

TEST_F(BadInput, UnreadableFile) {
    // A regular file whose reading fails, for root too: nothing lies at its beginning.
    const QString name = QStringLiteral("/proc/self/mem");
    app.app().options.Debug = true;
    app.prompts.Answer({Answer::Ok, Answer::No});
    app.frame().OpenNamed(name);
    ASSERT_EQ(app.prompts.boxes.size(), 2U);
    EXPECT_TRUE(app.prompts.boxes[0].text.startsWith(QStringLiteral("Module name:mXMLEdit.GetFileData\r\n")));
    EXPECT_TRUE(app.prompts.boxes[1].text.startsWith(QString::fromLatin1(kBadName)));
    EXPECT_FALSE(app.frame().StatusBar1().Panel(1).isEmpty()) << "the reason, also without Debug";
    ExpectUsable(1);
}

TEST_F(BadInput, RunningOutOfMemoryWhileOpeningChangesNothing) {
    const QString bystander = app.window().Caption;
    // One breaks off while it is read, one while its window is filled; each has a box to show.
    app.prompts.onBox = [](const test::Box&) { throw std::bad_alloc(); };
    for (const char* text : {"<?xml version='1.0' encoding='none-such'?><a/>", "<a>"}) {
        EXPECT_THROW(app.OpenText(QStringLiteral("large.xml"), text), std::bad_alloc) << text;
        EXPECT_EQ(app.frame().FormCount(), 1) << text;
        EXPECT_EQ(app.window().Caption, bystander) << text;
        EXPECT_EQ(app.app().CurrentFileName, bystander) << text;
    }
    app.prompts.onBox = nullptr;
    // And one while the skin makes its widgets.
    bool full = true;
    app.frame().formAdded.connect([&](DocumentWindow*) {
        if (full)
            throw std::bad_alloc();
    });
    EXPECT_THROW(app.frame().RunMenuCommand(QStringLiteral("mnuFileNew")), std::bad_alloc);
    EXPECT_EQ(app.app().CurrentFileName, bystander);
    full = false;
    app.prompts.ForgetUnused();
    ExpectUsable(1);
    app.EditText(QStringLiteral("<good>new</good>"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("good.xml")), "<good>new</good>");
    EXPECT_EQ(app.folder.Read(QStringLiteral("large.xml")), "<a>");
}

TEST_F(BadInput, EditsCountAfterMemoryRanOutWhileABadTextWasShown) {
    DocumentWindow& window = app.window();
    window.rtxtXML.SetText(QString());
    bool full = true;
    window.rtxtXML.Change.connect([&] {
        if (full)
            throw std::bad_alloc();
    });
    EXPECT_THROW(textview::XMLToTree(window, QStringLiteral("<by>"), 0, textview::Afterwards::WriteAnew,
                                     edit::Tone::Quiet),
                 std::bad_alloc);
    full = false;
    window.rtxtXML.Type(QStringLiteral("x"));
    EXPECT_TRUE(window.bond.bTextChanged());
}

TEST_F(BadInput, RunningOutOfMemoryWhileAnEditedTextIsReadLeavesNoHalfDocument) {
    DocumentWindow& window = app.window();
    // A comment's picture is missing, and there is no memory for the box that would say so.
    const qsizetype picture = window.tvXML.ImageList.indexOf(QStringLiteral("opencomment"));
    window.tvXML.ImageList[picture] = QStringLiteral("missing");
    app.app().options.Debug = true;
    app.prompts.onBox = [](const test::Box&) { throw std::bad_alloc(); };
    const int before = window.tvXML.Nodes.Count();
    const QString typed = QStringLiteral("<by><first/><!-- x --><second/></by>");
    EXPECT_THROW(app.EditText(typed), std::bad_alloc);
    app.prompts.onBox = nullptr;
    app.app().options.Debug = false;
    EXPECT_EQ(window.tvXML.Nodes.Count(), before) << "the tree that was there";
    EXPECT_EQ(window.rtxtXML.Text(), typed);
    EXPECT_TRUE(window.bond.bTextChanged()) << "to be read again";

    window.tvXML.ImageList[picture] = QStringLiteral("opencomment");
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(window.tvXML.Nodes.Count(), 5);
    EXPECT_TRUE(app.folder.Read(QStringLiteral("bystander.xml")).contains("<second>"));
}

TEST_F(BadInput, AFileThatVanishesIsWrittenAgainOnSave) {
    app.OpenText(QStringLiteral("gone.xml"), "<a/>");
    QFile::remove(app.folder.Path(QStringLiteral("gone.xml")));
    app.EditText(QStringLiteral("<a>new</a>"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("gone.xml")), "<a>new</a>");
    ExpectUsable(2);
}

TEST_F(BadInput, EmptyAndBlankFiles) {
    for (const char* text : {"", "   "}) {
        DocumentWindow& window = app.OpenText(QStringLiteral("empty%1.xml").arg(qstrlen(text)), text);
        EXPECT_EQ(window.tvXML.Nodes(1).Text(), window.Caption);
    }
    EXPECT_TRUE(app.prompts.boxes.empty());
    ExpectUsable(3);
}

TEST_F(BadInput, BytesThatAreNoTextOrNotWhatTheySayStayAsTheyAre) {
    for (const QByteArray& bytes : {QByteArray("<a>\0</a>", 8), QByteArray(100, '\xFF'),
                                    QByteArray("\xFF\xFE<\0a\0>\0\x00\xD8<\0/\0a\0>\0", 18)}) {
        DocumentWindow& window = OpenBad(bytes);
        EXPECT_TRUE(app.frame().CloseForm(&window)); // No at the question on saving
        EXPECT_EQ(app.folder.Read(QStringLiteral("bad.xml")), bytes);
    }
    app.prompts.AllowAnyBox(Answer::Yes);
    for (const char* bytes : {"<?xml version=\"1.0\" encoding=\"utf-16\"?><a/>",
                              "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><a>\xC3\xA9</a>"}) {
        app.OpenText(QStringLiteral("odd.xml"), bytes);
        app.prompts.Choose(app.folder.Path(QStringLiteral("odd-copy.xml")));
        app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
        EXPECT_EQ(app.folder.Read(QStringLiteral("odd-copy.xml")), bytes);
        app.frame().CloseForm(&app.window());
    }
    ExpectUsable(1);
}

TEST_F(BadInput, EntitiesThatExplode) {
    QByteArray laughs = "<?xml version=\"1.0\"?><!DOCTYPE l [<!ENTITY l0 \"lol\">";
    for (int i = 1; i < 10; ++i) {
        const QByteArray before = "&l" + QByteArray::number(i - 1) + ";";
        laughs += "<!ENTITY l" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">";
    }
    OpenBad(laughs + "]><l>&l9;</l>");
    ExpectUsable(2);
}

TEST_F(BadInput, EntitiesThatPointOutside) {
    const QString secret = app.folder.Write(QStringLiteral("secret.txt"), "TOP-SECRET");
    test::LoopbackServer server(
        [](const QByteArray&) { return QByteArray("HTTP/1.0 200 OK\r\n\r\nTOP-SECRET"); });
    for (const QString& target :
         {QStringLiteral("file://") + secret, server.Url(QStringLiteral("/secret"))}) {
        const QByteArray uri = target.toUtf8();
        DocumentWindow& window = OpenBad("<!DOCTYPE a [<!ENTITY e SYSTEM \"" + uri + "\">]><a>&e;</a>");
        EXPECT_FALSE(app.prompts.Texts().join(QString()).contains(QStringLiteral("TOP-SECRET")));
        app.frame().CloseForm(&window);
    }
    // A type definition elsewhere isn't read, and doesn't hinder.
    DocumentWindow& window =
        app.OpenText(QStringLiteral("dtd.xml"),
                     "<!DOCTYPE a SYSTEM \"" + server.Url(QStringLiteral("/x.dtd")).toUtf8() + "\"><a/>");
    EXPECT_EQ(window.tvXML.Nodes(1).LastChild().Text(), QStringLiteral("a"));
    EXPECT_EQ(server.Requests(), 0);
}

TEST_F(BadInput, OneLineOfFiftyMegabytes) {
    const QByteArray line = "<a>" + QByteArray(50'000'000, 'x') + "</a>";
    DocumentWindow& window = app.OpenText(QStringLiteral("line.xml"), line);
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Tag().size(), 50'000'000);
    EXPECT_LT(window.tvXML.Nodes(1).Child().Child().Text().size(), 100);
    OpenBad(line + "<");
    EXPECT_EQ(app.prompts.boxes.back().text.size() < 2000, true);
}

TEST_F(BadInput, ServersThatMisbehave) {
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QString nowhere = QStringLiteral("http://127.0.0.1:%1/x.xml").arg(closed.serverPort());
    closed.close();
    test::LoopbackServer server([](const QByteArray& request) -> QByteArray {
        if (request.contains("/early"))
            return "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n<a";
        return request.contains("/500") ? "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n"
                                        : "\x01\x02 noise\r\n\r\n";
    });
    app.prompts.AllowAnyBox(Answer::No);
    for (const QString& url : {nowhere, server.Url(QStringLiteral("/early")),
                               server.Url(QStringLiteral("/500")), server.Url(QStringLiteral("/noise"))}) {
        const std::size_t before = app.prompts.boxes.size();
        app.frame().StatusBar1().SetPanel(1, {});
        app.EnterAddress(url);
        ASSERT_GT(app.prompts.boxes.size(), before) << url.toStdString();
        EXPECT_TRUE(!app.frame().StatusBar1().Panel(1).isEmpty() || app.prompts.boxes.size() > before + 1)
            << url.toStdString() << ": why nothing came";
        EXPECT_TRUE(app.prompts.Texts().last().startsWith(QString::fromLatin1(kBadName)));
        if (url == nowhere) {
            EXPECT_EQ(app.frame().StatusBar1().Panel(1),
                      QStringLiteral("The system cannot locate the resource specified!"));
        }
    }
    ExpectUsable(1);
}

TEST_F(BadInput, AnswersThatHoldNothing) {
    QByteArray body;
    test::LoopbackServer server(
        [&](const QByteArray&) { return "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" + body; });
    const QString url = server.Url(QStringLiteral("/x.xml"));
    for (const QByteArray& blank : {QByteArray("  "), QByteArray("\xEF\xBB\xBF"), QByteArray("\xEF\xBB\xBF "),
                                    QByteArray("\xFF\xFE \0", 4)}) {
        body = blank;
        app.prompts.Answer({Answer::Ok, Answer::No});
        app.EnterAddress(url);
        const QStringList texts = app.prompts.Texts();
        ASSERT_GE(texts.size(), 2) << blank.toPercentEncoding().toStdString();
        EXPECT_EQ(texts[texts.size() - 2], QStringLiteral("It's not a valid request."));
    }
    // Tabs and line ends are a text, though a bad one.
    body = "\t\r\n";
    app.prompts.Answer(Answer::Ok);
    app.EnterAddress(url);
    EXPECT_EQ(app.prompts.boxes.back().title, QStringLiteral("This is not valid XML"));
    ExpectUsable(2);
}

TEST_F(BadInput, ACharsetThatOnlyTheServerNamed) {
    test::LoopbackServer server([](const QByteArray&) {
        return QByteArray(
            "HTTP/1.0 200 OK\r\nContent-Type: text/xml; charset=\"gb2312\"\r\n\r\n<a>\xB1\xB1</a>");
    });
    app.EnterAddress(server.Url(QStringLiteral("/x.xml")));
    EXPECT_EQ(app.window().tvXML.Nodes(1).Child().Child().Tag(), QString::fromUtf8("北"));
    // The file that is made of it can't say so.
    app.prompts.Choose(app.folder.Path(QStringLiteral("copy.xml")));
    app.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("copy.xml")), "<a>\xE5\x8C\x97</a>");
}

TEST_F(BadInput, AServerThatNeverAnswersCanBeCancelled) {
    test::LoopbackServer server(nullptr); // takes the connection and stays silent
    app.progress.cancelAtStep = app.progress.steps + 3;
    app.EnterAddress(server.Url(QStringLiteral("/x.xml")));
    EXPECT_TRUE(app.prompts.boxes.empty()); // who cancels isn't asked anything
    EXPECT_EQ(app.app().CurrentFileName, app.folder.Path(QStringLiteral("bystander.xml")));
    app.progress.cancelAtStep = -1;
    ExpectUsable(1);
}

TEST_F(BadInput, AGoodServerIsRead) {
    test::LoopbackServer server([](const QByteArray& request) {
        if (request.startsWith("GET /moved"))
            return QByteArray("HTTP/1.1 301 Moved\r\nLocation: /x.xml\r\nContent-Length: 0\r\n\r\n");
        return QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: "
                          "13\r\n\r\n<a>\xC3\xA9\xC3\xA9</a>\r\n");
    });
    app.EnterAddress(server.Url(QStringLiteral("/moved")));
    DocumentWindow& window = app.window();
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Child().Tag(), QString::fromUtf8("éé"));
    EXPECT_EQ(app.frame().cmbAddress().Text(), QString()); // the box shows local names
    // An address is never written to: Save asks for a name.
    app.EditText(QStringLiteral("<a>changed</a>"));
    app.prompts.Choose({});
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.prompts.dialogs.size(), 1U);
}

} // namespace
