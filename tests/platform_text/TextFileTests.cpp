// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextFile.h"
#include <gtest/gtest.h>
#include <numeric>

using text::Decode;
using text::Decoded;
using text::Encode;
using text::Encoded;
using text::FileForm;

namespace {

QString Declared(const QString& label, const QString& content) {
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\r\n<a>%2</a>\r\n").arg(label, content);
}

/// A new document: nothing is known of a file.
Encoded EncodeNew(const QString& text) {
    return Encode(text, FileForm());
}

std::string Name(const QString& text) {
    return text.toStdString();
}

} // namespace

TEST(TextFile, WritesAndReadsEveryLabel) {
    const std::pair<const char*, const char*> cases[] = {
        // what is written, in which encodings
        {"1 + 1 = 2; \\ ~ äöü 北京 😀", "UTF-7"},
        {"äöü 北京 😀", "UTF-8 UTF-16"},
        {"北京市 長", "GB2312 GBK"},
        {"äöü ÿ", "8859-1"},
        {"Łódź", "8859-2 windows-1250"},
        {"plain ~ text", "ASCII ISO-646"},
        {"äöü ░", "850"},
        {"„Zitat“ €", "1252"},
        {"שלום", "1255"},
        {"日本語 カナ ~ \\ ①", "SHIFT-JIS MS-KANJI"},
        {"臺北", "BIG5"},
        {"äöü", "ISO-8859-1 IBM437"},
        {"€", "ISO-8859-15"},
        {"Москва", "iso-8859-5 windows-1251 KOI8-R"},
        {"北京", "ISO-10646-UCS-2"},
        {"Ķekava", "cp1257"},
        {"北京 😀", "GB18030 UTF-16LE UTF-16BE UTF-32 UTF-32BE utf-8"},
        {"日本語", "Shift_JIS EUC-JP ISO-2022-JP"},
        {"서울", "EUC-KR"},
    };
    for (const auto& [content, labels] : cases) {
        for (const QString& label : QString::fromLatin1(labels).split(u' ')) {
            SCOPED_TRACE(Name(label));
            const QString document = Declared(label, QString::fromUtf8(content));
            EXPECT_TRUE(text::KnowsEncoding(label));
            const Encoded encoded = EncodeNew(document);
            EXPECT_EQ(encoded.badPosition, -1);
            const Decoded decoded = Decode(encoded.bytes);
            EXPECT_EQ(decoded.text.toString(), document);
            EXPECT_EQ(decoded.warning, QString());
            EXPECT_EQ(decoded.form.declared, label);
            EXPECT_EQ(Encode(decoded.text.toString(), decoded.form).bytes, encoded.bytes);
        }
    }
    for (const char* label :
         {"x-none", "", "EBCDIC-US", "IBM037", "WCHAR_T", "INTERNAL", "ASCII//TRANSLIT", "UTF-8/x"})
        EXPECT_FALSE(text::KnowsEncoding(QString::fromLatin1(label))) << label;
}

TEST(TextFile, ReadsTheBytesThatOtherProgramsWrote) {
    const QByteArray gb = "<?xml version='1.0' encoding='gb2312'?><c>\xB1\xB1\xBE\xA9</c>";
    EXPECT_TRUE(Decode(gb).text.toString().contains(u"<c>\u5317\u4eac</c>"));
    const QByteArray utf16("<\0a\0>\0\x17\x53<\0/\0a\0>\0", 16); // no mark, no declaration
    EXPECT_EQ(Decode(utf16).text.toString(), u"<a>\u5317</a>"_qs);
    EXPECT_EQ(Encode(Decode(utf16).text.toString(), Decode(utf16).form).bytes, utf16);
    const QByteArray bigEndian("\0<\0a\0/\0>", 8);
    EXPECT_EQ(Decode(bigEndian).text.toString(), u"<a/>"_qs);
    const QByteArray utf7 = "<?xml version=\"1.0\" encoding=\"UTF-7\"?><a>+ZeVnLA</a>";
    EXPECT_TRUE(Decode(utf7).text.toString().contains(u"\u65e5\u672c"));
}

TEST(TextFile, WhatIsReadAndWrittenUnchangedKeepsItsBytes) {
    QByteArray all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    const QByteArray cases[] = {
        "",
        "\xEF\xBB\xBF",
        "\xEF\xBB\xBF<a/>\n",
        "\xEF\xBB\xBF\xEF\xBB\xBF<a/>",
        "\xFF\xFE",
        QByteArray("\xFF\xFE<\0a\0\n\0", 8),
        QByteArray("\xFE\xFF\0<\0a\0\r", 8),
        QByteArray("\xFF\xFE<\0\0\xD8>\0", 8), // half of a pair
        QByteArray("\xFF\xFE<\0a", 5),         // odd length
        QByteArray("\xFF\xFE\0\0<\0\0\0", 8),  // UTF-32
        QByteArray("\0\0\xFE\xFF\0\0\0<", 8),
        QByteArray("\0\0\xFE\xFF\0\0\0", 7),
        QByteArray("<a>\0</a>\r\n", 10),
        QByteArray("<\0a>", 4),
        "<a>\xFF\xFF</a>",
        "<a>caf\xE9</a>\n\r\n\r\r",
        "<?xml version='1.0' encoding='Shift_JIS'?><a>\x87\x90\xED\x40</a>", // twice in the encoding's table
        "<?xml version='1.0' encoding='windows-1252'?><a>\x81\x8D</a>",      // unassigned
        "<?xml version='1.0' encoding='1255'?><a>\xF9\xD1\xEC</a>",          // combining points
        "<?xml version='1.0' encoding='UTF-7'?><a>+AGEAYg-c+AC0-</a>",       // written in an unusual way
        "<?xml version='1.0' encoding='UTF-7'?><a>+AG",
        "<?xml version='1.0' encoding='GB2312'?><a>\xB1</a>",
        "<?xml version='1.0' encoding='ISO-2022-JP'?><a>\x1B$B",
        "<?xml version='1.0' encoding='UTF-16'?><a>\xC3\xA9</a>",
        "<?xml version='1.0' encoding='none-such'?><a>\xC3\xA9</a>",
        "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>",
        all,
        all + all,
    };
    for (const QByteArray& bytes : cases) {
        const Decoded decoded = Decode(bytes);
        EXPECT_EQ(Encode(decoded.text.toString(), decoded.form).bytes, bytes)
            << bytes.toPercentEncoding().toStdString();
    }
}

// A file in an 8-bit encoding has hardly any good sequence of several bytes.
TEST(TextFile, FewBadBytesInUtf8StayAsTheyAreAndManyMeanAnotherEncoding) {
    const QByteArray whole = "<a>\xC3\xA9\xE5\x8C\x97\xF0\x9F\x98\x80";
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        const QByteArray cut = whole.first(length);
        const Decoded decoded = Decode(cut);
        EXPECT_EQ(decoded.form.encoding, length == 4 ? u"ISO-8859-1"_qs : u"UTF-8"_qs) << length;
        EXPECT_EQ(decoded.warning.isEmpty(), QList<qsizetype>({0, 1, 2, 3, 5, 8, 12}).contains(length));
        EXPECT_EQ(Encode(decoded.text.toString(), decoded.form).bytes, cut) << length;
        EXPECT_EQ(Encode(decoded.text.toString() + u'\u00e9', decoded.form).bytes,
                  cut + (length == 4 ? "\xE9" : "\xC3\xA9"));
    }
    for (const char* wrong : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
                              "\xF4\x90\x80\x80", "\x80", "\xF8\x88\x80\x80\x80", "\xFE"}) {
        const QByteArray bytes(wrong);
        EXPECT_EQ(Decode(bytes).form.encoding, u"ISO-8859-1"_qs) << bytes.toHex().toStdString();
        // The same among good ones, the private characters that stand for it among them.
        const QByteArray among = "\xEF\xBB\xBF" + QByteArray("\xC3\xA9").repeated(9) + bytes +
                                 "\xF4\x8F\xBA\x80\xF4\x8F\xB9\x80\n" + bytes;
        const Decoded decoded = Decode(among);
        EXPECT_TRUE(decoded.form.mark && decoded.form.badBytes != 0) << bytes.toHex().toStdString();
        EXPECT_TRUE(decoded.warning.contains(u"byte 22.")) << Name(decoded.warning);
        EXPECT_EQ(Encode(u"<x/>"_qs + decoded.text.toString(), decoded.form).bytes,
                  "\xEF\xBB\xBF<x/>" + among.mid(3));
    }
}

TEST(TextFile, ADeclarationOfUtf8CoversOneBadByteAndNoOtherEncodingTakesIt) {
    const Decoded file = Decode("<?xml version='1.0' encoding='utf-8'?><a>caf\xE9</a>");
    EXPECT_EQ(file.form.encoding, u"UTF-8"_qs);
    const Encoded other = Encode(text::WithDeclaredEncoding(file.text.toString(), u"UTF-16"_qs), file.form);
    EXPECT_EQ(other.badPosition, other.encoding.isEmpty() ? -1 : file.text.toString().indexOf(u"caf") + 4);
    EXPECT_TRUE(
        Decode("<?xml version='1.0' encoding='utf-8'?><a>\xE9\xE8</a>").text.toString().contains(u'\u00e9'))
        << "all of it is in another encoding";
}

TEST(TextFile, LongTextsAreReadAcrossTheSeamsOfTheSteps) {
    QString line;
    for (int i = 0; i < 997; ++i)
        line += QString::fromUtf8(i % 7 == 0 ? "😀" : i % 5 == 0 ? "é北" : "abcdefg");
    QString document = Declared(u"UTF-8"_qs, line);
    for (int i = 0; i < 9; ++i)
        document += line + u"\r\n"_qs;
    for (const char* label : {"UTF-8", "UTF-16", "UTF-16BE", "GB18030", "UTF-7", "UTF-32"}) {
        const QString labelled = text::WithDeclaredEncoding(document, QString::fromLatin1(label));
        const QByteArray bytes = EncodeNew(labelled).bytes;
        EXPECT_TRUE(Decode(bytes).text == labelled) << label;
    }
    const QByteArray unix = document.toUtf8().replace("\r\n", "\n");
    EXPECT_TRUE(Decode(unix).text == document);
    EXPECT_EQ(Encode(document, Decode(unix).form).bytes, unix);
}

TEST(TextFile, TheByteOrderMarkWinsOverTheDeclarationAndTheUserLearnsOfIt) {
    const Decoded utf8 = Decode("\xEF\xBB\xBF<?xml version='1.0' encoding='GB2312'?><a>\xE5\x8C\x97</a>");
    EXPECT_TRUE(utf8.text.toString().endsWith(u"<a>\u5317</a>"));
    EXPECT_TRUE(utf8.form.mark);
    EXPECT_TRUE(utf8.warning.contains(u"GB2312") && utf8.warning.contains(u"UTF-8")) << Name(utf8.warning);
    const Decoded agreed = Decode("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a/>");
    EXPECT_EQ(agreed.warning, QString());
    // The mark doesn't fit the bytes: then the declaration is asked.
    const Decoded wrong = Decode("\xEF\xBB\xBF<?xml version='1.0' encoding='windows-1252'?><a>\xE9</a>");
    EXPECT_EQ(wrong.text.toString(), u"<?xml version='1.0' encoding='windows-1252'?><a>\u00e9</a>"_qs);
    EXPECT_FALSE(wrong.warning.isEmpty());
    EXPECT_EQ(Encode(wrong.text.toString() + u' ', wrong.form).bytes,
              "<?xml version='1.0' encoding='windows-1252'?><a>\xE9</a> ");
}

TEST(TextFile, WarnsWhereTheDeclaredEncodingDoesNotFit) {
    const Decoded other = Decode("<?xml version='1.0' encoding='ASCII'?><a>\xC3\xA9</a>");
    EXPECT_EQ(other.form.encoding, u"UTF-8"_qs);
    EXPECT_TRUE(other.warning.contains(u"ASCII")) << Name(other.warning);
    const Decoded unknown = Decode("<?xml version='1.0' encoding='none-such'?><a/>");
    EXPECT_TRUE(unknown.warning.contains(u"none-such")) << Name(unknown.warning);
    EXPECT_EQ(Decode("<a>\xE5\x8C\x97</a>").warning, QString());
    // Without a declaration a document is UTF-8, or one bad byte turns all of it into other letters.
    const Decoded undeclared = Decode("<a>\xE5\x8C\x97\xFF</a>");
    EXPECT_TRUE(undeclared.warning.contains(undeclared.form.encoding)) << Name(undeclared.warning);
}

TEST(TextFile, ACharsetStandsBetweenTheDeclarationAndUtf8) {
    const QString gb = u"gb2312"_qs;
    const Decoded read = Decode("<a>\xB1\xB1</a>\n", gb);
    EXPECT_EQ(read.text.toString(), u"<a>\u5317</a>\r\n"_qs);
    EXPECT_EQ(read.warning, QString());
    // Nothing in the text tells its encoding: it is written in the one that needs no telling.
    EXPECT_EQ(Encode(read.text.toString(), read.form).bytes, "<a>\xE5\x8C\x97</a>\n");

    const QByteArray declared = "<?xml version='1.0' encoding='iso-8859-1'?><a>\xE9\xE8</a>";
    EXPECT_TRUE(Decode(declared, gb).text.toString().endsWith(u"<a>\u00e9\u00e8</a>"));
    EXPECT_EQ(Encode(Decode(declared, gb).text.toString(), Decode(declared, gb).form).bytes, declared);
    EXPECT_EQ(Decode("\xEF\xBB\xBF<a>\xC3\xA9</a>", gb).text.toString(), u"<a>\u00e9</a>"_qs);
    EXPECT_EQ(Decode("<a>\xC3\xA9</a>", u"1252"_qs).text.toString(), u"<a>\u00c3\u00a9</a>"_qs); // not UTF-8

    for (const QString& wrong : {u"utf-8"_qs, u"us-ascii"_qs, u"none-such"_qs}) {
        const Decoded latin = Decode("<a>\xE9</a>", wrong);
        EXPECT_EQ(latin.text.toString(), u"<a>\u00e9</a>"_qs) << Name(wrong);
        EXPECT_TRUE(latin.warning.contains(wrong)) << Name(latin.warning);
        EXPECT_EQ(Encode(latin.text.toString(), latin.form).bytes, "<a>\xE9</a>") << Name(wrong);
    }
    // Any even number of bytes would pass for UTF-16.
    EXPECT_EQ(Decode("<ab>\xC3\xA9</ab>!", u"utf-16"_qs).text.toString(), u"<ab>\u00e9</ab>!"_qs);
    EXPECT_EQ(Decode(QByteArray("\xFF\xFE<\0", 4), u"utf-16"_qs).warning, QString());
}

TEST(TextFile, FollowsTheDeclarationOnceItChanges) {
    Decoded file =
        Decode("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a>\xC3\xA9</a>\n"); // is UTF-8 in truth
    QString edited = file.text.toString();
    edited.replace(u"</a>"_qs, u"!</a>"_qs);
    EXPECT_EQ(Encode(edited, file.form).bytes,
              "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a>\xC3\xA9!</a>\n");
    const Encoded latin = Encode(text::WithDeclaredEncoding(edited, u"ISO-8859-1"_qs), file.form);
    EXPECT_EQ(latin.bytes, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE9!</a>\n");
    EXPECT_EQ(latin.encoding, u"ISO-8859-1"_qs);
    const Encoded unknown = Encode(text::WithDeclaredEncoding(edited, u"none-such"_qs), file.form);
    EXPECT_EQ(unknown.encoding, u"UTF-8"_qs);
    // A declaration taken away means UTF-8.
    file = Decode("<?xml version=\"1.0\" encoding=\"1252\"?><a>\xE9</a>");
    EXPECT_EQ(Encode(u"<a>\u00e9</a>"_qs, file.form).bytes, "<a>\xC3\xA9</a>");
}

TEST(TextFile, ByteOrderMarksAreWrittenWhereTheFileHadOneAndForUtf16) {
    EXPECT_TRUE(EncodeNew(Declared(u"UTF-16"_qs, QString())).bytes.startsWith("\xFF\xFE<"));
    EXPECT_TRUE(
        EncodeNew(Declared(u"UTF-16BE"_qs, QString())).bytes.startsWith(QByteArray("\xFE\xFF\0<", 4)));
    const Decoded marked = Decode("\xEF\xBB\xBF<a/>");
    EXPECT_EQ(Encode(u"<b/>"_qs, marked.form).bytes, "\xEF\xBB\xBF<b/>");
    const Encoded narrow = Encode(Declared(u"1252"_qs, QString()), marked.form);
    EXPECT_TRUE(narrow.bytes.startsWith("<?xml"));
    EXPECT_FALSE(narrow.mark);
}

TEST(TextFile, NamesTheFirstCharacterThatTheEncodingCanNotHold) {
    const QString lf = u"<?xml version=\"1.0\" encoding=\"%1\"?>\r\n<a>ok\r\n%2</a>"_qs;
    for (const char* label : {"ASCII", "8859-1", "1252", "GB2312", "SHIFT-JIS", "BIG5", "850", "8859-2"}) {
        const QString document = lf.arg(QString::fromLatin1(label), u"\u0e01\u0e02"_qs);
        FileForm unix;
        unix.lineEnds.common = text::LineEnd::Lf; // the place counts in the text, not in the file
        const Encoded encoded = Encode(document, unix);
        EXPECT_EQ(encoded.badPosition, document.indexOf(QChar(0x0E01))) << label;
        EXPECT_TRUE(encoded.bytes.isEmpty()) << label;
    }
    for (const char* label : {"UTF-8", "UTF-16", "GB18030", "UTF-7", "UTF-32"}) {
        for (const char16_t half : {u'\xD83D', u'\xDE00'}) {
            const QString document = lf.arg(QString::fromLatin1(label), QChar(half));
            EXPECT_EQ(EncodeNew(document).badPosition, document.indexOf(QChar(half))) << label;
            EXPECT_EQ(EncodeNew(document.left(document.indexOf(QChar(half)) + 1)).badPosition,
                      document.indexOf(QChar(half)))
                << label;
        }
    }
}

TEST(TextFile, FindsAndChangesTheDeclaredEncoding) {
    const struct {
        QString text, label, changed;
    } cases[] = {
        {u"<?xml version=\"1.0\" encoding=\"GB2312\"?><a/>"_qs, u"GB2312"_qs,
         u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>"_qs},
        {u"<?xml version='1.0' encoding = '1252' standalone='yes'?>"_qs, u"1252"_qs,
         u"<?xml version='1.0' encoding = 'UTF-8' standalone='yes'?>"_qs},
        {u"<?xml version=\"1.0\" standalone=\"yes\"?>"_qs, QString(),
         u"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"_qs},
        {u"<?xml version=\"1.0\"?>"_qs, QString(), u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"_qs},
        {u"<a encoding=\"x\"/>"_qs, QString(), u"<a encoding=\"x\"/>"_qs},
        {u"<?xml-stylesheet encoding=\"x\"?>"_qs, QString(), u"<?xml-stylesheet encoding=\"x\"?>"_qs},
        {u" <?xml version=\"1.0\" encoding=\"x\"?>"_qs, QString(),
         u" <?xml version=\"1.0\" encoding=\"x\"?>"_qs},
        {u"<?xml version=\"1.0\" encoding=\"cut"_qs, QString(),
         u"<?xml version=\"1.0\" encoding=\"UTF-8\" encoding=\"cut"_qs},
        {u"<?xml"_qs, QString(), u"<?xml"_qs},
        {QString(), QString(), QString()},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text::DeclaredEncoding(c.text), c.label) << Name(c.text);
        EXPECT_EQ(text::WithDeclaredEncoding(c.text, u"UTF-8"_qs), c.changed) << Name(c.text);
    }
}
