// SPDX-License-Identifier: GPL-3.0-or-later
// The label of the tree root names the document. Whatever is typed there, no file and no text is lost.
#include "tests/support/TestApp.h"
#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using services::Answer;
using test::TestApp;

struct DocumentName : testing::Test {
    TestApp t;

    QString Path(const char* name) { return t.folder.Path(QLatin1String(name)); }
    /// Gives the active document a name as a user does; the name it bears then.
    QString Rename(const QString& name) {
        t.ClickNode(t.window().tvXML.Nodes(1));
        t.ChooseMenu(QStringLiteral("mnuEditName"));
        t.window().tvXML.EndLabelEdit(name);
        return t.window().Caption;
    }
};

TEST_F(DocumentName, OfAnotherWindowIsNotTaken) {
    const QString first = t.OpenText(QStringLiteral("first.xml"), "<first/>").Caption;
    const QString second = t.OpenText(QStringLiteral("second.xml"), "<second/>").Caption;
    t.prompts.Answer(Answer::Ok);
    EXPECT_EQ(Rename(first), second);
    EXPECT_TRUE(t.prompts.boxes.back().text.startsWith(first));
    EXPECT_EQ(t.window().tvXML.Nodes(1).Text(), second);
    EXPECT_EQ(t.app().CurrentFileName, second);
    EXPECT_EQ(t.folder.Read(QStringLiteral("first.xml")), "<first/>");
    EXPECT_EQ(Rename(second), second) << "its own name again is no other window's";
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
}

TEST_F(DocumentName, GivesTheFileACopyUnderIt) {
    const QString old = t.OpenText(QStringLiteral("book.xml"), "<book/>").Caption;
    EXPECT_EQ(Rename(QStringLiteral("x")), old) << "one character is no name";
    EXPECT_EQ(t.window().tvXML.Nodes(1).Text(), old);
    const QString copy = Path("copy.xml");
    EXPECT_EQ(Rename(copy), copy);
    EXPECT_EQ(t.folder.Read(QStringLiteral("copy.xml")) + t.folder.Read(QStringLiteral("book.xml")),
              "<book/><book/>");
    const controls::TreeNode root = t.window().tvXML.Nodes(1);
    for (const QString& name :
         {root.Text(), root.Key(), t.app().CurrentFileName, t.frame().cmbAddress().Text()})
        EXPECT_EQ(name, copy);
    const QString third = t.folder.Write(QStringLiteral("third.xml"), "<mine/>");
    t.prompts.Answer(Answer::No);
    EXPECT_EQ(Rename(third), copy);
    EXPECT_EQ(t.folder.Read(QStringLiteral("third.xml")), "<mine/>");
    const QString address = QStringLiteral("http://example.org/a.xml");
    EXPECT_EQ(Rename(address), address);
    EXPECT_EQ(Rename(root.Child().Key()), address) << "another node's key";
}

TEST_F(DocumentName, OfAFolderPutsTheFileThere) {
    t.OpenText(QStringLiteral("note.xml"), "<note/>");
    ASSERT_EQ(mkdir(Path("sub").toLocal8Bit().constData(), 0700), 0);
    EXPECT_EQ(Rename(Path("sub/")), Path("sub/note.xml"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("sub/note.xml")), "<note/>");
}

// Nothing can be copied then; saving under the new name would replace the file without another question.
TEST_F(DocumentName, OfAnExistingFileIsTakenByANewDocumentOnlyIfTheUserAgrees) {
    const QString other = t.folder.Write(QStringLiteral("other.xml"), "<other/>");
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    const QString made = t.window().Caption;
    t.prompts.Answer({Answer::No, Answer::Yes});
    EXPECT_EQ(Rename(other), made);
    EXPECT_EQ(t.prompts.boxes[0].text, other + QStringLiteral(" already exists. Do you want to replace it?"));
    EXPECT_EQ(t.prompts.boxes[0].title, QStringLiteral("Copy file ..."));
    EXPECT_EQ(t.prompts.boxes[0].icon, services::Icon::Question);
    EXPECT_EQ(Rename(other), other);
    EXPECT_EQ(t.folder.Read(QStringLiteral("other.xml")), "<other/>") << "replaced by saving alone";
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_NE(t.folder.Read(QStringLiteral("other.xml")), "<other/>");
}

// Without its file there is nothing on the disk under the new name, though nothing was edited.
TEST_F(DocumentName, OfADocumentWhoseFileIsGoneIsSavedOnDemand) {
    const QString gone = t.OpenText(QStringLiteral("gone.xml"), "<gone/>").Caption;
    QFile::remove(gone);
    EXPECT_EQ(Rename(Path("new.xml")), Path("new.xml"));
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("new.xml")), "<gone/>");
}

TEST_F(DocumentName, ThatTheSystemRefusesIsToldAndNotTaken) {
    const QString name = t.OpenText(QStringLiteral("a.xml"), "<a/>").Caption;
    t.folder.Write(QStringLiteral("locked.xml"), "<locked/>");
    ASSERT_EQ(chmod(Path("locked.xml").toLocal8Bit().constData(), 0444), 0);
    ASSERT_EQ(mkdir(Path("folder").toLocal8Bit().constData(), 0700), 0);
    const QString refused[] = {Path("missing/a.xml"),           Path("folder"),
                               QStringLiteral("/proc/a.xml"),   t.folder.Path(QString(300, u'x')),
                               QString(1'000'000, u'/') + u'x', Path("null") + QChar(0) + u'x'};
    for (const QString& wanted : refused) {
        t.prompts.boxes.clear();
        t.prompts.Answer(Answer::Ok);
        EXPECT_EQ(Rename(wanted), name) << wanted.left(80).toStdString();
        ASSERT_EQ(t.prompts.boxes.size(), 1U);
        EXPECT_EQ(t.prompts.boxes[0].title, QStringLiteral("Copy file ..."));
    }
    t.prompts.boxes.clear();
    t.prompts.Answer({Answer::Yes, Answer::Ok}); // it exists and may not be written
    EXPECT_EQ(Rename(Path("locked.xml")), name);
    EXPECT_EQ(t.folder.Read(QStringLiteral("locked.xml")), "<locked/>");
    // The document works on under its old name.
    t.EditText(QStringLiteral("<a>new</a>"));
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("a.xml")), "<a>new</a>");
}

// A new document has no file to copy: without a look at the folder its text would be lost on saving.
TEST_F(DocumentName, ThatCanNotBeSavedUnderIsNotTakenByANewDocument) {
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    const QString made = t.window().Caption;
    ASSERT_EQ(mkdir(Path("folder").toLocal8Bit().constData(), 0700), 0);
    for (const QString& wanted : {Path("missing/a.xml"), Path("folder"), QStringLiteral("/proc/a.xml")}) {
        t.prompts.Answer(Answer::Ok);
        EXPECT_EQ(Rename(wanted), made) << wanted.toStdString();
        EXPECT_TRUE(t.prompts.boxes.back().text.startsWith(wanted));
    }
    EXPECT_EQ(Rename(Path("kept.xml")), Path("kept.xml"));
    EXPECT_FALSE(QFile::exists(Path("kept.xml"))) << "looking leaves no file";
}

// Nodes are known by keys such as "<3>12", and the root by the document's name.
TEST_F(DocumentName, InTheShapeOfANodesKeyIsStillTheDocuments) {
    for (const char* shape : {"<3>77", "<1>77", "<7>77", "n<1>b.xml", "n<3>b.xml"}) {
        SCOPED_TRACE(shape);
        t.OpenText(QStringLiteral("shapes.xml"), "<book><!--x--><page/></book>");
        ASSERT_EQ(Rename(QLatin1String(shape)), QLatin1String(shape));
        DocumentWindow& w = t.window();
        t.ClickNode(w.tvXML.Nodes(1).Child());
        t.ChooseMenu(QStringLiteral("mnuEditName"));
        w.tvXML.EndLabelEdit(QStringLiteral("novel"));
        EXPECT_EQ(w.rtxtXML.Text(), QStringLiteral("<novel>\r\n<!-- x-->\r\n\t<page></page>\r\n</novel>"));
        const QString saved = t.folder.Path(QStringLiteral("saved-") + QLatin1String(shape));
        EXPECT_EQ(Rename(saved), saved) << "it can be given another one";
        t.ChooseMenu(QStringLiteral("mnuFileSave"));
        EXPECT_TRUE(t.folder.Read(QStringLiteral("saved-") + QLatin1String(shape)).contains("<novel>"));
        t.ChooseMenu(QStringLiteral("mnuFileClose"));
    }
}

} // namespace
