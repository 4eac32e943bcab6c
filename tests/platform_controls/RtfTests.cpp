// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Rtf.h"
#include "tests/support/PrintText.h"
#include <gtest/gtest.h>
#include <ranges>

namespace {

using controls::ColourRun;
using controls::ReadRtf;
using controls::WriteRtf;
using Runs = std::vector<ColourRun>;

constexpr std::uint32_t kBlue = 0xff0000, kRed = 0x0000ff;

QString Write(const QString& text, const Runs& runs = {}) {
    return WriteRtf(text, runs, QStringLiteral("Courier New"), 10);
}

/// The text with the number of each colour in front of what it colours: "[ff0000]<[0]a".
QString Shown(const QString& text, const Runs& runs) {
    QString shown = text;
    for (const ColourRun& run : std::ranges::reverse_view(runs))
        shown.insert(run.start, u'[' + QString::number(run.colour, 16) + u']');
    return shown;
}

QString Read(const QString& rtf) {
    QString text;
    Runs runs;
    return ReadRtf(rtf, text, runs) ? Shown(text, runs) : QStringLiteral("no RTF");
}

QString InDocument(const char* body) {
    return QStringLiteral("{\\rtf1{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}%1}")
        .arg(QString::fromLatin1(body));
}

TEST(Rtf, TheWrittenFormIsOneThatSubstitutionsCanRunOn) {
    EXPECT_EQ(
        Write(QStringLiteral("<a>{\\}</a>\r\n\té-->5<!-- x"), {{0, kBlue}, {1, 0}, {2, kBlue}, {5, kRed}}),
        QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Courier New;}}\r\n"
                       "{\\colortbl ;\\red0\\green0\\blue255;\\red255\\green0\\blue0;}\r\n"
                       "\\viewkind4\\uc1\\pard\\f0\\fs20 "
                       "\\cf1 <\\cf0 a\\cf1 >\\{\\\\\\cf2 \\}</a>\\par\r\n\\tab \\u233?-->\\'35<!-- x}"));
    // Neither a font's name nor its size can break the head.
    const QString odd = WriteRtf(QStringLiteral("x"), {}, QStringLiteral("A </\";}\\ 中"), 1e300);
    EXPECT_FALSE(odd.contains(u'<') || odd.contains(u'/') || odd.contains(u'"'));
    EXPECT_EQ(Read(odd), QStringLiteral("x"));
}

TEST(Rtf, AnyTextAndItsColoursAreReadBack) {
    const QString texts[] = {
        QString(),
        QStringLiteral("  <a b=\"c\"/>  \r\n\r\n"),
        QStringLiteral("\\cf1 {\\b x}\\par\\'41 \\u65? {\\colortbl ;}\r\n\\viewkind4\\uc1\\pard\\"),
        QStringLiteral("{\\rtf1 text}"),
        QStringLiteral("lone\rand\nends\n\r\r\n\t\ttabs \u007f\u0085"),
        QString(u'a') + QChar(0) + QChar(0xd83d) + u'b' + QChar(0xde00) + QChar(0xffff),
        QStringLiteral("中文 \U0001F600 -1<!--2--> 3-->4<!----5"),
    };
    for (const QString& text : texts) {
        EXPECT_EQ(Read(Write(text)), text);
        Runs each; // every unit in a colour of its own, one of them black
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (i == 0 || text[i] != u'\n' || text[i - 1] != u'\r')
                each.push_back({i, i == 1 ? 0 : static_cast<std::uint32_t>(i % 3 + 0x800000)});
        }
        EXPECT_EQ(Read(Write(text, each)), Shown(text, each));
    }
}

TEST(Rtf, RunsThatSayNothingAreDroppedAndNoLineEndIsCut) {
    const QString text = QStringLiteral("ab\r\ncd");
    EXPECT_EQ(Read(Write(text, {{0, 0}, {1, kRed}, {1, kBlue}, {3, kBlue}, {4, kBlue}, {6, kRed}, {99, 0}})),
              QStringLiteral("a[ff0000]b\r\ncd"));
    EXPECT_EQ(Read(Write(text, {{3, kRed}})), QStringLiteral("ab\r\n[ff]cd"));
    EXPECT_EQ(Read(Write(text, {{0, 0xff000000}})), text); // no more than the three bytes of a colour count
    // A blank behind a comment's opener goes with it: only directly behind is it found by colouring.
    EXPECT_EQ(Read(Write(QStringLiteral("<!-- x"), {{0, kRed}, {4, kBlue}})),
              QStringLiteral("[ff]<!-- [ff0000]x"));
}

TEST(Rtf, DocumentsOfOtherProgramsAreReadForTheirTextAndColours) {
    const struct {
        const char* body;
        QString shown;
    } cases[] = {
        {"{\\fonttbl{\\f0 A;}}{\\*\\generator x;}{\\info{\\title t}}\\pard\\b bold\\b0  text\\par",
         QStringLiteral("bold text\r\n")},
        {"a\\line b\\tab c\r\nd", QStringLiteral("a\r\nb\tcd")},
        {"\\cf2 a{\\cf1 b\\plain c}d\\cf e\\cf7 f", QStringLiteral("[ff0000]a[ff]b[0]c[ff0000]d[0]ef")},
        {"caf\\'e9 \\'80\\'zz\\~\\_", QStringLiteral("café €zz\u00a0\u2011")},
        {"\\u228ae \\uc2\\u8220\\'93\\'93x{\\uc0\\u8221}\\u-10179?!\\u56832??",
         QStringLiteral("äe “x”\U0001F600")},
        {"\\u8220\\ldblquote x\\u8221}", QStringLiteral("“x”")},
        {"{\\header h}{\\pict 0a}{\\*\\x {y}}\\emdash", QStringLiteral("—")},
        {"a\\cf-1 b\\cf99999999999999999999 c\\u99999999999? ", QStringLiteral("abc\uffff ")},
        {"A}} lost", QStringLiteral("A")},
        {"a{b{c", QStringLiteral("abc")},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Read(InDocument(one.body)), one.shown) << one.body;
    EXPECT_EQ(Read(QStringLiteral("{\\rtf1{\\colortbl\\red300\\green-5\\blue255;}\\cf0 a}")),
              QStringLiteral("[ff00ff]a"));
}

TEST(Rtf, ADocumentCutOffAnywhereYieldsTheTextBeforeTheCut) {
    const QString text = QStringLiteral("<a b=\"é\">\r\n\t{中}</a>");
    const QString rtf = Write(text, {{0, kBlue}, {1, 0}});
    const qsizetype body = rtf.indexOf(QStringLiteral("\\f0\\fs"));
    for (qsizetype length = body; length < rtf.size(); ++length) {
        QString read;
        Runs runs;
        ASSERT_TRUE(ReadRtf(rtf.left(length), read, runs));
        EXPECT_TRUE(text.startsWith(read.chopped(std::min<qsizetype>(1, read.size()))))
            << length; // the last one may be half a code
    }
    const QString deep =
        QStringLiteral("{\\rtf1 a") + QString(1'000'000, u'{') + u'b' + QString(1'000'000, u'}') + u'c';
    EXPECT_EQ(Read(deep), QStringLiteral("abc"));
}

TEST(Rtf, AnotherStringIsLeftToTheCaller) {
    QString text = QStringLiteral("kept");
    Runs runs{{1, kRed}};
    for (const char* other : {"", "<a/>", " {\\rtf1 a}", "{\\rt"})
        EXPECT_FALSE(ReadRtf(QString::fromLatin1(other), text, runs)) << other;
    EXPECT_EQ(Shown(text, runs), QStringLiteral("k[ff]ept"));
}

} // namespace
