// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApp.h"
#include <QFile>
#include <gtest/gtest.h>

namespace {

using test::TestApp;

const QString kSection = QStringLiteral("Recent Files");

/// The names in the store, in the order of their keys, without gaps.
QStringList InStore(TestApp& t) {
    QStringList names;
    for (int i = 1; i <= 6; ++i)
        names << t.settings().Get(kSection, QStringLiteral("RecentFile%1").arg(i));
    while (!names.isEmpty() && names.back().isEmpty())
        names.removeLast();
    return names;
}

QStringList InMenu(TestApp& t) {
    QStringList names;
    for (int i = 1; i <= 4; ++i) {
        const controls::MenuItem& item = t.frame().Menu(QStringLiteral("mnuFileMRU"), i);
        if (item.Visible())
            names << item.Caption();
    }
    return names;
}

QStringList Letters(const char* letters) {
    QStringList names;
    for (const char* letter = letters; *letter; ++letter)
        names << QStringLiteral("/home/ann/%1.xml").arg(QLatin1Char(*letter));
    return names;
}

TEST(RecentFiles, TheNewestComesFirstAndAKnownOneMovesUp) {
    struct Case {
        const char* closed; ///< files in the order in which they were closed
        const char* store;
        const char* menu;
    };
    const Case cases[] = {
        {"", "", ""},
        {"a", "a", "a"},
        {"ab", "ba", "ba"},
        {"aa", "a", "a"},
        {"abcd", "dcba", "dcba"},
        {"abcde", "edcba", "edcb"}, // the fifth is kept, not shown
        {"abcb", "bca", "bca"},
        {"abcda", "adcb", "adcb"},
        {"abcdec", "cedba", "cedb"},
        {"abA", "Aba", "Aba"}, // another case is another file
    };
    for (const Case& c : cases) {
        TestApp t;
        for (const QString& name : Letters(c.closed))
            t.frame().UpdateFileMenu(name);
        EXPECT_EQ(InStore(t), Letters(c.store)) << c.closed;
        EXPECT_EQ(InMenu(t), Letters(c.menu)) << c.closed;
        t.Restart();
        EXPECT_EQ(InMenu(t), Letters(c.menu)) << c.closed << " after a restart";
    }
}

TEST(RecentFiles, EqualNeighboursInTheStoreAreShownOnce) {
    TestApp t;
    const QStringList stored = Letters("aaba");
    for (int i = 0; i < stored.size(); ++i)
        t.settings().Save(kSection, QStringLiteral("RecentFile%1").arg(i + 1), stored[i]);
    t.Restart();
    EXPECT_EQ(InMenu(t), Letters("aba"));
    EXPECT_EQ(t.frame().cmbAddress().Items(), stored);
    EXPECT_EQ(t.frame().cmbAddress().Text(), QString());
}

TEST(RecentFiles, ANameTakenOutOfTheFileStaysInTheMenuUntilTheNextStart) {
    TestApp t;
    for (const QString& name : Letters("cba"))
        t.frame().UpdateFileMenu(name);
    t.folder.Write(QStringLiteral("settings.ini"), "[Recent Files]\nRecentFile1=/home/ann/b.xml\n");
    t.frame().GetRecentFiles();
    EXPECT_EQ(InMenu(t), Letters("bbc")); // only the first entry was reached
    t.Restart();
    EXPECT_EQ(InMenu(t), Letters("b"));
}

TEST(RecentFiles, ClosingAWindowFilesItsNameAndOpeningDoesNot) {
    TestApp t;
    const QString path = t.OpenText(QStringLiteral("a.xml"), "<a/>").Caption;
    EXPECT_EQ(InStore(t), QStringList());
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(InStore(t), QStringList(path));
    EXPECT_TRUE(t.frame().cmbAddress().Items().contains(path));
    t.ChooseMenu(QStringLiteral("mnuFileMRU"), 1);
    EXPECT_EQ(t.window().Caption, path);
    t.ChooseMenu(QStringLiteral("mnuFileClose"));

    t.ChooseMenu(QStringLiteral("mnuFileNew")); // a name that is no file isn't filed
    t.prompts.Answer(services::Answer::No);     // not to be saved
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(InStore(t), QStringList(path));
}

TEST(RecentFiles, OneThatIsGoneIsToldOfAsAnyMissingFileAndTheDocumentInHandStays) {
    TestApp t;
    const QString gone = t.OpenText(QStringLiteral("gone.xml"), "<a/>").Caption;
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    QFile::remove(gone);
    const QString open = t.OpenText(QStringLiteral("open.xml"), "<b/>").Caption;

    t.prompts.Answer({services::Answer::Ok, services::Answer::No});
    t.ChooseMenu(QStringLiteral("mnuFileMRU"), 1);
    const QStringList told = t.prompts.Texts();
    EXPECT_EQ(told.value(0), QStringLiteral("Can not find ") + gone);
    EXPECT_EQ(t.frame().FormCount(), 1);
    EXPECT_EQ(t.window().Caption, open);
    EXPECT_EQ(t.app().CurrentFileName, open);
    EXPECT_EQ(InMenu(t), QStringList(gone));

    t.prompts.boxes.clear();
    t.prompts.Answer({services::Answer::Ok, services::Answer::No});
    t.EnterAddress(gone);
    EXPECT_EQ(t.prompts.Texts(), told);
}

// The menu then shows what the store held some time ago.
TEST(RecentFiles, TwoProgramsOnOneStoreLoseNoName) {
    TestApp t;
    for (const QString& name : Letters("ba"))
        t.frame().UpdateFileMenu(name);
    const QStringList other = Letters("cab"); // another program closes c
    for (int i = 0; i < other.size(); ++i)
        t.settings().Save(kSection, QStringLiteral("RecentFile%1").arg(i + 1), other[i]);
    t.frame().UpdateFileMenu(Letters("b")[0]);
    EXPECT_EQ(InStore(t), Letters("bca"));
    EXPECT_EQ(InMenu(t), Letters("bca"));
}

} // namespace
