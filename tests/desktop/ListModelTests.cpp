// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ListModel.h"
#include <QAbstractItemModelTester>
#include <QTreeView>
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::ListView;

TEST(ListModel, StaysSoundThroughRandomEditsUnderAView) {
    ListView list;
    list.ColumnHeaders = QStringList{QStringLiteral("Name"), QStringLiteral("Value"), QStringLiteral("Text")};
    desktop::ListModel model(list, [](int kind) { return QVariant(kind); });
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QTreeView view;
    view.setModel(&model);
    std::mt19937 random(23);
    for (int step = 0; step < 500; ++step) {
        const int row =
            list.Count() == 0 ? 0 : 1 + static_cast<int>(random() % static_cast<unsigned>(list.Count()));
        const auto act = random() % 6;
        if (row > 0 && act < 2)
            list.Remove(row);
        else if (row > 0 && act == 2)
            list.SetSubItem(row, 1 + step % 2, QStringLiteral("line\n%1").arg(step));
        else
            list.Add(row, QString::number(step), QStringLiteral("id%1").arg(step), 2, QStringLiteral("v"));
        if (step % 100 == 99) {
            list.BeginUpdate();
            list.Clear();
            list.Add(0, QStringLiteral("k"), QStringLiteral("only"), 1);
            list.EndUpdate();
        }
        ASSERT_EQ(model.rowCount(), list.Count());
        for (int i = 0; i < list.Count(); ++i) {
            ASSERT_EQ(model.index(i, 0).data().toString(), list.Item(i + 1).Text);
            ASSERT_EQ(model.index(i, 1).data().toString(),
                      QString(list.Item(i + 1).Sub[0]).replace(u'\n', u' '));
            ASSERT_EQ(model.index(i, 0).data(Qt::DecorationRole).toInt(), list.Item(i + 1).SmallIcon);
        }
    }
    EXPECT_EQ(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Text"));
}

// Typed letters that match nothing would make a million rows otherwise.
TEST(ListModel, SearchingByLettersMakesNoRows) {
    const QStringList names{QStringLiteral("Tee"), QStringLiteral("pen\nred"), QStringLiteral("Teapot")};
    int made = 0;
    ListView list;
    list.Fill(
        300,
        [&](std::uint32_t i) {
            ++made;
            return controls::ListItem{QString::number(i), names[i % 3], 1, 1, {}, {}};
        },
        [](const QString&) { return -1; },
        [&](std::uint32_t i, int) {
            const QString& name = names[i % 3];
            return text::CompactView{reinterpret_cast<const unsigned char*>(name.utf16()),
                                     static_cast<std::uint32_t>(name.size()), true};
        });
    const desktop::ListModel model(list);
    const auto find = [&](int from, const char* typed) {
        const QModelIndexList found =
            model.match(model.index(from, 0), Qt::DisplayRole, QString::fromLatin1(typed));
        return found.isEmpty() ? -1 : found.front().row();
    };
    EXPECT_EQ(find(5, "x"), -1);
    EXPECT_EQ(find(0, "TEA"), 2);
    EXPECT_EQ(find(299, "pen R"), 1) << "goes on at the top; a line end is shown as a blank";
    EXPECT_EQ(find(4, "pen red pen"), -1) << "longer than the name";
    EXPECT_EQ(made, 0);
    list.Item(5); // "pen\nred" is looked at
    EXPECT_EQ(find(4, "Pen"), 4);
}

} // namespace
