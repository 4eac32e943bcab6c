// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListView.h"
#include "platform/text/Fault.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace controls;

TEST(ListView, RandomChangesKeepKeysAndIndexesTogether) {
    std::mt19937 random(5);
    ListView list;
    QStringList plain;
    for (int i = 0; i < 50; ++i)
        plain += QStringLiteral("<1>%1").arg(i);
    list.Fill(
        50, [keys = plain](std::uint32_t i) { return ListItem{keys[i], {}, 1, 1, {}, {}}; },
        [keys = plain](const QString& key) { return qint64{keys.indexOf(key)}; });
    for (int step = 50; step < 3000; ++step) {
        if (!plain.isEmpty() && random() % 2 == 0) {
            const auto at = static_cast<int>(random() % static_cast<unsigned>(plain.size()));
            list.Remove(at + 1);
            EXPECT_EQ(list.IndexOf(plain.takeAt(at)), 0);
        } else {
            plain += QStringLiteral("<1>%1").arg(step);
            EXPECT_EQ(list.Add(plain.back(), QString(), 1), plain.size());
        }
        ASSERT_EQ(list.Count(), plain.size());
        for (int i = 0; i < plain.size(); i += 7) {
            ASSERT_EQ(list.Item(i + 1).Key, plain[i]);
            ASSERT_EQ(list.IndexOf(plain[i]), i + 1);
        }
    }
}

TEST(ListView, TheCurrentRowStaysWithItsItem) {
    ListView list;
    for (const QString& key : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
        list.Add(key, key, 1);
    int told = 0;
    list.selectionChanged.connect([&] { ++told; });
    list.SetSelectedItem(2);
    list.SetSelectedItem(2);
    EXPECT_TRUE(list.Selected(2));
    EXPECT_EQ(told, 1);
    list.Remove(1);
    EXPECT_EQ(list.Item(list.SelectedItem()).Key, QStringLiteral("b"));
    list.ClearSelected();
    EXPECT_FALSE(list.Selected(1));
    EXPECT_EQ(list.SelectedItem(), 1) << "the current row needn't be a selected one";
    list.Remove(1);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(told, 3);
}

TEST(ListView, MisuseThrowsAndUpdatesAnnounceAResetOnly) {
    ListView list;
    QStringList log;
    list.aboutToReset.connect([&] { log << QStringLiteral("reset"); });
    list.reset.connect([&] { log << QStringLiteral("done"); });
    list.inserted.connect([&](int row) { log << QStringLiteral("inserted %1").arg(row); });
    list.removed.connect([&](int row) { log << QStringLiteral("removed %1").arg(row); });
    list.changed.connect([&](int row) { log << QStringLiteral("changed %1").arg(row); });
    list.Add(QStringLiteral("a"), QStringLiteral("id"), 2, QStringLiteral("12"));
    list.SetSubItem(1, 1, QStringLiteral("12"));
    list.SetSubItem(1, 2, QStringLiteral("x"));
    list.Remove(1);
    list.BeginUpdate();
    list.Add(QStringLiteral("a"), QString(), 1);
    list.SetText(1, QStringLiteral("b"));
    list.Clear();
    list.Add(QStringLiteral("b"), QString(), 1);
    list.EndUpdate();
    EXPECT_EQ(log.join(u','), QStringLiteral("inserted 0,changed 1,removed 0,reset,done"));

    auto fault = [](auto act) {
        try {
            act();
        } catch (const text::Fault& thrown) {
            return thrown.Number;
        }
        return 0;
    };
    EXPECT_EQ(fault([&] { list.Add(QStringLiteral("b"), QString(), 1); }), text::kFaultKeyNotUnique);
    EXPECT_EQ(fault([&] { list.Item(QStringLiteral("a")); }), text::kFaultNotFound);
    EXPECT_EQ(fault([&] { list.SetSelectedItem(2); }), text::kFaultOutOfBounds);
    EXPECT_EQ(list.Count(), 1);
}

TEST(ListView, RowsAreFoundByKeyWhileThousandsGo) {
    ListView list;
    for (int i = 0; i < 400'000; ++i)
        list.Add(QStringLiteral("<1>%1").arg(i), QStringLiteral("item"), 1);
    for (int i = 0; i < 399'990; ++i)
        list.Remove(list.IndexOf(QStringLiteral("<1>%1").arg(i)));
    EXPECT_EQ(list.Item(1).Key, QStringLiteral("<1>399990"));
    EXPECT_EQ(list.IndexOf(QStringLiteral("<1>399999")), 10);
}

} // namespace
