// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LongTextBuilder.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using text::LongText;

QString RandomPiece(std::mt19937& random) {
    static const QStringList kinds{
        QStringLiteral("\r\n"), QStringLiteral("\n"),    QStringLiteral("\r"), QStringLiteral("<a b=\"c\">"),
        QStringLiteral("文具"), QString::fromUcs4(U"😀"), QString(3000, u'x'),  QString(9000, u'y'),
        QStringLiteral("\t"),   QStringLiteral("é")};
    QString piece;
    for (auto count = random() % 6; count > 0; --count)
        piece += kinds[static_cast<qsizetype>(random() % static_cast<unsigned>(kinds.size()))];
    return piece;
}

// Rows cover the text in order without a gap, tear nothing, and each line begins one.
void CheckRows(const LongText& text, const QString& plain) {
    qsizetype at = 0;
    bool lineBegins = true;
    for (qsizetype i = 0; i < text.rowCount(); ++i) {
        const LongText::Row row = text.row(i);
        ASSERT_EQ(row.start, at);
        ASSERT_EQ(row.startsLine, lineBegins);
        ASSERT_LE(row.length, LongText::kLongestRow);
        ASSERT_TRUE(row.length + row.lineEnd > 0 || i + 1 == text.rowCount());
        if (row.length > 0) {
            ASSERT_EQ(text.rowOf(row.start), i);
            ASSERT_EQ(text.rowOf(row.start + row.length - 1), i);
        }
        at += row.length + row.lineEnd;
        lineBegins = row.lineEnd > 0;
        if (row.length + row.lineEnd > 0) {
            ASSERT_EQ(row.lineEnd > 0, plain.mid(at - 1, 1) == QStringLiteral("\n"));
        }
        if (row.lineEnd == 0 && at < plain.size()) {
            ASSERT_FALSE(plain[at].isLowSurrogate() && plain[at - 1].isHighSurrogate());
        }
    }
    ASSERT_EQ(at, plain.size());
}

TEST(LongText, RandomEditsKeepTextLinesAndRows) {
    std::mt19937 random(11);
    LongText text;
    QString plain;
    for (int step = 0; step < 600; ++step) {
        const qsizetype at = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size() + 1));
        const qsizetype most = std::min<qsizetype>(plain.size() - at, random() % 8 == 0 ? 60000 : 40);
        const qsizetype removed =
            most > 0 ? static_cast<qsizetype>(random() % static_cast<unsigned>(most)) : 0;
        const QString piece = RandomPiece(random);
        const LongText past = text;
        const QString pastPlain = plain;
        text.replace(at, removed, piece);
        plain.replace(at, removed, piece);
        ASSERT_EQ(text.size(), plain.size());
        if (step % 50 == 0) {
            ASSERT_EQ(text.toString(), plain);
            ASSERT_EQ(past.toString(), pastPlain) << "a copy isn't touched by later edits";
            CheckRows(text, plain);
            ASSERT_EQ(text.lineCount(), plain.count(u'\n') + 1);
        }
        const qsizetype place = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size() + 1));
        ASSERT_EQ(text.lineOf(place), QStringView(plain).first(place).count(u'\n'));
        const qsizetype start = place == 0 ? 0 : plain.lastIndexOf(u'\n', place - 1) + 1;
        ASSERT_EQ(text.lineStart(text.lineOf(place)), start);
        ASSERT_EQ(text.mid(place, 70), plain.mid(place, 70));
        ASSERT_EQ(text.at(place), place < plain.size() ? plain[place] : QChar());
    }
}

TEST(LongText, TypingInALongLineLeavesItsRowsLong) {
    LongText text(QString(400'000, u'x'));
    for (int i = 0; i < 500; ++i)
        text.replace(8'100 + i, 0, u"y");
    EXPECT_LT(text.rowCount(), 400'500 / LongText::kLongestRow + 10);
    CheckRows(text, text.toString());
}

TEST(LongText, SearchFindsWhatAPlainSearchFinds) {
    std::mt19937 random(3);
    QString plain;
    while (plain.size() < 100'000)
        plain += RandomPiece(random);
    const LongText text(plain);
    for (int step = 0; step < 60; ++step) {
        const auto place = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size()));
        const QString what =
            plain.mid(place, 1 + static_cast<qsizetype>(random() % (step % 20 == 0 ? 20000 : 60))).toUpper();
        const auto from = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size()));
        for (const auto sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
            const QString wanted = sensitivity == Qt::CaseSensitive ? plain.mid(place, what.size()) : what;
            ASSERT_EQ(text.indexOf(wanted, from, sensitivity), plain.indexOf(wanted, from, sensitivity));
        }
        const QString wanted = plain.mid(place, what.size());
        ASSERT_EQ(text.lastIndexOf(wanted, from), plain.lastIndexOf(wanted, from));
    }
    // What only a folding of case finds: the Kelvin sign, the long s, letters beyond ASCII.
    const LongText odd(QStringLiteral(u"xx<\u212Aelvin> <TE\u017Ft> \u00C9t\u00E9 ") + QString(50, u'<') +
                       QStringLiteral(u"<\u212Aelvin>"));
    EXPECT_EQ(odd.indexOf(u"<kelvin>", 0, Qt::CaseInsensitive), 2);
    EXPECT_EQ(odd.indexOf(u"<KELVIN>", 3, Qt::CaseInsensitive), odd.size() - 8);
    EXPECT_EQ(odd.indexOf(u"test>", 0, Qt::CaseInsensitive), 12);
    EXPECT_EQ(odd.indexOf(u"st>", 0, Qt::CaseInsensitive), 14);
    EXPECT_EQ(odd.indexOf(u"\u00E9T\u00C9", 0, Qt::CaseInsensitive), 18);
    EXPECT_EQ(text.indexOf(u"", 0, Qt::CaseSensitive), -1);
    EXPECT_EQ(LongText().indexOf(u"a", 0, Qt::CaseSensitive), -1);
}

// Whatever the old text looks like and however the new one comes in: it is what was put in, and its rows
// stand.
TEST(LongText, ATextBuiltFromPartsIsItsParts) {
    std::mt19937 random(29);
    LongText old;
    QString plain;
    for (int step = 0; step < 120; ++step) {
        for (int edit = 0; edit < 3; ++edit) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size() + 1));
            plain.replace(at, static_cast<qsizetype>(random() % 3000), RandomPiece(random));
        }
        if (step % 40 == 0)
            plain += QString(70'000, u'z');
        LongText::Builder builder(old);
        for (qsizetype at = 0; at < plain.size();) {
            const auto size = static_cast<qsizetype>(1 + random() % (step % 2 == 0 ? 100'000 : 5'000));
            builder.append(QStringView(plain).mid(at, size));
            at += size;
        }
        const LongText text = builder.finish();
        ASSERT_EQ(text.toString(), plain);
        CheckRows(text, plain);
        const auto from = static_cast<qsizetype>(random() % static_cast<unsigned>(plain.size() + 1));
        QString read;
        for (LongText::Reader reader(text, from); reader.next();) {
            ASSERT_EQ(reader.start(), from + read.size());
            read += reader.piece();
        }
        ASSERT_EQ(read, plain.mid(from));
        old = text;
        old.replace(from, 10, u"edited"); // so that its pieces aren't those of a text made at once
    }
}

} // namespace
