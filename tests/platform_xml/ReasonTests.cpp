// SPDX-License-Identifier: GPL-3.0-or-later
// What the user reads when a text is refused: our sentences for every kind of error.
#include "platform/xml/ErrorCodes.h"
#include "platform/xml/ParsedDocument.h"
#include <gtest/gtest.h>
#include <libxml/parser.h>

namespace {

std::string Reason(const QString& text) {
    xml::ParsedDocument document;
    return document.loadXML(text) ? std::string("accepted") : document.parseError().reason.toStdString();
}

QString InType(const char16_t* declarations) {
    return QStringLiteral("<!DOCTYPE a [<!ENTITY % p ''>%1]><a/>").arg(QString::fromUtf16(declarations));
}

QString InEntity(const char16_t* content) {
    return QStringLiteral("<!DOCTYPE a [<!ENTITY e \"%1\">]><a>&e;</a>").arg(QString::fromUtf16(content));
}

struct Case {
    const char16_t* text;
    const char* reason; ///< a part of the sentence
};

// Declarations of a document type.
const Case kDeclarations[] = {
    {u"<!ENTITY e %p;>", "lacks its value"},
    {u"<!ENTITY e '%p;'>", "cannot be referred to inside a declaration"},
    {u"<!ENTITY e '100 %'>", "The character '%'"},
    {u"% p;", "The character '%'"},
    {u"%p", "lacks its ';'"},
    {u"%q;", "not declared"},
    {u"<!ENTITY e>", "A blank is missing"},
    {u"<!ENTITY e >", "lacks its value"},
    {u"<!ENTITY e x>", "lacks its value"},
    {u"<!ENTITY 1 'x'>", "A name cannot start with '1'"},
    {u"<!ENTITY e 'x' y>", "'>'"},
    {u"<!ENTITY e SYSTEM>", "A blank is missing"},
    {u"<!ENTITY e SYSTEM x>", "must start with a quotation mark"},
    {u"<!ENTITY e SYSTEM 'x#y'>", "cannot have a part behind '#'"},
    {u"<!ENTITY e PUBLIC '{' 'x'>", "a character that cannot stand in it"},
    {u"<!ENTITY e PUBLIC x 'y'>", "must start with a quotation mark"},
    {u"<!ENTITY e PUBLIC 'x'>", "A blank is missing"},
    {u"<!ENTITY e SYSTEM 'x' NDATA>", "A blank is missing"},
    {u"<!NOTATION n >", "must be declared with 'SYSTEM' or 'PUBLIC'"},
    {u"<!NOTATION n>", "A blank is missing"},
    {u"<!NOTATION n SYSTEM >", "must start with a quotation mark"},
    {u"<!NOTATION n SYSTEM 'x' y>", "notation is not closed"},
    {u"<!NOTATION 1 SYSTEM 'x'>", "name of a notation is missing"},
    {u"<!ATTLIST a b>", "A blank is missing"},
    {u"<!ATTLIST a b TEXT #IMPLIED>", "type of an attribute"},
    {u"<!ATTLIST a b (x y) #IMPLIED>", "lacks a '|' or its ')'"},
    {u"<!ATTLIST a b (x|) #IMPLIED>", "lacks a value"},
    {u"<!ATTLIST a b NOTATION x #IMPLIED>", "'('"},
    {u"<!ATTLIST a b CDATA IMPLIED>", "quotation mark"},
    {u"<!ATTLIST a b CDATA '<'>", "'<' cannot stand in an attribute value"},
    {u"<!ATTLIST a b CDATA '&e;'>", "'e' is not declared"},
    {u"<!ELEMENT a>", "A blank is missing"},
    {u"<!ELEMENT a TEXT>", "must be 'EMPTY', 'ANY' or a list"},
    {u"<!ELEMENT a (#PCDATA b)*>", "Behind '#PCDATA'"},
    {u"<!ELEMENT a (#PCDATA|b)>", "Behind '#PCDATA'"},
    {u"<!ELEMENT a (b,c|d)>", "all by '|'"},
    {u"<!ELEMENT a (b c)>", "lacks a ','"},
    {u"<!ELEMENT a (,b)>", "a list that starts with '('"},
    {u"<!ELEMENT a (#TEXT)>", "a list that starts with '('"},
    {u"<!ELEMENT a ANY b>", "'>'"},
    {u"<!THING a>", "not a declaration"},
    {u"x", "not a declaration"},
    {u"<![INCLUDE[x]]>", "not a declaration"},
    {u"<!-- x -- y -->", "'--' cannot stand in a comment"},
};

// The content of an entity.
const Case kContents[] = {
    {u"<b>", "does not fit here"},
    {u"</a><a>", "does not fit here"},
    {u"<b></c>", "an end tag does not match its start tag"},
    {u"<b c='1' c='2'/>", "an attribute stands twice"},
    {u"<b c/>", "an attribute has no value"},
    {u"<b c=1/>", "must start with a quotation mark"},
    {u"<b c='<'/>", "'<' cannot stand in an attribute value"},
    {u"<b c='1'd='2'/>", "a blank is missing"},
    {u"x < y", "a name is missing"},
    {u"]]>", "']]>' cannot stand"},
    {u"<!-- - -- -->", "'--' cannot stand"},
    {u"<!-- x", "'-->' is missing"},
    {u"<?x y", "'?>' is missing"},
    {u"<?xml version='1.0'?>", "only at the very start"},
    {u"<![CDATA[x", "']]>' is missing"},
    {u"&#38;", "does not fit here"},
    {u"&#38;x", "lacks its ';'"},
    {u"&#38;#xg;", "number reference"},
    {u"&#38;#0;", "not allowed in XML"},
};

TEST(Reason, EveryKindOfErrorHasASentenceOfItsOwn) {
    const auto expect = [](const QString& text, const char* reason) {
        const std::string found = Reason(text);
        EXPECT_NE(found.find(reason), std::string::npos) << text.toStdString() << ": " << found;
    };
    for (const Case& c : kDeclarations)
        expect(InType(c.text), c.reason);
    for (const Case& c : kContents)
        expect(InEntity(c.text), c.reason);
}

/// What the parser library itself says of a text.
QStringList LibrarysWords(const QString& text) {
    QStringList words;
    const QByteArray bytes = text.toUtf8();
    const auto keep = [](void* list, xmlErrorPtr error) {
        static_cast<QStringList*>(list)->append(QString::fromUtf8(error->message).simplified());
    };
    xmlSetStructuredErrorFunc(&words, keep);
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(bytes.constData(), static_cast<int>(bytes.size()), nullptr, nullptr,
                      XML_PARSE_NOENT | XML_PARSE_NONET),
        xmlFreeDoc);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    return words;
}

void ExpectOwnWords(const QString& text) {
    xml::ParsedDocument document;
    if (document.loadXML(text, {}, {}, xml::Prefixes::Declared))
        return;
    const QString reason = document.parseError().reason;
    EXPECT_TRUE(reason.endsWith(QStringLiteral(".\r\n"))) << text.toStdString();
    for (const QString& words : LibrarysWords(text))
        EXPECT_FALSE(reason.contains(words, Qt::CaseInsensitive))
            << text.toStdString() << words.toStdString();
}

/// All that can stand in a document, in part by chance and not by rule.
const char16_t* const kConstructs[] = {
    u"<?xml version=\"1.0\" encoding='x' standalone='yes'?><a b='1'><c/>&amp;&#x4e2d;&#65;</a>",
    u"<a x='&lt;'><!-- c --><?p d?><![CDATA[]]]></a><!-- e --><?f?>",
    u"<!DOCTYPE a PUBLIC 'p' \"s\" [<!ENTITY e '<b>&#38;x;</b>'><!ENTITY % p SYSTEM 'x'>%p;]><a/>",
    u"<!DOCTYPE a [<!ENTITY e PUBLIC 'p' 's' NDATA n><!NOTATION n PUBLIC 'x'><!NOTATION m SYSTEM 's'>]><a/>",
    u"<!DOCTYPE a [<!ELEMENT a (b,(c|d)*,e?)+><!ELEMENT b (#PCDATA|c)*><!ELEMENT c EMPTY>]><a/>",
    u"<!DOCTYPE a [<!ATTLIST a b (x|y) 'x' c NOTATION (n) #IMPLIED d ENTITIES #FIXED '&#65;'>]><a/>",
    u"<p:a xmlns:p='u' p:b='1'/>",
};

TEST(Reason, TheParserLibrarysWordsAreNeverShown) {
    for (const Case& c : kDeclarations)
        ExpectOwnWords(InType(c.text));
    for (const Case& c : kContents)
        ExpectOwnWords(InEntity(c.text));
    for (const char16_t* construct : kConstructs) {
        const QString whole = QString::fromUtf16(construct);
        EXPECT_EQ(Reason(whole), "accepted");
        for (qsizetype place = 0; place < whole.size(); ++place) {
            ExpectOwnWords(whole.left(place));
            ExpectOwnWords(QString(whole).remove(place, 1));
            for (const char16_t wrong : u"<>&%;'= x\u0001")
                ExpectOwnWords(QString(whole).replace(place, 1, QChar(wrong)));
        }
    }
}

/// The file's own mark is taken off before; one that is left has no place in front of a document.
TEST(Reason, AByteOrderMarkStandsInFrontOfNoDocument) {
    for (const char16_t* text :
         {u"¦<a/>", u"¦<?xml version=\"1.0\"?><a/>", u"<?xml version=\"1.0\"?>¦<a/>", u"\r\n¦<a/>", u"¦"}) {
        const QString marked = QString::fromUtf16(text);
        xml::ParsedDocument document;
        EXPECT_FALSE(document.loadXML(QString(marked).replace(u'¦', QChar::ByteOrderMark)));
        EXPECT_EQ(document.parseError().errorCode, xml::kErrorByteOrderMark) << marked.toStdString();
        EXPECT_EQ(document.parseError().filepos, marked.indexOf(u'¦') + 1);
        EXPECT_NE(document.parseError().reason.indexOf(QStringLiteral("byte-order mark")), -1);
    }
    EXPECT_EQ(Reason(QStringLiteral("<a b='\uFEFF'>\uFEFF<!--\uFEFF--></a>")), "accepted");
}

} // namespace
