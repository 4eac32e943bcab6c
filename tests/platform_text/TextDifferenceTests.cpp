// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextDifference.h"
#include <gtest/gtest.h>
#include <random>

using text::LongText;

namespace {

// As plain strings tell it.
text::TextChange PlainDifference(const QString& before, const QString& after) {
    const qsizetype most = std::min(before.size(), after.size());
    qsizetype front = 0, back = 0;
    while (front < most && before[front] == after[front])
        ++front;
    while (back < most - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    return {front, before.size() - front - back, after.size() - front - back};
}

} // namespace

TEST(TextDifference, IsTheShortestStretchHoweverThePiecesAreCut) {
    std::mt19937 random(5);
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(limit));
    };
    const QStringList pieces{QString(),
                             QStringLiteral("a"),
                             QString(9000, u'a'),
                             QStringLiteral("aa\r\n"),
                             QString::fromUcs4(U"a😀a"),
                             QString(40'000, u'a')};
    LongText before(QString(50'000, u'a'));
    for (int i = 0; i < 300; ++i) {
        LongText after = before;
        const int edits = i % 3;
        for (int edit = 0; edit < edits; ++edit)
            after.replace(below(after.size() + 1), below(i % 7 == 0 ? 60'000 : 3), pieces[below(6)]);
        const text::TextChange wanted = PlainDifference(before.toString(), after.toString());
        ASSERT_EQ(text::Difference(before, after), wanted) << i;
        ASSERT_EQ(text::Difference(before, LongText(after.toString())), wanted) << i << " no shared pieces";
        before = after;
    }
    EXPECT_EQ(text::Difference({}, before), (text::TextChange{0, 0, before.size()}));
    EXPECT_EQ(text::Difference(before, {}), (text::TextChange{0, before.size(), 0}));
}
