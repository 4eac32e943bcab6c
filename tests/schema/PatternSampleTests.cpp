// SPDX-License-Identifier: GPL-3.0-or-later
// Samples for patterns.
#include "schema/PatternSample.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

struct PatternSample : testing::Test {
    test::TestApp t;
    std::string Of(const QString& pattern) {
        return schema::GenerateSampleByPattern(t.app(), pattern).toStdString();
    }
    std::string Of(const char* pattern) { return Of(QString::fromUtf8(pattern)); }
};

TEST_F(PatternSample, IsWhatTheReplacementsMakeOfIt) {
    const struct {
        const char *pattern, *sample;
    } cases[] = {
        {"\\d{3}", "111"},
        {"[A-Z]{2}\\d{4}", "AA1111"},
        {"[0-9]{3}-[0-9]{2}", "111-11"},
        {"\\w+@\\w+\\.com", "a_@a_.com"},
        {"\\w{2}", "a__"},
        {"(a|b)c", "ac"},
        {"(a|b|c)d|e", "ad"},
        {"[a|b]c", "ac"},
        {"|a", "|a"},
        {"(\\d{2})-\\1", "11-11"},
        {"(a)(b)\\2\\1", "abba"},
        {"((a)b)\\1", "aba"}, // inner groups aren't told apart
        {"(a)\\2\\1", "a21"}, // a reference to no group ends it
        {"\\1(a)", "1a"},
        {"(a\\)b\\11", "abaa"}, // an inserted backslash begins a reference of its own
        {"\\p{Lu}\\p{Ll}*", "Aa"},
        {"\\p{Pc}\\p{Pd}\\p{Connector Punctuation}", "-_-"},
        {"[abc]", "abc"},
        {".{4}", "aaaa"},
        {"\\..", ".a"},
        {"{2}", "{2}"},
        {"a{0}{2}b{3}", "{2}b{3}"},
        {"ab{2,5}c{,5}", "abb"},
        {"a{2", "a{2"},
        {"(ab){3}[xyz]{2}", "abxyz"},
        {"\\p{IsGreek}", ""},
        {"a$", "a$"},
        {"\\\\d", "1"}, // tokens don't know of escaped backslashes
        {"", ""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Of(one.pattern), one.sample) << one.pattern;
}

TEST_F(PatternSample, ThatWouldBeEndlessIsEmptyAndReported) {
    EXPECT_EQ(Of("a{32767}").size(), 32767u);
    EXPECT_EQ(Of("a{32768}"), "");
    const QString doubled = QStringLiteral("(a{32767})");
    EXPECT_EQ(Of(doubled + QStringLiteral("\\1").repeated(100)), "") << "three millions";
    EXPECT_EQ(Of(QStringLiteral("a{32767}").repeated(100)), "");
    t.app().options.Debug = true;
    t.prompts.Answer(services::Answer::Ok);
    EXPECT_EQ(Of("a{99999999999999999999}"), "");
    EXPECT_TRUE(t.prompts.Texts().join(u' ').contains(QStringLiteral("GenerateSampleByPattern")));

    const qsizetype many = 200000; // each of these is quadratic where it is done step by step
    EXPECT_EQ(Of(QStringLiteral("a|]").repeated(many)).size(), std::size_t(many));
    EXPECT_EQ(Of(QStringLiteral("a{1}").repeated(many)).size(), std::size_t(many));
    EXPECT_EQ(Of(u'(' + QStringLiteral("a").repeated(2) + u')' + QStringLiteral("\\1").repeated(many)).size(),
              std::size_t(2 * many + 2));
    EXPECT_EQ(Of(QStringLiteral("(").repeated(many)), "");
}

} // namespace
