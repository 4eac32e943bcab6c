// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/JournalFiles.h"
#include "tests/platform_services/Folder.h"

using services::JournalFile;
using services::MakeJournalStore;

namespace {

const QString kJournals = QStringLiteral("state/vantrel/journal");

QList<QByteArray> RecordsOf(JournalFile& file) {
    QList<QByteArray> records;
    EXPECT_TRUE(file.Read([&](const QByteArray& record) {
        records << record;
        return true;
    }));
    return records;
}

} // namespace

TEST(JournalFiles, ARecordIsPrivateAndOutlivesItsProcess) {
    const test::Folder folder;
    const QByteArray old = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", folder.Native(u"state"_qs));
    const auto store = MakeJournalStore();
    old.isNull() ? qunsetenv("XDG_STATE_HOME") : qputenv("XDG_STATE_HOME", old);
    EXPECT_TRUE(store->Orphans().empty());
    EXPECT_EQ(folder.Names(), QStringList()) << "looking makes nothing";

    auto made = store->Make();
    ASSERT_TRUE(made.file) << made.result.description.toStdString();
    EXPECT_TRUE(made.file->Append("one"));
    EXPECT_TRUE(made.file->Append({}));
    EXPECT_TRUE(made.file->Append(QByteArray("\0two", 4)));
    EXPECT_EQ(folder.Mode(kJournals), 0700);
    const QStringList names = QDir(folder.Path(kJournals)).entryList(QDir::Files);
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(folder.Mode(kJournals + u'/' + names[0]), 0600);

    EXPECT_TRUE(MakeJournalStore(folder.Path(kJournals))->Orphans().empty()) << "it has its process";
    made.file.reset();
    auto orphans = store->Orphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_TRUE(store->Orphans().empty()) << "taken already";
    EXPECT_EQ(RecordsOf(*orphans[0]), (QList<QByteArray>{"one", "", QByteArray("\0two", 4)}));
    EXPECT_LT(orphans[0]->Time().secsTo(QDateTime::currentDateTime()), 60);
    orphans[0]->Remove();
    orphans.clear();
    EXPECT_TRUE(store->Orphans().empty());
}

TEST(JournalFiles, WhatIsBrokenEndsTheReadingAndIsWrittenOver) {
    const test::Folder folder;
    const auto store = MakeJournalStore(folder.Path(kJournals));
    {
        const auto made = store->Make();
        for (const char* record : {"first", "second", "third and long"})
            EXPECT_TRUE(made.file->Append(record));
    }
    const QString name = kJournals + u'/' + QDir(folder.Path(kJournals)).entryList(QDir::Files).value(0);
    const QByteArray whole = folder.Read(name);
    const qsizetype second = whole.indexOf("second");
    QByteArray flipped = whole;
    flipped[second] = 'S';
    QByteArray endless = whole;
    endless[second - 21] = '\x7f'; // the highest byte of its length
    // What a power cut may leave of a file that had just grown.
    const QByteArray zeros = whole.first(second - 24) + QByteArray(4000, '\0');
    for (const QByteArray& bytes : {flipped, endless, zeros, whole.first(second + 2)}) {
        folder.Write(name, bytes, 0600);
        {
            const auto orphans = store->Orphans();
            ASSERT_EQ(orphans.size(), 1U);
            EXPECT_EQ(RecordsOf(*orphans[0]), (QList<QByteArray>{"first"}));
            EXPECT_TRUE(orphans[0]->Append("other!"));
        }
        EXPECT_EQ(RecordsOf(*store->Orphans().at(0)), (QList<QByteArray>{"first", "other!"}));
    }
}

// A link planted there would have the program write, or read, somewhere else.
TEST(JournalFiles, LinksAndFoldersOfOthersAreLeftAlone) {
    const test::Folder folder;
    const QString target = folder.Write(u"target"_qs, "mine");
    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"elsewhere"_qs));
    ASSERT_TRUE(QFile::link(folder.Path(u"elsewhere"_qs), folder.Path(u"link"_qs)));
    const auto linked = MakeJournalStore(folder.Path(u"link"_qs));
    EXPECT_FALSE(linked->Make().file);
    EXPECT_TRUE(QDir(folder.Path(u"elsewhere"_qs)).isEmpty());

    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"journals"_qs));
    EXPECT_EQ(chmod(folder.Native(u"journals"_qs).constData(), 0755), 0);
    ASSERT_TRUE(QFile::link(target, folder.Path(u"journals/a.journal"_qs)));
    EXPECT_EQ(
        link(folder.Native(u"target"_qs).constData(), folder.Native(u"journals/b.journal"_qs).constData()),
        0);
    EXPECT_EQ(mkfifo(folder.Native(u"journals/c.journal"_qs).constData(), 0600), 0);
    EXPECT_TRUE(MakeJournalStore(folder.Path(u"journals"_qs))->Orphans().empty());
    EXPECT_EQ(folder.Mode(u"journals"_qs), 0700) << "of this user, but open to others";

    if (geteuid() == 0) {
        EXPECT_EQ(chmod(folder.Native(u"journals"_qs).constData(), 0777), 0);
        const test::OrdinaryUser user;
        EXPECT_FALSE(MakeJournalStore(folder.Path(u"journals"_qs))->Make().file);
        const auto shut = MakeJournalStore(u"/proc/journal"_qs)->Make();
        EXPECT_FALSE(shut.file);
        EXPECT_FALSE(shut.result.description.isEmpty());
    }
}
