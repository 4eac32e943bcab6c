// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListView.h"
#include "platform/text/Fault.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace controls;

TEST(List, random_inserts_and_removes_keep_keys_and_indexes_together) {
    std::mt19937 random(5);
    ListView list;
    QStringList plain;
    for (int step = 0; step < 3000; ++step) {
        const int count = static_cast<int>(plain.size());
        // Every other stretch inserts at one place only, until no room is left between its neighbours.
        const int at = (step / 100) % 2 == 0 ? static_cast<int>(random() % (plain.size() + 1)) : count / 2;
        if (count > 0 && random() % 3 == 0) {
            list.Remove(std::max(at, 1));
            plain.removeAt(std::max(at, 1) - 1);
        } else {
            const QString key = QStringLiteral("<1>%1").arg(step);
            EXPECT_EQ(list.Add(at, key, QString(), 1), at == 0 ? count + 1 : at);
            plain.insert(at == 0 ? count : at - 1, key);
        }
        ASSERT_EQ(list.Count(), plain.size());
        for (int i = 0; i < plain.size(); i += 7) {
            ASSERT_EQ(list.Item(i + 1).Key, plain[i]);
            ASSERT_EQ(list.IndexOf(plain[i]), i + 1);
        }
    }
}

TEST(List, the_current_row_stays_with_its_item) {
    ListView list;
    for (const QString& key : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
        list.Add(0, key, key, 1);
    int told = 0;
    list.selectionChanged.connect([&] { ++told; });
    list.SetSelectedItem(2);
    list.SetSelectedItem(2);
    EXPECT_TRUE(list.Selected(2));
    EXPECT_EQ(told, 1);
    list.Add(1, QStringLiteral("z"), QString(), 1);
    EXPECT_EQ(list.SelectedItem(), 3);
    list.Remove(1);
    EXPECT_EQ(list.Item(list.SelectedItem()).Key, QStringLiteral("b"));
    list.ClearSelected();
    EXPECT_FALSE(list.Selected(2));
    EXPECT_EQ(list.SelectedItem(), 2) << "the current row needn't be a selected one";
    list.Remove(2);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(told, 3);
}

TEST(List, misuse_throws_and_updates_announce_a_reset_only) {
    ListView list;
    QStringList log;
    list.aboutToReset.connect([&] { log << QStringLiteral("reset"); });
    list.reset.connect([&] { log << QStringLiteral("done"); });
    list.inserted.connect([&](int row) { log << QStringLiteral("inserted %1").arg(row); });
    list.removed.connect([&](int row) { log << QStringLiteral("removed %1").arg(row); });
    list.changed.connect([&](int row) { log << QStringLiteral("changed %1").arg(row); });
    list.Add(0, QStringLiteral("a"), QStringLiteral("id"), 2, QStringLiteral("12"));
    list.SetSubItem(1, 1, QStringLiteral("12"));
    list.SetSubItem(1, 2, QStringLiteral("x"));
    list.Remove(1);
    list.BeginUpdate();
    list.Add(0, QStringLiteral("a"), QString(), 1);
    list.SetText(1, QStringLiteral("b"));
    list.Clear();
    list.Add(0, QStringLiteral("b"), QString(), 1);
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
    EXPECT_EQ(fault([&] { list.Add(0, QStringLiteral("b"), QString(), 1); }), text::kFaultKeyNotUnique);
    EXPECT_EQ(fault([&] { list.Item(QStringLiteral("a")); }), text::kFaultNotFound);
    EXPECT_EQ(fault([&] { list.SetSelectedItem(2); }), text::kFaultOutOfBounds);
    EXPECT_EQ(fault([&] { list.Add(3, QString(), QString(), 1); }), text::kFaultOutOfBounds);
    EXPECT_EQ(list.Count(), 1);
}

} // namespace
