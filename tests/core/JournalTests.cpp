// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Journal.h"
#include "core/model/Frame.h"
#include "platform/services/RealServices.h"
#include "tests/support/FullDisk.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TempFolder.h"
#include <QDir>
#include <QFileInfo>
#include <deque>
#include <gtest/gtest.h>
#include <random>

using edit::Journal;
using edit::Orphan;
using test::FullDisk;

namespace {

const QByteArray kNotes =
    "<notes>\r\n  <note day=\"1\">one</note>\r\n  <note day=\"2\">two</note>\r\n</notes>";

/// What a program that starts now finds, with the journals as they are on the disk.
struct NextRun {
    explicit NextRun(Application& app) : journal(app, store.get()) {}
    std::vector<Orphan> Orphans(const QList<QByteArray>& journals) {
        for (int i = 0; i < journals.size(); ++i)
            folder.Write(QString::number(i) + QStringLiteral(".journal"), journals[i]);
        return journal.Orphans();
    }
    test::TempFolder folder;
    std::unique_ptr<services::JournalStore> store = services::MakeJournalStore(folder.Path({}));
    Journal journal;
};

/// A run with one window, and its journals in a folder of the test's.
struct Desk {
    test::ScriptedPrompts prompts;
    test::ScriptedProgress progress;
    test::MemoryClipboard clipboard;
    test::TempFolder folder;
    std::unique_ptr<services::SettingsStore> settings =
        services::MakeIniSettings(folder.Path("settings.ini"));
    std::unique_ptr<services::FileSystem> files = services::MakeFileSystem();
    std::unique_ptr<services::HttpClient> http = services::MakeHttpClient();
    std::unique_ptr<services::Clock> clock = services::MakeClock();
    std::unique_ptr<services::JournalStore> store = services::MakeJournalStore(folder.Path("journal"));
    Application app{services::Services{prompts, progress, *settings, *files, *http, *clock, clipboard}};
    Journal journal{app, store.get()};
    WindowKind kind{QStringLiteral("frmXMLEdit"), QStringLiteral(".xml"), false, true, {}};
    DocumentWindow window{app, kind};
    std::deque<NextRun> runs;

    explicit Desk(const QByteArray& bytes = kNotes) {
        const text::Decoded decoded = text::Decode(bytes);
        window.SetCaption(QStringLiteral("/home/u/notes.xml"));
        window.fileForm = decoded.form;
        window.rtxtXML.SetText(decoded.text);
        window.bLoaded = true;
        journal.Watch(window);
        journal.mostMilliseconds = 1000;
    }
    QString Text() const { return window.rtxtXML.Text(); }
    void Type(qsizetype at, qsizetype removed, const QString& text) {
        window.rtxtXML.UserReplaced(at, removed, text);
    }
    QList<QByteArray> Journals() const {
        QList<QByteArray> all;
        for (const QString& name : QDir(folder.Path("journal")).entryList(QDir::Files))
            all << folder.Read("journal/" + name);
        return all;
    }
    /// The run ends here and now; what the next one finds.
    std::vector<Orphan> Crash() { return runs.emplace_back(app).Orphans(Journals()); }
};

QByteArray Saved(const FetchedText& text) {
    return text::Encode(text.text.toString(), text.form).bytes;
}

} // namespace

TEST(Journal, WhereverTheFileBreaksOffATextOfATickComesBack) {
    Desk desk;
    desk.journal.Tick();
    EXPECT_TRUE(desk.Journals().isEmpty()) << "nothing has changed";
    std::mt19937 random(3);
    const QStringList pieces{QStringLiteral("x"),        QString(),
                             QStringLiteral("文具\r\n"), QString::fromUcs4(U"😀"),
                             QString(QChar(0xD83D)),     QStringLiteral("<a b=\"é\">")};
    QStringList texts;
    for (int tick = 0; tick < 25; ++tick) {
        for (auto edits = random() % 3; edits > 0; --edits) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(desk.Text().size()));
            desk.Type(at, static_cast<qsizetype>(random() % 4),
                      pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))]);
        }
        if (tick == 12)
            desk.window.SetCaption(QStringLiteral("/home/u/renamed.xml"));
        desk.journal.Tick();
        texts << desk.Text();
    }
    ASSERT_EQ(desk.Journals().size(), 1);
    const QByteArray whole = desk.Journals()[0];
    NextRun next(desk.app);
    qsizetype reached = -1; // the tick that came back last
    qsizetype empty = 0;
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const std::vector<Orphan> orphans = next.Orphans({whole.first(size)});
        if (orphans.empty()) {
            ASSERT_EQ(reached, -1);
            empty = size;
            size += 6; // each is removed, which waits for the disk
            continue;
        }
        const qsizetype tick = texts.indexOf(orphans[0].text.toString(), std::max<qsizetype>(reached, 0));
        ASSERT_GE(tick, std::max<qsizetype>(reached, 0)) << size;
        reached = tick;
    }
    EXPECT_LT(empty, 600) << "name, form and the whole text, no more";
    EXPECT_EQ(texts[reached], texts.last());
    const std::vector<Orphan> orphans = desk.Crash();
    EXPECT_EQ(orphans.at(0).text.toString(), desk.Text());
    EXPECT_EQ(orphans[0].name, QStringLiteral("/home/u/renamed.xml"));
    EXPECT_EQ(orphans[0].kind, desk.kind.Name);
}

TEST(Journal, ADocumentTakenBackIsWrittenAsItsFileWas) {
    const QByteArray latin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xe9</a>\n";
    const QByteArray marked = "\xef\xbb\xbf<a>\r<b/>\r</a>";
    const QByteArray mixed = "<a>\n<b/>\r\n<c/>\r<d/>\r\n<e/>\n</a>\n";
    const QByteArray spoiled = "<a>\xc3\xa9\xff and so on</a>\n";
    for (const QByteArray& bytes : {latin, marked, mixed, spoiled}) {
        Desk desk(bytes);
        const qsizetype end = desk.Text().lastIndexOf(u'<');
        for (const auto& [at, removed] : {std::pair{end, 0}, {end - 9, 4}, {end - 10, 0}}) {
            desk.Type(at, removed, QStringLiteral("new\r\n"));
            desk.journal.Tick();
            FetchedText live(desk.window.rtxtXML.Long());
            live.form = desk.window.fileForm;
            const auto orphans = desk.Crash();
            ASSERT_EQ(orphans.size(), 1U);
            FetchedText taken = Journal::TakeBack(orphans[0]);
            EXPECT_EQ(Saved(taken), Saved(live)) << Saved(live).toStdString();
            taken.form.lineEnds.loadedText = taken.text; // as a window does that takes it
            EXPECT_EQ(Saved(taken), Saved(live));
        }
    }
}

// A large document would hold the user up: a tick writes a part of it.
TEST(Journal, ALargeTextIsWrittenInPartsAndCountsWhenItIsWhole) {
    Desk desk;
    desk.journal.mostMilliseconds = 0;
    desk.Type(0, 0, QString(1'300'000, u'a') + QString(500'000, u'文'));
    const QString first = desk.Text();
    desk.journal.tmJournal.Tick();
    desk.Type(0, 1, {});
    EXPECT_TRUE(desk.journal.tmJournalOn.Enabled());
    EXPECT_TRUE(desk.Crash().empty()) << "not whole yet";
    for (int i = 0; i < 3; ++i)
        desk.journal.tmJournalOn.Tick();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), first);
    desk.journal.tmJournalOn.Tick();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), desk.Text());
    desk.journal.tmJournalOn.Tick();
    EXPECT_FALSE(desk.journal.tmJournalOn.Enabled());

    const QString second = desk.Text();
    desk.Type(0, second.size(), QString(1'200'000, u'b'));
    desk.journal.Tick();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), second);
    desk.journal.WriteAll();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), desk.Text());

    // Whole texts in the place of each other don't pile up for ever.
    for (int i = 0; i < 50; ++i) {
        desk.Type(0, desk.Text().size(), QString(1'000'000, QChar('a' + i % 2)));
        desk.journal.WriteAll();
    }
    ASSERT_EQ(desk.Journals().size(), 1);
    EXPECT_LT(desk.Journals()[0].size(), 25'000'000);
    EXPECT_EQ(desk.Crash().at(0).text.toString(), desk.Text());
}

TEST(Journal, GoesWithWhatIsSavedAndStaysWithWhatIsNot) {
    Desk desk;
    const QString opened = desk.Text();
    desk.Type(0, 0, QStringLiteral("1"));
    desk.journal.Tick();
    EXPECT_EQ(desk.Crash().size(), 1U);
    EXPECT_TRUE(desk.journal.Orphans().empty()) << "its own run goes on";
    desk.journal.Forget(desk.window);
    desk.journal.Tick();
    EXPECT_TRUE(desk.Crash().empty());

    desk.Type(0, 0, QStringLiteral("2"));
    desk.journal.Tick();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), QStringLiteral("21") + opened);
    desk.Type(0, 1, {});
    desk.journal.Tick();
    EXPECT_TRUE(desk.Journals().isEmpty()) << "as it was saved again";

    // It was told that it is saved, but the disk didn't take it: nothing asks when the window closes.
    desk.Type(0, 0, QStringLiteral("3"));
    desk.app.windowClosed(desk.window);
    EXPECT_FALSE(desk.journal.tmJournal.Enabled());
    auto orphans = desk.journal.Orphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans[0].text.toString(), QStringLiteral("31") + opened);
    Journal::Drop(std::move(orphans[0]));
    EXPECT_TRUE(desk.Journals().isEmpty());
}

TEST(Journal, AWindowGoesOnWithTheJournalOfWhatItTookBack) {
    Desk first;
    first.Type(0, 0, QStringLiteral("typed "));
    first.journal.Tick();
    const QList<QByteArray> left = first.Journals();

    Desk second;
    NextRun next(second.app);
    auto orphans = next.Orphans(left);
    ASSERT_EQ(orphans.size(), 1U);
    second.window.rtxtXML.SetText(Journal::TakeBack(orphans[0]).text);
    second.window.bond.msOpenText = second.window.rtxtXML.Long();
    next.journal.Adopt(second.window, std::move(orphans[0]));
    EXPECT_TRUE(second.window.bond.msOpenText.isEmpty()) << "closing it asks";
    next.journal.Tick();
    EXPECT_EQ(next.folder.Read("0.journal"), left[0]) << "all of it is there";
    EXPECT_TRUE(next.journal.Orphans().empty());
    second.window.rtxtXML.UserReplaced(0, 0, QStringLiteral("more "));
    next.journal.Tick();
    EXPECT_TRUE(next.folder.Read("0.journal").startsWith(left[0]));
    NextRun third(second.app);
    EXPECT_EQ(third.Orphans({next.folder.Read("0.journal")}).at(0).text.toString(), second.Text());
    next.journal.Forget(second.window);
    EXPECT_FALSE(next.folder.Has("0.journal"));
}

TEST(Journal, AFullDiskIsToldOnceAndCostsNothing) {
    Desk desk;
    const auto told = [&desk] { return desk.app.frame().StatusBar1().Panel(1); };
    {
        const FullDisk full(250); // enough for what comes before the text
        desk.Type(0, 0, QString(200, u'x'));
        desk.journal.Tick();
        EXPECT_TRUE(desk.Journals().isEmpty()) << "what can't be whole doesn't stay";
        EXPECT_TRUE(told().startsWith(QStringLiteral("Unsaved changes can't be kept")))
            << told().toStdString();
        desk.app.frame().StatusBar1().SetPanel(1, {});
        for (int i = 0; i < 100; ++i)
            desk.journal.Tick();
        EXPECT_EQ(told(), QString());
    }
    for (int i = 0; i < 40; ++i)
        desk.journal.Tick();
    const QString before = desk.Text();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), before) << "there is room again";
    {
        const FullDisk full(1000);
        desk.Type(0, 0, QString(5000, u'y'));
        desk.journal.Tick();
        EXPECT_EQ(desk.Crash().at(0).text.toString(), before);
    }
    for (int i = 0; i < 40; ++i)
        desk.journal.Tick();
    EXPECT_EQ(desk.Crash().at(0).text.toString(), desk.Text());
    EXPECT_EQ(told(), QString());

    Journal none(desk.app, nullptr);
    none.Watch(desk.window);
    none.Tick();
    EXPECT_TRUE(none.Orphans().empty());
}
