// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/StringPool.h"
#include <gtest/gtest.h>

using text::CompactBuilder;
using text::CompactView;
using text::StringPool;

namespace {

QString Utf8(const char* bytes) {
    return QString::fromUtf8(bytes);
}

QString Escaped(const QString& plain) {
    StringPool pool;
    CompactBuilder builder;
    builder.appendEscaped(pool.view(pool.add(plain)));
    return builder.view().toString();
}

} // namespace

TEST(StringPool, GivesBackEveryTextWhateverItsWidthAndLength) {
    StringPool pool;
    const QString half = QStringLiteral("a") + QChar(0xD800) + QStringLiteral("b");
    QStringList texts = {QString(),
                         QStringLiteral("x"),
                         Utf8("Gärtnerstraße 7"),
                         Utf8("北京市"),
                         Utf8("😀"),
                         half,
                         QString(QChar(0)) + QStringLiteral("behind NUL")};
    for (int i = 0; i < 60; ++i)
        texts += QString(i * 7001, QChar(i % 2 == 0 ? 'n' : 0x4E2D)); // together several sections
    texts += QString(3'000'000, u'L');                                // larger than a section
    texts += QString(900'000, QChar(0x6587));
    texts += QStringLiteral("after the large ones");
    std::vector<StringPool::Ref> refs;
    for (const QString& text : texts)
        refs.push_back(pool.add(text));
    EXPECT_EQ(refs[0], 0U);
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const CompactView view = pool.view(refs[static_cast<std::size_t>(i)]);
        EXPECT_EQ(view.toString(), texts[i]) << i;
        EXPECT_TRUE(view == texts[i]) << i;
        QString copy(texts[i].size(), u'?');
        auto* units = reinterpret_cast<char16_t*>(copy.data());
        EXPECT_EQ(view.copyTo(units), units + copy.size());
        EXPECT_EQ(copy, texts[i]) << i;
    }
    EXPECT_GE(pool.bytes(), 4'800'000U);
    pool.clear();
    EXPECT_EQ(pool.bytes(), 0U);
    EXPECT_EQ(pool.toString(pool.add(u"new")), QStringLiteral("new"));
}

TEST(StringPool, KeepsItsTextsWhenItIsMovedAndStartsAnewWhereItWasTaken) {
    StringPool pool;
    const StringPool::Ref ref = pool.add(u"kept");
    StringPool other = std::move(pool);
    EXPECT_EQ(other.toString(ref), QStringLiteral("kept"));
    pool = StringPool();
    EXPECT_EQ(pool.toString(pool.add(u"again")), QStringLiteral("again"));
}

TEST(StringPool, HoldsLatin1TextsInOneByteACharacter) {
    StringPool pool;
    EXPECT_FALSE(pool.view(pool.addUtf8("caf\xC3\xA9", 5)).wide);
    EXPECT_FALSE(pool.view(pool.add(QStringView(u"caf\u00e9"))).wide);
    EXPECT_TRUE(pool.view(pool.addUtf8("caf\xC4\x93", 5)).wide);
}

TEST(StringPool, TurnsUtf8ThatIsCutOrWrongIntoReplacementCharacters) {
    const struct {
        const char* bytes;
        QString text;
    } cases[] = {
        {"ab\xC3", u"ab\uFFFD"_qs},
        {"\xE4\xB8", u"\uFFFD\uFFFD"_qs},
        {"\xF0\x9F\x98", u"\uFFFD\uFFFD\uFFFD"_qs},
        {"\xC0\xAF", u"\uFFFD\uFFFD"_qs},                     // overlong
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"_qs},           // half of a pair
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"_qs}, // beyond U+10FFFF
        {"\xC3\xA9\x80", u"\u00e9\uFFFD"_qs},
        {"\xF0\x9F\x98\x80!", Utf8("😀!")},
    };
    StringPool pool;
    for (const auto& c : cases)
        EXPECT_EQ(pool.toString(pool.addUtf8(c.bytes, qstrlen(c.bytes))), c.text) << c.text.toStdString();
}

TEST(StringPool, ABuilderTurnsWideInTheMiddleAndNarrowAgainWhenCleared) {
    StringPool pool;
    CompactBuilder builder;
    builder.append("<", 1);
    builder.append(pool.view(pool.add(u"stra\u00dfe")));
    EXPECT_FALSE(builder.view().wide);
    builder.append(QStringView(u" \u5317 "));
    builder.append('=');
    builder.append(pool.view(pool.add(u"\u00fc")));
    builder.appendUtf8("\xE4\xBA\xAC>", 4);
    EXPECT_EQ(builder.view().toString(), u"<stra\u00dfe \u5317 =\u00fc\u4eac>"_qs);
    builder.clear();
    builder.append("plain", 5);
    EXPECT_FALSE(builder.view().wide);
    EXPECT_TRUE(builder.view() == QStringView(u"plain"));
}

TEST(StringPool, ABuilderEscapesMarkupCharactersInNarrowAndWideTexts) {
    EXPECT_EQ(Escaped(u"a<b & \"c\">'d'"_qs), u"a&lt;b &amp; &quot;c&quot;&gt;&apos;d&apos;"_qs);
    EXPECT_EQ(Escaped(u"\u4e2d<\u6587&\u0126"_qs), u"\u4e2d&lt;\u6587&amp;\u0126"_qs);
    EXPECT_EQ(Escaped(u"&lt;"_qs), u"&amp;lt;"_qs);
    EXPECT_EQ(Escaped(u"nothing to do"_qs), u"nothing to do"_qs);
}

TEST(StringPool, AViewComparesTextsHeldInDifferentWidths) {
    const char16_t wideAbc[] = u"abc";
    const CompactView wide{reinterpret_cast<const unsigned char*>(wideAbc), 3, true};
    const CompactView narrow{reinterpret_cast<const unsigned char*>("abc"), 3, false};
    const CompactView other{reinterpret_cast<const unsigned char*>("abd"), 3, false};
    EXPECT_TRUE(wide == narrow);
    EXPECT_TRUE(narrow == wide);
    EXPECT_FALSE(wide == other);
    EXPECT_FALSE(narrow == QStringView(u"abcd"));
}
