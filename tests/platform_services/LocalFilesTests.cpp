// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include "tests/platform_services/Folder.h"
#include "tests/support/FullDisk.h"
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>

using services::FileError;
using services::FileResult;

namespace {

class LocalFiles : public testing::Test {
protected:
    test::Folder folder;
    std::unique_ptr<services::FileSystem> files = services::MakeFileSystem();

    FileError ReadError(const QString& path) {
        QByteArray bytes = "old";
        const FileResult result = files->Read(path, bytes);
        EXPECT_EQ(bytes.isEmpty(), !result) << path.toStdString();
        EXPECT_EQ(result.description.isEmpty(), bool(result)) << path.toStdString();
        return result.error;
    }
    void Link(const QString& target, const QString& name) {
        ASSERT_EQ(symlink(QFile::encodeName(target).constData(), folder.Native(name).constData()), 0);
    }
};

} // namespace

TEST_F(LocalFiles, ReadsRegularFilesOnlyAndSaysWhatElseItIs) {
    const QString file = folder.Write(u"a.xml"_qs, "<a/>");
    QByteArray bytes;
    EXPECT_TRUE(files->Read(file, bytes));
    EXPECT_EQ(bytes, "<a/>");
    EXPECT_TRUE(files->Read(folder.Write(u"empty.xml"_qs, ""), bytes));
    EXPECT_EQ(bytes, "");
    EXPECT_TRUE(files->Read(u"/proc/self/status"_qs, bytes)); // says that it is empty and isn't
    EXPECT_TRUE(bytes.contains("Pid:"));

    EXPECT_EQ(ReadError(folder.Path(u"missing.xml"_qs)), FileError::NotFound);
    EXPECT_EQ(ReadError(file + u"/b.xml"_qs), FileError::NotFound);
    EXPECT_EQ(ReadError(folder.Path()), FileError::NotFound);
    EXPECT_EQ(ReadError(QString()), FileError::BadName);
    EXPECT_EQ(ReadError(file + QChar(0) + u"x"_qs), FileError::BadName);
    EXPECT_EQ(ReadError(folder.Path(QString(300, u'x'))), FileError::BadName);
    EXPECT_EQ(ReadError(u"/dev/zero"_qs), FileError::BadName);
    EXPECT_EQ(ReadError(u"/proc/self/mem"_qs), FileError::Other); // reading its beginning fails
    ASSERT_EQ(mkfifo(folder.Native(u"pipe.xml"_qs).constData(), 0644), 0);
    EXPECT_EQ(ReadError(folder.Path(u"pipe.xml"_qs)), FileError::BadName);
    Link(u"circle.xml"_qs, u"circle.xml"_qs);
    EXPECT_EQ(ReadError(folder.Path(u"circle.xml"_qs)), FileError::BadName);
    folder.Write(u"secret.xml"_qs, "<s/>", 0);
    const test::OrdinaryUser user;
    EXPECT_EQ(ReadError(folder.Path(u"secret.xml"_qs)), FileError::Permission);
}

TEST_F(LocalFiles, ReadingTellsHowFarItIsAndCanBeCancelled) {
    const QString path = folder.Write(u"large.xml"_qs, QByteArray(9 << 20, 'x'));
    QByteArray bytes;
    QList<qint64> done;
    EXPECT_TRUE(files->Read(path, bytes, [&](qint64 got, qint64 total) {
        done += got;
        return total == 9 << 20;
    }));
    EXPECT_EQ(done, (QList<qint64>{4 << 20, 8 << 20, 9 << 20}));
    const FileResult result = files->Read(path, bytes, [](qint64 got, qint64) { return got < 8 << 20; });
    EXPECT_EQ(result.error, FileError::Cancelled);
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(LocalFiles, AFileThatChangesUnderTheReadingIsReadToWhereItEnds) {
    const QString path = folder.Write(u"log.xml"_qs, QByteArray(6 << 20, 'x'));
    QByteArray bytes;
    bool first = true;
    EXPECT_TRUE(files->Read(path, bytes, [&](qint64, qint64) {
        if (std::exchange(first, false)) {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::Append));
            file.write(QByteArray(5 << 20, 'y'));
        }
        return true;
    }));
    EXPECT_TRUE(bytes == QByteArray(6 << 20, 'x') + QByteArray(5 << 20, 'y'));
    first = true;
    EXPECT_TRUE(files->Read(path, bytes, [&](qint64, qint64) {
        return !std::exchange(first, false) || QFile::resize(path, 5 << 20);
    }));
    EXPECT_TRUE(bytes == QByteArray(5 << 20, 'x'));
}

TEST_F(LocalFiles, ReplacingKeepsTheAccessRightsAndLeavesNothingBehind) {
    for (const mode_t mode : {0644U, 0600U, 0755U, 0666U, 0200U}) {
        const QString path = folder.Write(u"a.xml"_qs, "<old/>", mode);
        EXPECT_TRUE(files->Replace(path, "<new/>"));
        EXPECT_EQ(folder.Mode(u"a.xml"_qs), mode);
    }
    chmod(folder.Native(u"a.xml"_qs).constData(), 0644);
    EXPECT_EQ(folder.Read(u"a.xml"_qs), "<new/>");
    const mode_t mask = umask(027);
    EXPECT_TRUE(files->Replace(folder.Path(u"b.xml"_qs), ""));
    umask(mask);
    EXPECT_EQ(folder.Mode(u"b.xml"_qs), 0640U);
    EXPECT_EQ(folder.Names(), (QStringList{u"a.xml"_qs, u"b.xml"_qs}));
    const QString longest(255, u'x');
    EXPECT_TRUE(files->Replace(folder.Path(longest), "1"));
    EXPECT_TRUE(files->Replace(folder.Path(longest), "2"));
    EXPECT_EQ(folder.Read(longest), "2");
}

TEST_F(LocalFiles, ReplacingFollowsLinksToTheFileItself) {
    folder.Write(u"real.xml"_qs, "<old/>");
    Link(u"real.xml"_qs, u"near.xml"_qs);
    Link(folder.Path(u"near.xml"_qs), u"far.xml"_qs);
    Link(u"not-yet.xml"_qs, u"dangling.xml"_qs);
    EXPECT_TRUE(files->Replace(folder.Path(u"far.xml"_qs), "<new/>"));
    EXPECT_EQ(folder.Read(u"real.xml"_qs), "<new/>");
    EXPECT_TRUE(files->Replace(folder.Path(u"dangling.xml"_qs), "<made/>"));
    EXPECT_EQ(folder.Read(u"not-yet.xml"_qs), "<made/>");
    for (const auto& link : {u"near.xml"_qs, u"far.xml"_qs, u"dangling.xml"_qs})
        EXPECT_TRUE(QFileInfo(folder.Path(link)).isSymLink()) << link.toStdString();
    Link(u"circle.xml"_qs, u"circle.xml"_qs);
    EXPECT_EQ(files->Replace(folder.Path(u"circle.xml"_qs), "x").error, FileError::BadName);
}

TEST_F(LocalFiles, AFileThatMustNotBeWrittenStaysAsItIs) {
    const QString locked = folder.Write(u"locked.xml"_qs, "<old/>", 0444);
    const FileResult result = files->Replace(locked, "<new/>");
    EXPECT_EQ(result.error, FileError::ReadOnly); // for root too
    EXPECT_EQ(result.description, QString::fromLocal8Bit(std::strerror(EACCES)));
    EXPECT_EQ(folder.Read(u"locked.xml"_qs), "<old/>");
    EXPECT_EQ(files->Replace(folder.Path(), "x").error, FileError::Other);
    EXPECT_EQ(files->Replace(u"/dev/null"_qs, "x").error, FileError::BadName);
    EXPECT_EQ(files->Replace(QString(), "x").error, FileError::BadName);
    EXPECT_EQ(files->Replace(folder.Path(u"no/such/folder.xml"_qs), "x").error, FileError::NotFound);
    EXPECT_EQ(files->Replace(folder.Path(QString(300, u'x')), "x").error, FileError::BadName);
    EXPECT_EQ(folder.Names(), QStringList{u"locked.xml"_qs});
}

TEST_F(LocalFiles, WhatTheUserMayNotWriteIsReadOnly) {
    folder.Write(u"others.xml"_qs, "<old/>", 0644);
    folder.Write(u"all.xml"_qs, "<old/>", 0666);
    const bool wasRoot = geteuid() == 0;
    if (!wasRoot)
        chmod(folder.Native(QString()).constData(), 0555);
    {
        const test::OrdinaryUser user;
        if (wasRoot) {
            EXPECT_EQ(files->Replace(folder.Path(u"others.xml"_qs), "x").error, FileError::ReadOnly);
        }
        // The folder can't be written: no file can be made beside the old one.
        EXPECT_EQ(files->Replace(folder.Path(u"all.xml"_qs), "x").error, FileError::ReadOnly);
        EXPECT_EQ(files->Replace(folder.Path(u"new.xml"_qs), "x").error, FileError::ReadOnly);
    }
    chmod(folder.Native(QString()).constData(), 0755);
    EXPECT_EQ(folder.Read(u"all.xml"_qs), "<old/>");
    EXPECT_EQ(folder.Names().size(), 2);
}

TEST_F(LocalFiles, WhenTheDiskFailsHalfwayTheOldFileStaysWhole) {
    const QString path = folder.Write(u"a.xml"_qs, "<old/>");
    {
        const test::FullDisk disk(100'000);
        EXPECT_EQ(files->Replace(path, QByteArray(300'000, 'x')).error, FileError::Other);
        EXPECT_FALSE(files->Replace(folder.Path(u"new.xml"_qs), QByteArray(300'000, 'x')));
        EXPECT_TRUE(files->Replace(folder.Path(u"small.xml"_qs), QByteArray(100'000, 'x')));
    }
    EXPECT_EQ(folder.Read(u"a.xml"_qs), "<old/>");
    EXPECT_EQ(folder.Names(), (QStringList{u"a.xml"_qs, u"small.xml"_qs}));
}

TEST_F(LocalFiles, CopiesAndDeletesFilesButNotFolders) {
    const QString source = folder.Write(u"source.xml"_qs, "<a/>", 0600);
    EXPECT_TRUE(files->Copy(source, folder.Path(u"copy.xml"_qs)));
    EXPECT_EQ(folder.Read(u"copy.xml"_qs), "<a/>");
    EXPECT_EQ(folder.Mode(u"copy.xml"_qs), 0600U); // what was private stays so
    EXPECT_EQ(files->Copy(folder.Path(u"none.xml"_qs), source).error, FileError::NotFound);
    EXPECT_TRUE(files->Exists(source));
    EXPECT_FALSE(files->Exists(folder.Path()));
    EXPECT_FALSE(files->Delete(folder.Path()));
    EXPECT_TRUE(files->Delete(source));
    EXPECT_FALSE(files->Delete(source));
    EXPECT_FALSE(files->Exists(source));
}

TEST_F(LocalFiles, TheTemporaryFolderIsTheUsersOwnAndComesBackWhenItWasCleared) {
    const QString path = files->TemporaryFolder();
    EXPECT_EQ(files->TemporaryFolder(), path);
    struct stat info {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777U, 0700U);
    EXPECT_TRUE(QDir(path).removeRecursively());
    EXPECT_TRUE(QDir(files->TemporaryFolder()).exists());
    const QString last = files->TemporaryFolder();
    EXPECT_TRUE(files->Replace(last + u"/preview.xml"_qs, "x"));
    files.reset();
    EXPECT_FALSE(QDir(last).exists());
}
