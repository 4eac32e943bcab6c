// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextFile.h"
#include <gtest/gtest.h>

using text::Decode;
using text::Decoded;
using text::Encode;

namespace {

/// The bytes of a file after `what` in its text was replaced.
QByteArray Edited(const QByteArray& bytes, const QString& what, const QString& by) {
    const Decoded file = Decode(bytes);
    QString text = file.text.toString();
    EXPECT_TRUE(text.contains(what));
    return Encode(text.replace(what, by), file.form).bytes;
}

} // namespace

TEST(LineEnds, ATextInTheWindowHasCrLfWhateverTheFileHas) {
    for (const QByteArray end : {"\r\n", "\n", "\r"}) {
        const QByteArray bytes = "<a>" + end + "<b/>" + end + end + "</a>" + end;
        const Decoded file = Decode(bytes);
        EXPECT_EQ(file.text, u"<a>\r\n<b/>\r\n\r\n</a>\r\n"_qs);
        EXPECT_TRUE(file.form.lineEnds.each.empty());
        EXPECT_EQ(Edited(bytes, u"<b/>"_qs, u"<b/>\r\n<c/>"_qs),
                  "<a>" + end + "<b/>" + end + "<c/>" + end + end + "</a>" + end);
    }
}

TEST(LineEnds, ANewLineTakesTheMostFrequentLineEnd) {
    EXPECT_EQ(Edited("1\n2\r\n3\r\n4", u"1"_qs, u"0\r\n1"_qs), "0\r\n1\n2\r\n3\r\n4");
    EXPECT_EQ(Edited("1\n2\n3\r\n4\r5", u"4"_qs, u"x\r\n4"_qs), "1\n2\n3\r\nx\n4\r5");
#ifndef Q_OS_WIN
    EXPECT_EQ(Edited("one line", u"one"_qs, u"one\r\n"_qs), "one\n line") << "that of the system";
#endif
}

TEST(LineEnds, LinesAroundAnEditKeepTheirOwnLineEnd) {
    const QByteArray mixed = "a\nb\r\nc\rd\r\ne\nf\r\n";
    EXPECT_EQ(Edited(mixed, u"c"_qs, u"C"_qs), "a\nb\r\nC\rd\r\ne\nf\r\n");
    EXPECT_EQ(Edited(mixed, u"c\r\n"_qs, QString()), "a\nb\r\nd\r\ne\nf\r\n");
    EXPECT_EQ(Edited(mixed, u"d"_qs, u"x\r\ny\r\nz"_qs), "a\nb\r\nc\rx\r\ny\r\nz\r\ne\nf\r\n");
    EXPECT_EQ(Edited(mixed, u"f\r\n"_qs, u"f"_qs), "a\nb\r\nc\rd\r\ne\nf");
    EXPECT_EQ(Edited(mixed, u"a\r\n"_qs, u"a\r\na\r\n"_qs), "a\na\r\nb\r\nc\rd\r\ne\nf\r\n");
}

TEST(LineEnds, AMixedFileCanBecomeEmptyOrSomethingElseAltogether) {
    const Decoded file = Decode("a\nb\r\nc\r\n");
    EXPECT_EQ(Encode(QString(), file.form).bytes, "");
    EXPECT_EQ(Encode(u"x\r\ny\r\n"_qs, file.form).bytes, "x\r\ny\r\n");
    EXPECT_EQ(Encode(u"x\r\ny"_qs, Decode("1\n2\n3\r\n").form).bytes, "x\ny");
}

TEST(LineEnds, ALineEndCutByTheSeamOfAReadingStepIsOne) {
    // The steps are of some thousand characters: with every length in turn a seam falls between CR and LF.
    QByteArray bytes;
    for (int length = 0; length < 400; ++length)
        bytes += QByteArray(length, 'x') + (length % 3 == 0 ? "\r\n" : length % 3 == 1 ? "\r" : "\n");
    for (int shift = 0; shift < 64; ++shift) {
        const QByteArray shifted = QByteArray(shift, '-') + bytes;
        const Decoded file = Decode(shifted);
        EXPECT_EQ(file.text.toString().count(u'\n'), 400);
        EXPECT_EQ(Encode(file.text.toString(), file.form).bytes, shifted) << shift;
    }
    for (int length = 16380; length < 16390; ++length) {
        const QByteArray seam = QByteArray(length, 'x') + "\r\n\r\ry";
        EXPECT_EQ(Decode(seam).form.lineEnds.each.size(), 3U) << length;
    }
}
