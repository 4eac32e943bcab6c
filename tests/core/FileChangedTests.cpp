// SPDX-License-Identifier: GPL-3.0-or-later
// Another program writes, replaces or removes the file of an open document.
#include "core/edit/FileOnDisk.h"
#include "core/edit/Journal.h"
#include "core/model/NodeKind.h"
#include "tests/support/TestApp.h"
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using services::Answer;
using test::TestApp;

enum { kPutOff = -1, kReload, kKeepMine, kShow };

const QByteArray kOrder = "<order>\n<item>Tea</item>\n<item>Milk</item>\n</order>\n";
const QByteArray kTheirs = "<order>\n<day>Monday</day>\n<item>Tea</item>\n<item>Milk</item>\n</order>\n";
const QString kMine = QStringLiteral("<order>mine</order>");

struct FileChanged : testing::Test {
    TestApp t;
    DocumentWindow& window = t.OpenText(QStringLiteral("order.xml"), kOrder);
    edit::OpenFiles& files = edit::FilesOf(t.app());
    std::size_t& Questions() { return asked = t.prompts.questions.size(); }
    std::size_t asked = 0;

    void TheyWrite(const QByteArray& bytes) { t.folder.Write(QStringLiteral("order.xml"), bytes); }
    QByteArray File() { return t.folder.Read(QStringLiteral("order.xml")); }
    QString Panel() { return t.frame().StatusBar1().Panel(1); }
    void Save() { t.ChooseMenu(QStringLiteral("mnuFileSave")); }
    void Look() { files.tmLook.Tick(); }
    void ComeBack() { ///< the user was in another program
        files.CameToFront(&window);
        Look();
    }
    /// Whether something asks for a look at the files soon.
    bool Noticed() {
        for (const QDeadlineTimer end(5000); !files.tmLook.Enabled() && !end.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return files.tmLook.Enabled();
    }
};

TEST_F(FileChanged, AnUnchangedDocumentIsReloadedAndTheUserStaysWhereTheyAre) {
    t.ClickNode(window.tvXML.Nodes(1).Child().Child().Next());
    const QString path = window.txtXPath.Text();
    ASSERT_EQ(path, QStringLiteral("/order[1]/item[2]"));
    window.rtxtXML.UserSelected(window.rtxtXML.Text().indexOf(QStringLiteral("Milk")), 4);
    TheyWrite(kTheirs);
    t.prompts.AnswerChoice({kReload});
    Look();
    ASSERT_EQ(Questions(), 1U);
    EXPECT_TRUE(t.prompts.questions[0].text.startsWith(window.Caption));
    EXPECT_EQ(t.prompts.questions[0].usual, kReload) << "nothing is lost by it";
    EXPECT_EQ(window.rtxtXML.Text().remove(u'\r').toUtf8(), kTheirs);
    EXPECT_EQ(window.tvXML.Nodes(1).Child().Children(), 3);
    EXPECT_EQ(window.txtXPath.Text(), path);
    EXPECT_EQ(window.rtxtXML.SelText(), QStringLiteral("Milk"));
    EXPECT_FALSE(window.bUnsaved);
    EXPECT_TRUE(t.frame().CloseForm(&window)) << "nothing to ask about";
    EXPECT_EQ(File(), kTheirs);
}

TEST_F(FileChanged, AQuestionOnUnsavedWorkWaitsUntilTheUserComesBack) {
    t.EditText(kMine);
    TheyWrite(kTheirs);
    Look();
    EXPECT_EQ(Questions(), 0U) << "the next key belongs to the text";
    EXPECT_TRUE(Panel().contains(QStringLiteral("changed by another program")));
    t.prompts.AnswerChoice({kShow, kKeepMine});
    ComeBack();
    ASSERT_EQ(Questions(), 2U) << "after the comparison it is asked again";
    EXPECT_EQ(t.prompts.questions[0].usual, kKeepMine);
    ASSERT_EQ(t.prompts.shownTexts.size(), 1);
    EXPECT_TRUE(t.prompts.shownTexts[0].contains(QStringLiteral("- <day>Monday</day>")));
    EXPECT_TRUE(t.prompts.shownTexts[0].contains(QStringLiteral("+ ") + kMine));
    EXPECT_TRUE(window.bUnsaved);
    Save();
    EXPECT_EQ(File(), kMine.toUtf8());
    EXPECT_FALSE(window.bUnsaved);
    ComeBack();
    EXPECT_EQ(Questions(), 2U);
}

TEST_F(FileChanged, SavingWritesOverNothingInSilence) {
    t.EditText(kMine);
    TheyWrite(kTheirs);
    t.prompts.AnswerChoice({kPutOff, kPutOff, kReload});
    Save();
    EXPECT_EQ(File(), kTheirs);
    EXPECT_TRUE(window.bUnsaved);
    t.prompts.Answer(Answer::Yes); // save it
    EXPECT_FALSE(t.frame().CloseForm(&window)) << "the text would be nowhere";
    Save();
    EXPECT_EQ(File(), kTheirs);
    EXPECT_FALSE(window.bUnsaved);
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(window.rtxtXML.Text(), kMine) << "a reload by mistake costs nothing";
    EXPECT_TRUE(window.bUnsaved);
    Save();
    EXPECT_EQ(File(), kMine.toUtf8()) << "their version was seen";
}

TEST_F(FileChanged, ABusyFileAsksOnceForEachComingToTheFront) {
    t.prompts.AnswerChoice({kReload, kKeepMine, kPutOff});
    for (int turn = 1; turn <= 3; ++turn) {
        for (int i = 0; i < 4; ++i) {
            TheyWrite("<log>" + QByteArray::number(turn * 10 + i) + "</log>");
            Look();
        }
        EXPECT_EQ(Questions(), static_cast<std::size_t>(turn));
        files.CameToFront(&window);
    }
    files.mayAsk = [] { return false; }; // another question is open
    ComeBack();
    EXPECT_EQ(Questions(), 3U);
    EXPECT_TRUE(files.tmLook.Enabled()) << "later";
}

TEST_F(FileChanged, OneThatIsGoneLeavesTheDocumentUnsaved) {
    ASSERT_TRUE(QFile::remove(window.Caption));
    Look();
    EXPECT_TRUE(window.bUnsaved);
    EXPECT_TRUE(Panel().contains(QStringLiteral("removed")));
    edit::JournalOf(t.app()).WriteAll();
    t.prompts.Answer(Answer::Yes);
    t.Restart(); // it was killed
    DocumentWindow& back = t.window();
    EXPECT_EQ(back.rtxtXML.Text().remove(u'\r').toUtf8(), kOrder);
    t.prompts.Answer(Answer::Cancel);
    EXPECT_FALSE(t.frame().CloseForm(&back));
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(File(), kOrder);
    EXPECT_FALSE(back.bUnsaved);
    t.folder.Write(QStringLiteral("order.xml"), kTheirs);
    ASSERT_TRUE(QFile::remove(back.Caption));
    edit::FilesOf(t.app()).tmLook.Tick();
    EXPECT_TRUE(back.bUnsaved);
    t.folder.Write(QStringLiteral("order.xml"), kOrder);
    edit::FilesOf(t.app()).tmLook.Tick();
    EXPECT_FALSE(back.bUnsaved) << "it is there again, as it was";
    EXPECT_TRUE(t.frame().CloseForm(&back));
}

TEST_F(FileChanged, OneThatWasTouchedOrSavedHereIsTheSame) {
    TheyWrite(kOrder);
    ComeBack();
    t.EditText(kMine);
    Save();
    ComeBack();
    const QString copy = t.folder.Path(QStringLiteral("copy.xml"));
    t.prompts.Choose(copy);
    t.ChooseMenu(QStringLiteral("mnuFileSaveAs"));
    TheyWrite(kTheirs); // it isn't this document's any more
    ComeBack();
    EXPECT_EQ(Questions(), 0U);
    EXPECT_TRUE(t.prompts.boxes.empty());
}

// Renamed, with No at the question on replacing.
TEST_F(FileChanged, AnotherDocumentsFileIsNotSavedOverWithoutAQuestion) {
    const QString other = t.folder.Write(QStringLiteral("other.xml"), "<other/>");
    t.ClickNode(window.tvXML.Nodes(1));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    t.prompts.Answer(Answer::No);
    window.tvXML.EndLabelEdit(other);
    ASSERT_EQ(window.Caption, other);
    ComeBack();
    t.EditText(kMine);
    t.prompts.Answer({Answer::No, Answer::Yes});
    Save();
    EXPECT_EQ(t.folder.Read(QStringLiteral("other.xml")), "<other/>");
    EXPECT_EQ(t.prompts.boxes.back().text,
              other + QStringLiteral(" already exists. Do you want to replace it?"));
    Save();
    EXPECT_EQ(t.folder.Read(QStringLiteral("other.xml")), kMine.toUtf8());
}

// The file was written again after the program was killed.
TEST_F(FileChanged, WorkThatComesBackAsksBeforeItGoesOverANewerFile) {
    t.EditText(kMine);
    edit::JournalOf(t.app()).WriteAll();
    QFile file(window.Caption);
    TheyWrite(kTheirs);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    file.close();
    t.prompts.Answer(Answer::Yes);
    t.Restart();
    t.prompts.AnswerChoice({kPutOff});
    Save();
    EXPECT_EQ(File(), kTheirs);
}

TEST_F(FileChanged, IsNoticedHoweverItIsDone) {
    const auto settle = [&] { // what belongs to an earlier step has come
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        Look();
    };
    t.prompts.AnswerChoice({kReload, kReload});
    TheyWrite(kTheirs); // in place
    EXPECT_TRUE(Noticed());
    ComeBack();
    settle();
    const QString beside = t.folder.Write(QStringLiteral("beside.tmp"), kOrder);
    settle();
    ASSERT_EQ(rename(beside.toLocal8Bit().constData(), window.Caption.toLocal8Bit().constData()), 0);
    EXPECT_TRUE(Noticed()) << "a file that takes its name";
    ComeBack();
    EXPECT_EQ(window.rtxtXML.Text().remove(u'\r').toUtf8(), kOrder);
    settle();
    TheyWrite(kTheirs);
    EXPECT_TRUE(Noticed()) << "and is written to";
    settle();
    ASSERT_TRUE(QFile::remove(window.Caption));
    EXPECT_TRUE(Noticed());
    Look();
    EXPECT_TRUE(window.bUnsaved);
    EXPECT_EQ(Questions(), 2U);
}

} // namespace
