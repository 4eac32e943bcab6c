// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LineDifference.h"
#include <gtest/gtest.h>
#include <random>

using text::LineDifference;
using text::LongText;

namespace {

LongText Text(const QStringList& lines) {
    return LongText(lines.join(QStringLiteral("\r\n")));
}

} // namespace

TEST(LineDifference, TellsEachStretchWithTheLinesAroundIt) {
    QStringList before;
    for (int i = 1; i <= 20; ++i)
        before << QString::number(i);
    QStringList after = before;
    after[1] = QStringLiteral("two");
    after.insert(15, QStringLiteral("new"));
    after.removeLast();
    EXPECT_EQ(LineDifference(Text(before), Text(after)).join(u'|').toStdString(),
              "@@ 1 / 1|  1|- 2|+ two|  3|  4|  5|@@ 13 / 13|  13|  14|  15|+ new|  16|  17|  18|  19|- 20");
    EXPECT_EQ(LineDifference(Text(before), Text(before)), QStringList());
}

// What isn't told is equal in both: the two texts can be made of what is.
TEST(LineDifference, LeavesNothingOut) {
    std::mt19937 random(7);
    for (int turn = 0; turn < 300; ++turn) {
        QStringList before, after;
        for (QStringList* lines : {&before, &after}) {
            for (auto count = random() % 12 + 1; count > 0; --count)
                *lines << QString(QChar(static_cast<char16_t>(u'a' + random() % 4)));
        }
        QStringList rest = before;
        qsizetype place = 0;
        for (const QString& line : LineDifference(Text(before), Text(after))) {
            const QString words = line.mid(2);
            if (line.startsWith(u'@')) {
                place = line.section(u'/', 1).toInt() - 1;
            } else if (line.startsWith(u'-')) {
                ASSERT_EQ(rest.value(place), words);
                rest.removeAt(place);
            } else if (line.startsWith(u'+')) {
                rest.insert(place++, words);
            } else {
                ASSERT_EQ(rest.value(place++), words);
            }
        }
        EXPECT_EQ(Text(rest), Text(after))
            << before.join(u' ').toStdString() << " / " << after.join(u' ').toStdString();
    }
}

TEST(LineDifference, OfVeryManyLinesEnds) {
    QStringList before, after;
    for (int i = 0; i < 50'000; ++i) {
        before << QString::number(i);
        after << QString::number(-i - 1);
    }
    const QStringList told = LineDifference(Text(before), Text(after));
    EXPECT_LT(told.size(), 5000);
    EXPECT_EQ(told.last(), QStringLiteral("..."));
}
