// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextTools.h"
#include <QList>
#include <gtest/gtest.h>

TEST(TextTools, ValReadsTheNumberAtTheFrontAndStopsAtTheRest) {
    const struct {
        const char16_t* text;
        double value;
    } cases[] = {{u"16", 16},  {u"  -3.5pt", -3.5}, {u"1e3x", 1000}, {u"1e", 1},
                 {u".5", 0.5}, {u"+7", 7},          {u"abc", 0},     {u"", 0},
                 {u"-", 0},    {u".", 0},           {u"1.2.3", 1.2}, {u"12 34", 12},
                 {u"0x10", 0}, {u"\t4", 4},         {u"1,5", 1},     {u"1e+x", 1}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(text::Val(c.text), c.value) << QStringView(c.text).toString().toStdString();
}

TEST(TextTools, ValAsAnIntegerGivesZeroOutsideItsRange) {
    EXPECT_EQ(text::ValInt16(u"32767"), 32767);
    EXPECT_EQ(text::ValInt16(u"32768"), 0);
    EXPECT_EQ(text::ValInt16(u"-32769"), 0);
    EXPECT_EQ(text::ValInt32(u"2147483647 px"), 2147483647);
    EXPECT_EQ(text::ValInt32(u"2147483648"), 0);
    EXPECT_EQ(text::ValInt32(u"1e999"), 0);
    EXPECT_EQ(text::ValInt32(u"2.5"), 2); // halves go to the even number
    EXPECT_EQ(text::ValInt32(u"3.5"), 4);
}

TEST(TextTools, StrWritesGeneralDecimalText) {
    EXPECT_EQ(text::Str(3), u"3"_qs);
    EXPECT_EQ(text::Str(0.5), u"0.5"_qs);
    EXPECT_EQ(text::Str(-12.25), u"-12.25"_qs);
    EXPECT_EQ(text::Str(0.1 + 0.2), u"0.3"_qs);
    EXPECT_EQ(text::Str(1e20), u"1E+20"_qs);
    EXPECT_EQ(text::Str(-0.0), u"0"_qs);
}

TEST(TextTools, TrimTakesAwayBlanksOnly) {
    EXPECT_EQ(text::Trim(u"  a b\t "_qs), u"a b\t"_qs);
    EXPECT_EQ(text::Trim(u"   "_qs), QString());
    EXPECT_EQ(text::Trim(u"a\r\n "_qs), u"a\r\n"_qs);
    EXPECT_TRUE(text::IsBlank(u" \t\r\n"));
    EXPECT_FALSE(text::IsBlank(u" \u00a0 "));
}

TEST(TextTools, HalvesOfPairsAreFoundAndReplaced) {
    const QString whole = QString::fromUtf8("a😀b");
    EXPECT_EQ(text::FindLoneHalf(whole), -1);
    EXPECT_EQ(text::WithoutLoneHalves(whole).constData(), whole.constData()); // shared
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    const QString odd = low + u"a"_qs + high + high + low + low + u'b' + high;
    const QString mended = u"\uFFFDa\uFFFD"_qs + high + low + u"\uFFFDb\uFFFD"_qs;
    EXPECT_EQ(text::WithoutLoneHalves(odd), mended);
    QList<int> lone;
    for (int i = 0; i < odd.size(); ++i)
        if (text::IsLoneHalf(odd, i))
            lone.append(i);
    EXPECT_EQ(lone, (QList<int>{0, 2, 5, 7}));
}

TEST(TextTools, EveryLineEndBecomesCrLf) {
    EXPECT_EQ(text::ToCrLf(u"a\nb\rc\r\nd\n\re\r"_qs), u"a\r\nb\r\nc\r\nd\r\n\r\ne\r\n"_qs);
    EXPECT_EQ(text::ToCrLf(u"\n"_qs), u"\r\n"_qs);
    const QString ready = u"<a>\r\n</a>\r\n"_qs;
    EXPECT_EQ(text::ToCrLf(ready).constData(), ready.constData()); // shared
}
