// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Controls.h"
#include "platform/text/Fault.h"
#include <gtest/gtest.h>

namespace {

using namespace controls;

TEST(SmallControls, AChosenEntryStaysChosenAndTypingEndsIt) {
    ComboBox box;
    box.AddItem(QStringLiteral("UTF-8"));
    box.AddItem(QStringLiteral("UTF-16"));
    box.UserChose(1);
    box.AddItem(QStringLiteral("ASCII"), 0);
    EXPECT_EQ(box.ListIndex(), 2);
    box.SetListIndex(3);
    EXPECT_EQ(box.Text(), QStringLiteral("UTF-16"));
    box.UserTyped(QStringLiteral("UTF"));
    EXPECT_EQ(box.ListIndex(), -1);
}

TEST(SmallControls, TabsAndPanelsAnnounceAnotherValueOnly) {
    TabStrip tabs;
    tabs.SetTabs({{QStringLiteral("listview"), QString()}, {QStringLiteral("textview"), QString()}});
    QStringList clicks;
    tabs.Click.connect([&] { clicks << tabs.SelectedKey(); });
    tabs.Select(QStringLiteral("listview"));
    tabs.Select(QStringLiteral("textview"));
    EXPECT_EQ(clicks, QStringList{QStringLiteral("textview")});
    EXPECT_THROW(tabs.Select(QStringLiteral("browser")), text::Fault);

    StatusBar bar;
    int told = 0;
    bar.changed.connect([&](int panel) { told += panel; });
    bar.SetPanel(2, QStringLiteral("Ln 1"));
    bar.SetPanel(2, QStringLiteral("Ln 1"));
    EXPECT_EQ(told, 2);
    EXPECT_THROW(bar.SetPanel(3, QString()), text::Fault);
}

} // namespace
