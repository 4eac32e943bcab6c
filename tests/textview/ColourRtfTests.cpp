// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Rtf.h"
#include "tests/support/PrintText.h"
#include "textview/ColourRtf.h"
#include "textview/ColourStrings.h"
#include "textview/FillText.h"
#include <QHash>
#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t kGL = 0xff0000, kEqual = 0x3232ff, kSlash = 0x32c832, kComment = 0xb4b4b4;

Options Colours() {
    Options options;
    options.GLColor = kGL;
    options.EqualColor = kEqual;
    options.SlashColor = kSlash;
    options.CommentColor = kComment;
    textview::MakeRTFColorStrings(options);
    return options;
}

/// A text with a letter for the colour of each character below it: g for angle brackets, e equal signs,
/// s slashes and quotes, c comments, a dot for the default.
struct Look {
    QString text;
    QString colours;
};
bool operator==(const Look& a, const Look& b) {
    return a.text == b.text && a.colours == b.colours;
}
void PrintTo(const Look& look, std::ostream* out) {
    *out << '\n' << look.text.toStdString() << '\n' << look.colours.toStdString() << '\n';
}

Look LookOf(const QString& rtf) {
    const QHash<std::uint32_t, QChar> letters{
        {0, u'.'}, {kGL, u'g'}, {kEqual, u'e'}, {kSlash, u's'}, {kComment, u'c'}};
    Look look;
    std::vector<controls::ColourRun> runs;
    EXPECT_TRUE(controls::ReadRtf(rtf, look.text, runs));
    look.colours.fill(u'.', look.text.size());
    for (const controls::ColourRun& run : runs) {
        for (qsizetype i = run.start; i < look.text.size(); ++i)
            look.colours[i] = letters.value(run.colour, u'?');
    }
    return look;
}

QString Rtf(const QString& text) {
    return controls::WriteRtf(text, {}, QStringLiteral("Courier New"), 10);
}
QString Coloured(const char* text, int level) {
    return textview::ColourRTF(Rtf(QString::fromUtf8(text)), Colours(), level);
}
Look LookAt(const char* text, int level) {
    return LookOf(Coloured(text, level));
}
Look As(const char* text, const char* colours) {
    return {QString::fromUtf8(text), QString::fromUtf8(colours)};
}

TEST(ColourRtf, WhatIsSeenAtEachLevel) {
    EXPECT_EQ(LookAt("<a b=\"c\"/>", 0), As("<a b=\"c\"/>", "g...es.ssg"));
    EXPECT_EQ(LookAt("<a b=\"c\"/>", 1), As("<a b=\"c\"/>", "g.......sg"));
    // Up to the first coloured character the first colour of the table is on: at this level the slashes'.
    EXPECT_EQ(LookAt("<a b=\"c\"/>", 2), As("<a b=\"c\"/>", "sssssssss."));
    EXPECT_EQ(LookAt("x <a>", 0), As("x <a>", "ggg.g"));
    for (const int level : {0, 1})
        EXPECT_EQ(LookAt("<!-- x --><b/>", level), As("<!-- x --><b/>", "ccccccccccg.sg"));
    EXPECT_EQ(LookAt("</a><!-- x --><b/>", 2), As("</a><!-- x --><b/>", "ss..cccccccccc..s."));
}

TEST(ColourRtf, TwoSlashesInARowAreBareAndAThirdIsNot) {
    const char* const bodies[] = {"<a/>a//b", "<a/>a///b", "<a/>a////b"};
    const char* const looks[][3] = {{"g.sg....", "g.sg...s.", "g.sg......"}, // level 0 and 1
                                    {"sss.....", "sss....s.", "sss......."}};
    for (std::size_t i = 0; i < std::size(bodies); ++i) {
        EXPECT_EQ(LookAt(bodies[i], 0), As(bodies[i], looks[0][i]));
        EXPECT_EQ(LookAt(bodies[i], 1), As(bodies[i], looks[0][i]));
        EXPECT_EQ(LookAt(bodies[i], 2), As(bodies[i], looks[1][i]));
    }
}

TEST(ColourRtf, MarkupInsideACommentEndsItsColourUntilTheCloser) {
    EXPECT_EQ(LookAt("<!-- a b=c d --><e/>", 0), As("<!-- a b=c d --><e/>", "cccccccce....cccg.sg"));
    EXPECT_EQ(LookAt("<!-- a b=c d --><e/>", 1), As("<!-- a b=c d --><e/>", "ccccccccccccccccg.sg"));
}

// The only change that colouring makes to a text, and what stands behind the words must never be lost to
// them.
TEST(ColourRtf, ACommentWithoutABlankOfItsOwnGainsOne) {
    for (const int level : {0, 1}) {
        EXPECT_EQ(LookAt("<!--x-->", level), As("<!-- x-->", "ccccccccc"));
        EXPECT_EQ(LookAt("<!---->", level), As("<!-- -->", "cccccccc"));
        EXPECT_EQ(LookAt("<!--5-->5", level), As("<!-- 5-->5", "ccccccccc."));
        EXPECT_EQ(LookAt("<!--\r\nx--> y", level), As("<!-- \r\nx--> y", "ccccccccccc.."));
        EXPECT_EQ(LookAt("<!--  x-->", level), As("<!--  x-->", "cccccccccc"));
    }
    for (const char* text : {"<!--x-->", "<!--5-->5", "<!--x--> 5", "a-->", "<!-->7"})
        EXPECT_EQ(LookAt(text, 2).text, QString::fromUtf8(text));
}

TEST(ColourRtf, ATextThatLooksLikeRtfStaysWhatItIs) {
    const char* const text =
        "\\cf3 /\\cf0 \\cf3 /\\cf0 {\\colortbl ;}\r\n--\\cf1 >\\cf0 \\viewkind4\\uc1\\pard\\";
    for (const int level : {0, 1, 2})
        EXPECT_EQ(LookAt(text, level).text, QString::fromUtf8(text));
}

TEST(ColourRtf, ColouringAgainPutsANewTableInTheOldOnesPlace) {
    const Look first = LookAt("<!--x--><a b=\"http://c\"/><!-- y -->", 0);
    std::vector<controls::ColourRun> runs;
    QString text;
    controls::ReadRtf(Coloured("<!--x--><a b=\"http://c\"/><!-- y -->", 0), text, runs);
    const QString again =
        textview::ColourRTF(controls::WriteRtf(text, runs, QStringLiteral("Courier New"), 10), Colours(), 0);
    EXPECT_EQ(again.count(QStringLiteral("colortbl")), 1);
    EXPECT_EQ(LookOf(again), first);
}

TEST(ColourRtf, ATableGoesWithItsLineEndAndNothingElseDoes) {
    QString rtf = QStringLiteral("{\\rtf1{\\colortbl ;\\red1\\green2\\blue3;}\r\n{\\f0}\r\nx}");
    textview::RemoveRTFColorTable(rtf);
    EXPECT_EQ(rtf, QStringLiteral("{\\rtf1{\\f0}\r\nx}"));
    for (const char* other : {"{\\rtf1 x}\r\n", "{\\rtf1{\\colortbl ;\\red1;} x}"}) {
        rtf = QString::fromLatin1(other);
        textview::RemoveRTFColorTable(rtf);
        EXPECT_EQ(rtf, QString::fromLatin1(other));
    }
    // Without the anchor there is no place for a table, and the words name colours that don't exist.
    EXPECT_EQ(LookOf(textview::ColourRTF(QStringLiteral("{\\rtf1\\pard <a/>}"), Colours(), 0)),
              As("<a/>", "...."));
}

} // namespace
