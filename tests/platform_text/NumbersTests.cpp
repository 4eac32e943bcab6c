// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Numbers.h"
#include <gtest/gtest.h>
#include <limits>

TEST(Numbers, AWholeTextIsANumberOrNone) {
    const struct {
        const char16_t* text;
        std::optional<double> number;
    } cases[] = {{u"5", 5},
                 {u" -5.25 ", -5.25},
                 {u"+.5", .5},
                 {u"5.", 5},
                 {u"1,234,567", 1234567},
                 {u"12,34", {}},
                 {u"1234,567", {}},
                 {u",567", {}},
                 {u"$1,000.5", 1000.5},
                 {u"-$5", -5},
                 {u"$-5", -5},
                 {u"5 €", 5},
                 {u"€5€", {}},
                 {u"1e3", 1000},
                 {u"1E-2", .01},
                 {u"1e", {}},
                 {u"--5", {}},
                 {u"5-", {}},
                 {u"1 2", {}},
                 {u"", {}},
                 {u".", {}},
                 {u"$", {}},
                 {u"0x10", {}},
                 {u"nan", {}},
                 {u"inf", {}},
                 {u"1e999", {}},
                 {u"1e-999", 0},
                 {u"1.2.3", {}}};
    for (const auto& c : cases)
        EXPECT_EQ(text::ReadNumber(c.text), c.number) << QStringView(c.text).toString().toStdString();
}

TEST(Numbers, APlainNumberIsTheSameNumber) {
    const struct {
        const char16_t* text;
        const char* plain; ///< null: the text stays
    } cases[] = {{u"007", "7"},
                 {u"1.50", "1.5"},
                 {u"1e3", "1000"},
                 {u"-0.0", "0"},
                 {u"1e20", "100000000000000000000"},
                 {u"1e-9", "0.000000001"},
                 {u"1e30", "1E+30"},
                 {u"0.1", "0.1"},
                 {u"12.05", "12.05"},
                 {u"0.50", "0.5"},
                 {u"00.5", "0.5"},
                 {u"0.0000000000001", "0.0000000000001"},
                 {u"1.2.3", nullptr},
                 {u"123456789012345", "123456789012345"},
                 {u"1234567890123456", nullptr},
                 {u"0001234567890123", "1234567890123"},
                 {u"word", nullptr}};
    for (const auto& c : cases) {
        const auto plain = text::PlainNumber(c.text);
        EXPECT_EQ(plain, c.plain ? std::optional<QString>(QLatin1String(c.plain)) : std::nullopt)
            << QStringView(c.text).toString().toStdString();
        EXPECT_TRUE(!text::IsPlainAlready(c.text) || plain == QStringView(c.text).toString());
    }
    EXPECT_TRUE(text::IsPlainAlready(u"12.05"));
}

TEST(Numbers, APrefixMayHaveAnotherBase) {
    EXPECT_EQ(text::NumericPrefix(u"&HFF rest"), 255);
    EXPECT_EQ(text::NumericPrefix(u" &h10"), 16);
    EXPECT_EQ(text::NumericPrefix(u"&O178"), 15);
    EXPECT_EQ(text::NumericPrefix(u"&H"), 0);
    EXPECT_EQ(text::NumericPrefix(u"&5"), 0);
    EXPECT_EQ(text::NumericPrefix(u"12abc"), 12);
    EXPECT_EQ(text::NumericPrefix(u"1e999"), std::numeric_limits<double>::infinity());
}
