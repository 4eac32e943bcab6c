// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include "tests/platform_services/Folder.h"
#include <QLockFile>
#include <thread>

using services::MakeIniSettings;

namespace {

const QString kSection = QStringLiteral("AppInternal");
using Pairs = std::vector<std::pair<QString, QString>>;

} // namespace

TEST(IniSettings, AnyTextComesBackAsItWasSaved) {
    const test::Folder folder;
    const QString path = folder.Path(u"settings.ini"_qs);
    QStringList values = {QString(),
                          u" "_qs,
                          u"  leading and trailing\t "_qs,
                          u"a=b;c#d [e]"_qs,
                          u"[AppInternal]"_qs,
                          u"one\r\ntwo\nthree\r"_qs,
                          u"c:\\new\\readme\\u0041.xml"_qs,
                          u"\\"_qs,
                          u"悔多少步:"_qs,
                          u"\u00a0\u2028"_qs,
                          QString(QChar(0xD800)) + u"x"_qs,
                          QString(QChar(0)) + u"\x7f"_qs,
                          u"\uFEFF"_qs,
                          QString::fromUtf8("😀"),
                          u"\"quoted\""_qs,
                          QString(100'000, u'x')};
    auto store = MakeIniSettings(path);
    for (qsizetype i = 0; i < values.size(); ++i) {
        store->Save(kSection, u"Key%1"_qs.arg(i), values[i]);
    }
    store = MakeIniSettings(path);
    for (qsizetype i = 0; i < values.size(); ++i) {
        EXPECT_EQ(store->Get(kSection, u"Key%1"_qs.arg(i), u"none"_qs), values[i]) << i;
    }
    EXPECT_EQ(store->GetAll(kSection).size(), static_cast<std::size_t>(values.size()));
    EXPECT_EQ(store->Get(u"Other"_qs, u"Key1"_qs, u"fallback"_qs), u"fallback"_qs);
    EXPECT_EQ(store->Get(kSection, u"key1"_qs, u"fallback"_qs), u"fallback"_qs);
}

TEST(IniSettings, AFileWrittenByHandOrOnAnotherSystemIsRead) {
    const test::Folder folder;
    const QString path = folder.Write(
        u"settings.ini"_qs, "\xEF\xBB\xBF[AppInternal]\r\nSteps = 8 \r\nSteps=9\r\n; a=1\r\nno pair\r\n"
                            "[Recent Files]\r\nRecentFile2=c:\\\\a, \"b\";c \\x\\u0020\r\nRecentFile1=@x,1");
    const auto store = MakeIniSettings(path);
    const Pairs recent = {{u"RecentFile1"_qs, u"@x,1"_qs}, {u"RecentFile2"_qs, u"c:\\a, \"b\";c \\x "_qs}};
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(store->Get(kSection, u"Steps"_qs), u"8"_qs);
        EXPECT_EQ(store->GetAll(u"Recent Files"_qs), recent);
        EXPECT_TRUE(store->Save(kSection, u"Debug"_qs, u"1"_qs));
    }
    EXPECT_EQ(store->GetAll(u"Other"_qs), Pairs());
}

TEST(IniSettings, ProgramsThatWriteAtTheSameMomentLoseNothing) {
    const test::Folder folder;
    const QString path = folder.Path(u"settings.ini"_qs);
    constexpr int kKeys = 40;
    const auto write = [&path](QChar name) {
        const auto store = MakeIniSettings(path);
        for (int i = 0; i < kKeys; ++i)
            EXPECT_TRUE(store->Save(QString(name), name + QString::number(i), u"x"_qs));
    };
    std::vector<std::thread> programs;
    for (const QChar name : u"ABC"_qs)
        programs.emplace_back(write, name);
    for (std::thread& program : programs)
        program.join();
    for (const QChar name : u"ABC"_qs)
        EXPECT_EQ(MakeIniSettings(path)->GetAll(QString(name)).size(), std::size_t{kKeys});
}

TEST(IniSettings, AProgramThatNeverLetsGoOfTheFileIsToldOfAndNotWaitedFor) {
    const test::Folder folder;
    const QString path = folder.Write(u"settings.ini"_qs, "[AppInternal]\nSteps=8\n");
    const auto store = MakeIniSettings(path);
    QLockFile other(path + u".lock"_qs);
    ASSERT_TRUE(other.lock());
    const services::FileResult result = store->Save(kSection, u"Steps"_qs, u"9"_qs);
    EXPECT_FALSE(result);
    EXPECT_TRUE(result.description.startsWith(path)) << result.description.toStdString();
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nSteps=8\n");
    other.unlock();
    EXPECT_TRUE(store->Save(kSection, u"Steps"_qs, u"9"_qs));
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nSteps=9\n");
}

TEST(IniSettings, AFileThatIsEmptiedOrGoneMeanwhileIsBegunAnew) {
    const test::Folder folder;
    const QString path = folder.Write(u"settings.ini"_qs, "[AppInternal]\nSteps=8\n");
    const auto store = MakeIniSettings(path);
    EXPECT_EQ(store->Get(kSection, u"Steps"_qs), u"8"_qs);
    folder.Write(u"settings.ini"_qs, "");
    EXPECT_EQ(store->Get(kSection, u"Steps"_qs, u"none"_qs), u"none"_qs);
    EXPECT_TRUE(store->Save(kSection, u"Debug"_qs, u"0"_qs));
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nDebug=0\n");
    QFile::remove(path);
    EXPECT_TRUE(store->Save(kSection, u"Debug"_qs, u"0"_qs));
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nDebug=0\n");
}

TEST(IniSettings, WhatIsNoSettingsFileCountsAsEmptyAndStays) {
    const test::Folder folder;
    const QByteArray log(5 << 20, '\n');
    const QString path = folder.Write(u"settings.ini"_qs, log);
    const auto store = MakeIniSettings(path);
    EXPECT_EQ(store->Get(kSection, u"Steps"_qs, u"none"_qs), u"none"_qs);
    EXPECT_FALSE(store->Save(kSection, u"Steps"_qs, u"9"_qs));
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), log);
    QDir().mkdir(folder.Path(u"folder.ini"_qs));
    EXPECT_FALSE(MakeIniSettings(folder.Path(u"folder.ini"_qs))->Save(kSection, u"Steps"_qs, u"9"_qs));
}

// Or nothing could be read again, and all settings were gone.
TEST(IniSettings, AValueThatMakesTheFileTooLargeIsRefused) {
    const test::Folder folder;
    const QString path = folder.Path(u"settings.ini"_qs);
    ASSERT_TRUE(MakeIniSettings(path)->Save(kSection, u"Steps"_qs, u"9"_qs));
    EXPECT_FALSE(MakeIniSettings(path)->Save(kSection, u"Name"_qs, QString(5 << 20, u'x')));
    EXPECT_EQ(MakeIniSettings(path)->Get(kSection, u"Steps"_qs), u"9"_qs);
}

TEST(IniSettings, ADamagedFileIsReadAsFarAsItGoes) {
    const test::Folder folder;
    QByteArray noise;
    for (int i = 0; i < 5000; ++i)
        noise += static_cast<char>(i * i >> 3);
    const QByteArray whole =
        "[AppInternal]\nSteps=16\nTextName=Courier New\nnote=\\u12\n[Recent Files]\nRecentFile1=/a.xml\n";
    for (const QByteArray& bytes :
         {noise, whole + noise, QByteArray("[\n]\n[]\n=\n=x\n\\\n"), QByteArray(9, '\0')}) {
        const auto store = MakeIniSettings(folder.Write(u"settings.ini"_qs, bytes));
        store->Save(kSection, u"Added"_qs, u"yes"_qs);
        EXPECT_EQ(store->Get(kSection, u"Added"_qs), u"yes"_qs);
        EXPECT_EQ(MakeIniSettings(folder.Path(u"settings.ini"_qs))->Get(kSection, u"Added"_qs), u"yes"_qs);
        if (bytes.startsWith(whole)) {
            EXPECT_EQ(store->Get(kSection, u"Steps"_qs), u"16"_qs);
        }
    }
    for (qsizetype length = 0; length < whole.size(); ++length) {
        // Each in a file of its own: what follows within a millisecond in the same size isn't seen.
        const auto store = MakeIniSettings(folder.Write(QString::number(length), whole.first(length)));
        EXPECT_EQ(store->Get(kSection, u"Steps"_qs, u"16"_qs).left(1), length == 20 ? QString() : u"1"_qs)
            << length;
        store->Save(kSection, u"Steps"_qs, u"9"_qs);
        EXPECT_EQ(store->Get(kSection, u"Steps"_qs), u"9"_qs) << length;
    }
}

TEST(IniSettings, FailuresToWriteNameTheFileAndLeaveItWhole) {
    const test::Folder folder;
    const QString path = folder.Write(u"settings.ini"_qs, "[AppInternal]\nSteps=8\n", 0444);
    const auto store = MakeIniSettings(path);
    const services::FileResult result = store->Save(kSection, u"Steps"_qs, u"9"_qs);
    EXPECT_EQ(result.error, services::FileError::ReadOnly);
    EXPECT_TRUE(result.description.startsWith(path)) << result.description.toStdString();
    EXPECT_TRUE(store->Save(kSection, u"Steps"_qs, u"8"_qs)); // stands there already
    EXPECT_EQ(store->Get(kSection, u"Steps"_qs), u"8"_qs);
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nSteps=8\n");
    const auto nowhere = MakeIniSettings(u"/proc/none/settings.ini"_qs);
    EXPECT_FALSE(nowhere->Save(kSection, u"Steps"_qs, u"9"_qs));
    EXPECT_EQ(nowhere->Get(kSection, u"Steps"_qs, u"16"_qs), u"16"_qs);
}

TEST(IniSettings, AFileThatCanNotBeReadIsNotWrittenOver) {
    const test::Folder folder;
    const QString path = folder.Write(u"settings.ini"_qs, "[AppInternal]\nSteps=8\n", 0222);
    chmod(folder.Native(QString()).constData(), 0777);
    {
        const test::OrdinaryUser user;
        const auto store = MakeIniSettings(path);
        EXPECT_FALSE(store->Save(kSection, u"Debug"_qs, u"1"_qs));
    }
    chmod(folder.Native(u"settings.ini"_qs).constData(), 0644);
    EXPECT_EQ(folder.Read(u"settings.ini"_qs), "[AppInternal]\nSteps=8\n");
}

TEST(IniSettings, StandsUnderTheUsersConfigurationFolderAndMakesIt) {
    const test::Folder folder;
    const QByteArray old = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", folder.Native(u"config"_qs));
    MakeIniSettings()->Save(kSection, u"Steps"_qs, u"9"_qs);
    old.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", old);
    EXPECT_EQ(folder.Read(u"config/vantrel/vantrel.ini"_qs), "[AppInternal]\nSteps=9\n");
}
