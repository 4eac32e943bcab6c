// SPDX-License-Identifier: GPL-3.0-or-later
// What the frame does at start: command line, settings and their oddity, the report of faults.
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using test::TestApp;

TEST(Start, CommandLineNamesOneFileWithOrWithoutQuotes) {
    TestApp t;
    const QString path = t.folder.Write(QStringLiteral("a b.xml"), "<a/>");
    for (const QString& pattern : {QStringLiteral("%1"), QStringLiteral("\"%1\""), QStringLiteral("\"%1")}) {
        t.Restart(pattern.arg(path));
        ASSERT_EQ(t.frame().FormCount(), 1) << pattern.toStdString();
        EXPECT_EQ(t.window().Caption, path);
        EXPECT_EQ(t.app().CurrentFileName, path);
    }
    t.Restart();
    EXPECT_EQ(t.frame().FormCount(), 0);
}

struct Stored {
    const char* key;
    const char* value;
    std::function<double(const Options&)> read;
    double expected;
};

TEST(Start, StoredOptionsAreReadAsNumbersAndUnusableOnesGetTheirDefault) {
    const auto nodeText = [](const Options& o) { return double(o.TreeNodeTextShowLength); };
    const auto steps = [](const Options& o) { return double(o.Steps); };
    const auto size = [](const Options& o) { return o.TextSize; };
    const auto slash = [](const Options& o) { return double(o.SlashColor); };
    const std::vector<Stored> cases = {
        // As long as no tool tip length is stored, the tree's length isn't the stored one.
        {"TreeNodeTextShowLength", "30", nodeText, 64},
        {"TreeToolTipShowLength", "40", nodeText, 30},
        {"TreeNodeTextShowLength", "0", nodeText, 16},
        {"TreeNodeTextShowLength", "25 characters", nodeText, 25},
        {"TreeToolTipShowLength", "abc", nodeText, 64},
        {"Steps", "5", steps, 5},
        {"Steps", "99999", steps, 16}, // doesn't fit
        {"TextSize", "-1", size, 10},
        {"TextSize", "12.5", size, 12.5},
        {"SlashColor", "255", slash, 255},
        {"SlashColor", "0", slash, 0x32C832}, // black can't be kept
    };
    TestApp t;
    for (const Stored& stored : cases) {
        t.settings().Save(QStringLiteral("AppInternal"), QLatin1String(stored.key),
                          QLatin1String(stored.value));
        t.Restart();
        EXPECT_EQ(stored.read(t.app().options), stored.expected) << stored.key << "=" << stored.value;
    }
}

TEST(Start, AFaultIsReportedOnlyWithDebugOn) {
    TestApp t;
    const text::Fault fault(35601, QStringLiteral("Element not found"));
    const QString routine = QStringLiteral("mXMLEdit@GetExtName");
    for (const char* off : {"0", "true", "2"}) {
        t.settings().Save(QStringLiteral("AppInternal"), QStringLiteral("Debug"), QLatin1String(off));
        t.Restart();
        t.frame().ErrorReportBox(fault, routine); // a box would fail the test
    }
    t.settings().Save(QStringLiteral("AppInternal"), QStringLiteral("Debug"), QStringLiteral("1"));
    t.Restart();
    t.frame().ErrorReportBox(text::Fault(0, QString()), routine);
    t.prompts.Answer(services::Answer::Ok);
    t.frame().ErrorReportBox(fault, routine);
    ASSERT_EQ(t.prompts.boxes.size(), 1u);
    const test::Box& box = t.prompts.boxes.front();
    EXPECT_EQ(box.text, QStringLiteral("Module name:mXMLEdit@GetExtName\r\nError number:35601\r\n"
                                       "Error des:Element not found\r\n"
                                       "Please contact us by support@orvane.example Thanks!"));
    EXPECT_EQ(box.icon, services::Icon::Information);
    EXPECT_EQ(box.buttons, services::Buttons::Ok);
}

} // namespace
