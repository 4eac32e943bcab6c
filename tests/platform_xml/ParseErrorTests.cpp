// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ParsedDocument.h"
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

constexpr QChar kMark(0x00A6); // stands before the character that is to blame

struct Case {
    const char16_t* text; ///< with the mark
    const char* reason;   ///< a part of the sentence
};

/// Loads a text with a mark in it and compares the place that is reported with the mark's.
void ExpectErrorAtMark(QString text, const char* reason) {
    const qsizetype place = text.indexOf(kMark);
    ASSERT_GE(place, 0);
    text.remove(place, 1);
    QString ahead = text.left(place);
    if (ahead.endsWith(u'\r') && text.mid(place).startsWith(u'\n'))
        ahead.back() = u'x'; // CR LF is one line end, and both belong to the line that it ends
    const QStringList before = ahead.split(QRegularExpression(QStringLiteral("\r\n|\r|\n")));
    const QStringList lines = text.split(QRegularExpression(QStringLiteral("\r\n|\r|\n")));

    xml::ParsedDocument document;
    EXPECT_FALSE(document.loadXML(text));
    const xml::ParseError& error = document.parseError();
    EXPECT_EQ(error.filepos, place + 1) << error.reason.toStdString();
    EXPECT_EQ(error.line, before.size());
    EXPECT_EQ(error.linepos, before.last().size() + 1);
    EXPECT_EQ(error.srcText, lines[before.size() - 1]);
    EXPECT_NE(error.errorCode, 0);
    EXPECT_TRUE(error.reason.endsWith(QStringLiteral(".\r\n"))) << error.reason.toStdString();
    EXPECT_TRUE(error.reason.contains(QString::fromUtf8(reason))) << error.reason.toStdString();
}

// Content of an element.
const Case kInside[] = {
    {u"<b></¦a>", "end tag 'a' does not match the start tag 'b'"},
    {u"<b>x</¦ b>", "lacks its name"},
    {u"<b></b ¦x>", "'>' is missing before 'x'"},
    {u"<b x=\"1\" y='2' ¦x = \"3\"/>", "attribute 'x' stands twice"},
    {u"<b größe='1' ¦größe='1'></b>", "attribute 'größe' stands twice"},
    {u"<b x¦/>", "attribute 'x' has no value"},
    {u"<b x ¦y=\"1\"/>", "attribute 'x' has no value"},
    {u"<b x=¦1/>", "quotation mark, not with '1'"},
    {u"<b x=\"1\"¦y=\"2\"/>", "A blank is missing before 'y'"},
    {u"<b x=\"1 ¦< 2\"/>", "'<' cannot stand in an attribute value"},
    {u"<b x=\"1\" ¦<c/>", "'>' is missing before '<'"},
    {u"<¦1b/>", "A name cannot start with '1'"},
    {u"1 <¦ 2", "A name cannot start with a blank"},
    {u"<b ¦2=\"\"/>", "A name cannot start with '2'"},
    {u"R&¦ D", "'&' must start a reference"},
    {u"R&amp¦ D", "lacks its ';'"},
    {u"x ¦&nbsp; y", "entity 'nbsp' is not declared"},
    {u"<b x=\"1 ¦&nbsp; 2\"/>", "entity 'nbsp' is not declared"},
    {u"x ¦&#0; y", "'&#0;' does not stand for a character"},
    {u"<b x=\"¦&#xD800;\"/>", "'&#xD800;' does not stand for a character"},
    {u"x &#12¦a;", "number reference has 'a'"},
    {u"x &#x¦Z;", "number reference has 'Z'"},
    {u"x ¦]]> y", "']]>' cannot stand in a text"},
    {u"中 é ¦]]> y", "']]>' cannot stand in a text"},
    {u"<!-- x ¦-- y -->", "'--' cannot stand in a comment"},
    {u"<!-- é中 ¦-- y -->", "'--' cannot stand in a comment"},
    {u"<!-- x ¦--->", "'--' cannot stand in a comment"},
    {u"<?¦ x?>", "instruction must start with a name"},
    {u"<?¦xml version=\"1.0\"?>", "only at the very start"},
    {u"<?¦XML x?>", ""},
    {u"<¦!DOCTYPE a>", "not allowed here"},
    {u"a¦\u0001b", "U+0001 is not allowed"},
    {u"<b x='¦\u0008'/>", "U+0008 is not allowed"},
    {u"<b¦\u000B/>", "U+000B is not allowed"},
    {u"<!-- ¦\uFFFE -->", "U+FFFE is not allowed"},
    {u"<![CDATA[¦\u001F]]>", "U+001F is not allowed"},
    {u"<?p ¦\u0002?>", "U+0002 is not allowed"},
};

TEST(ParseError, PointsAtTheCharacterToBlameNearTheStart) {
    for (const Case& c : kInside) {
        SCOPED_TRACE(QString::fromUtf16(c.text).toStdString());
        ExpectErrorAtMark(QStringLiteral("<r>%1</r>").arg(QString::fromUtf16(c.text)), c.reason);
    }
}

/// Ahead of the error stand characters of one to four bytes and all kinds of line ends, more than any buffer
/// holds.
TEST(ParseError, PointsAtTheCharacterToBlameFarBehind) {
    QString filler;
    for (int i = 0; filler.size() < 320'000; ++i)
        filler += QStringLiteral("<e n=\"%1\">é 中文 😀</e>\r\n<f/>\r<g/>\n<![CDATA[😀]]>").arg(i);
    for (const Case& c : kInside) {
        SCOPED_TRACE(QString::fromUtf16(c.text).toStdString());
        const QString line = QStringLiteral("\r\n😀中%1\r\n").arg(QString::fromUtf16(c.text));
        ExpectErrorAtMark(QStringLiteral("<r>") + filler + line + QStringLiteral("<z/></r>"), c.reason);
        ExpectErrorAtMark(QStringLiteral("<r>") + filler.left(20'000).section(u'\r', 0, -2) + line + filler,
                          c.reason);
    }
}

TEST(ParseError, PointsAtTheCharacterToBlameInWholeDocuments) {
    const Case cases[] = {
        {u"<a/>\r\n¦<b/>", "Only one root element"},
        {u"<a/>\r\n¦text", "behind the root element"},
        {u"<a/>¦</a>", "no start tag"},
        {u"<a/>¦<!DOCTYPE a>", "Only one root element"},
        {u"  ¦text<a/>", "before the root element"},
        {u"<¦/a>", "no start tag"},
        {u"\r\n<?¦xml version=\"1.0\"?><a/>", "only at the very start"},
        {u"<?xml ¦encoding=\"UTF-8\"?><a/>", "must start with a version"},
        {u"<?xml version=\"¦2.0\"?><a/>", "must start with a version"},
        {u"<?xml version=\"1.0\" encoding=\"¦a b\"?><a/>", "not a name of an encoding"},
        {u"<?xml version=\"1.0\" standalone=\"¦maybe\"?><a/>", "standalone"},
        {u"<?xml version=\"1.0\"¦encoding=\"x\"?><a/>", "blank is missing"},
        {u"<?xml version=\"1.0\" ¦sense=\"x\"?><a/>", "in this order"},
        {u"<!DOCTYPE a [<!ENTITY e SYSTEM \"x.txt\">]><a>1 ¦&e;</a>", "'e' lies outside the document"},
        {u"<!DOCTYPE a [<!ENTITY e SYSTEM \"x.txt\">]><a b=\"1 ¦&e;\"/>", "'e' lies outside the document"},
        {u"<!DOCTYPE a SYSTEM \"x.dtd\"><a>1 ¦&e;</a>", "'e' is not declared"},
        {u"<!DOCTYPE a [<!ENTITY e SYSTEM \"x\" NDATA n>]><a>¦&e;</a>", "'e' is not a text"},
        {u"<!DOCTYPE a [<!ENTITY e \"x &f;\">]><a>¦&e;</a>", "'f' is not declared"},
        {u"<!DOCTYPE a [<!ENTITY e \"<b>\">]><a>x¦&e;</a>", "'e' does not fit here"},
        {u"<!DOCTYPE a [<!ENTITY e \"x < y\">]><a b=\"1¦&e;\"/>", "'e' does not fit here"},
        {u"<!DOCTYPE a [<!ENTITY e \"&f;\"><!ENTITY f \"&e;\">]><a>¦&e;</a>", "'e' refers to itself"},
        {u"<!DOCTYPE a [<!ENTITY e \"&f;\"><!ENTITY f \"&e;\">]><a b=\"¦&e;\"/>", "'e' refers to itself"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.text).toStdString());
        ExpectErrorAtMark(QString::fromUtf16(c.text), c.reason);
    }
}

TEST(ParseError, PointsAtTheLastCharacterWhenTheTextEndsTooSoon) {
    const Case cases[] = {
        {u"<a><b¦>", "element 'b' is not closed"},
        {u"<a>tex¦t", "element 'a' is not closed"},
        {u"<a>\r\n<b></b>\r¦\n", "element 'a' is not closed"},
        {u"<a>¦😀", "element 'a' is not closed"},
        {u"<a><!-- ¦x", "'-->' is missing"},
        {u"<a><![CDATA[ ]¦]", "']]>' is missing"},
        {u"<a><?p ¦x", "'?>' is missing"},
        {u"<a x=\"1¦>", "inside an attribute value"},
        {u"<a x¦=", "The text ends"},
        {u"<¦a", "The text ends"},
        {u"¦<", "The text ends"},
        {u"<a></¦a", "The text ends"},
        {u"<a>&am¦p", "';' is missing"},
        {u"<!--x--¦>", "no root element"},
        {u"<?xml version=\"1.0\"?¦>", "no root element"},
        {u"<?xml version=\"1.0\"¦ ", "lacks its '?>'"},
        {u"<!DOCTYPE ¦a", "inside the document type"},
        {u"<!DOCTYPE a [ <!ENTITY x \"1\"¦>", "inside the document type"},
        {u"\r¦\n", "no root element"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.text).toStdString());
        ExpectErrorAtMark(QString::fromUtf16(c.text), c.reason);
    }
}

/// Halves of surrogate pairs and U+0000 have no place in UTF-8 text or end it: they must not pass as
/// something else.
TEST(ParseError, RefusesCharactersThatCannotBeHandedOn) {
    const QChar halves[] = {QChar(u'\0'), QChar(0xD83D), QChar(0xDE00), QChar(0xFFFF)};
    for (const QChar half : halves) {
        for (const char* where :
             {"<a>x%1</a>", "<a b=\"%1\"/>", "<a/>%1", "%1<a/>", "<a><!--%1--></a>", "<a><?p%1 ?></a>"}) {
            SCOPED_TRACE(where);
            const QString text = QString::fromLatin1(where).arg(QString(kMark) + half);
            ExpectErrorAtMark(text, "is not allowed");
        }
    }
}

TEST(ParseError, GivesOneNumberToAKindOfErrorWhereverItStands) {
    const auto code = [](const char* text) {
        xml::ParsedDocument document;
        document.loadXML(QString::fromLatin1(text));
        return document.parseError().errorCode;
    };
    EXPECT_EQ(code("<a></b>"), code("<r>\r\n<x><y></z></x></r>"));
    EXPECT_EQ(code("<a>&x;</a>"), code("<!DOCTYPE a SYSTEM 'x'><a b=\"&y;\"/>"));
    EXPECT_NE(code("<a></b>"), code("<a b='1' b='2'/>"));
    EXPECT_NE(code("<a>&x;</a>"), code("<!DOCTYPE a [<!ENTITY x SYSTEM 'x'>]><a>&x;</a>"));
}

TEST(ParseError, CutsALongLineAroundTheError) {
    const QString start = QStringLiteral("<r>") + QString(1000, u'x');
    xml::ParsedDocument document;
    EXPECT_FALSE(document.loadXML(start + QStringLiteral("&no;") + QString(1000, u'y')));
    const QString source = document.parseError().srcText;
    EXPECT_EQ(source.size(), 400);
    EXPECT_EQ(source.indexOf(QStringLiteral("x&no;y")), 199);
    EXPECT_EQ(document.parseError().linepos, start.size() + 1);
}

TEST(ParseError, OfAnEmptyTextHasNoPlace) {
    xml::ParsedDocument document;
    EXPECT_FALSE(document.loadXML(QString()));
    EXPECT_NE(document.parseError().errorCode, 0);
    EXPECT_EQ(document.parseError().filepos, 0);
}

/// Every way to cut a document off is an error of its own, reported without a crash at a place inside the
/// text.
TEST(ParseError, EveryCutOffDocumentIsRefused) {
    const QString whole = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"850\"?><!DOCTYPE a [<!ENTITY e \"<b/>x\"><!ATTLIST a b CDATA "
        "'d'>]><a x=\"1&amp;&e2;\">&e;&#x4e2d;<![CDATA[]]]><?p d?><!--c-->😀</a>");
    for (qsizetype length = 0; length < whole.size(); ++length) {
        xml::ParsedDocument document;
        EXPECT_FALSE(document.loadXML(whole.left(length))) << length;
        EXPECT_LE(document.parseError().filepos, length) << length;
        EXPECT_TRUE(document.parseError().reason.endsWith(QStringLiteral("\r\n"))) << length;
    }
}

} // namespace
