// SPDX-License-Identifier: GPL-3.0-or-later
// Names with prefixes, by the rules of Namespaces in XML 1.0.
#include "platform/xml/ErrorCodes.h"
#include "platform/xml/ParsedDocument.h"
#include <gtest/gtest.h>

namespace {

constexpr QChar kMark(0x00A6); // stands before the name that is to blame

struct Case {
    const char16_t* text; ///< with the mark
    int code;
    const char* reason; ///< a part of the sentence
};

void ExpectRefusal(const Case& c) {
    QString text = QString::fromUtf16(c.text);
    SCOPED_TRACE(text.toStdString());
    const qsizetype place = text.indexOf(kMark);
    text.remove(place, 1);
    xml::ParsedDocument document;
    EXPECT_TRUE(document.loadXML(text)) << document.parseError().reason.toStdString();
    ASSERT_FALSE(document.loadXML(text, {}, {}, xml::Prefixes::Declared));
    const xml::ParseError& error = document.parseError();
    EXPECT_EQ(error.errorCode, c.code);
    EXPECT_EQ(error.filepos, place + 1);
    EXPECT_TRUE(error.reason.contains(QString::fromUtf8(c.reason))) << error.reason.toStdString();
}

#define XML_SPACE u"http://www.w3.org/XML/1998/namespace"
#define XMLNS_SPACE u"http://www.w3.org/2000/xmlns/"

// Each text is well-formed, and good where any prefix will do.
const Case kRefused[] = {
    {u"<¦p:a/>", xml::kErrorUnboundPrefix, "The prefix 'p' of the name 'p:a' is not declared."},
    {u"<a p=\"p:b=\">\r\n<b  c='p:b'\t¦p:b = '>' d=\"\"/></a>", xml::kErrorUnboundPrefix, "'p:b'"},
    {u"<a><b xmlns:p='u'><p:c/></b><¦p:b/></a>", xml::kErrorUnboundPrefix, "'p:b'"},
    {u"<a><p:b xmlns:p='u'/><b ¦p:c=''></b></a>", xml::kErrorUnboundPrefix, "'p:c'"},
    {u"<¦a:b:c xmlns:a='u'/>", xml::kErrorTwoColons, "'a:b:c' has more than one ':'"},
    {u"<a ¦xmlns:a:b='u'/>", xml::kErrorTwoColons, "'xmlns:a:b'"},
    {u"<¦:a/>", xml::kErrorNoPrefix, "no prefix"},
    {u"<a ¦:='1'/>", xml::kErrorNoPrefix, "':'"},
    {u"<a ¦b:='1'/>", xml::kErrorNoLocalPart, "nothing behind"},
    {u"<a ¦xmlns:='u'/>", xml::kErrorNoLocalPart, "'xmlns:'"},
    {u"<a xmlns:p='u'><¦p:1/></a>", xml::kErrorLocalPart, "cannot start with '1'"},
    {u"<a xmlns:p='u' xmlns:q='u' p:b='' b='' ¦q:b=''/>", xml::kErrorSameAttribute, "'q:b' stands twice"},
    {u"<a xmlns:p='u'><b xmlns:q='v'><c q:b='' p:c='' xmlns:q='u' ¦p:b='' q:d=''/></b></a>",
     xml::kErrorSameAttribute, "'p:b'"},
    {u"<a ¦xmlns:xml='u'/>", xml::kErrorXmlPrefix, "'xml'"},
    {u"<a ¦xmlns:xml=''/>", xml::kErrorXmlPrefix, "'xml'"},
    {u"<a ¦xmlns:p='" XML_SPACE u"'/>", xml::kErrorXmlNamespace, "No other prefix"},
    {u"<a ¦xmlns='" XML_SPACE u"'/>", xml::kErrorXmlNamespace, "No other prefix"},
    {u"<a ¦xmlns:xmlns='" XMLNS_SPACE u"'/>", xml::kErrorXmlnsPrefix, "'xmlns'"},
    {u"<a><¦xmlns:b/></a>", xml::kErrorXmlnsElement, "'xmlns:b'"},
    {u"<a ¦xmlns:p='" XMLNS_SPACE u"'/>", xml::kErrorXmlnsNamespace, "namespace"},
    {u"<a ¦xmlns='" XMLNS_SPACE u"'/>", xml::kErrorXmlnsNamespace, "namespace"},
    {u"<a xmlns:p='u'><b ¦xmlns:p=''/></a>", xml::kErrorEmptyNamespace, "'p' is empty"},
    {u"<a><?¦p:q x?></a>", xml::kErrorColon, "'p:q' cannot have a ':'"},
    {u"<!DOCTYPE a [ <?¦p:q?> ]><a/>", xml::kErrorColon, "'p:q'"},
    {u"<!DOCTYPE ¦a:b:c SYSTEM 'a:b:c'><a/>", xml::kErrorTwoColons, "'a:b:c'"},
    {u"<!DOCTYPE a [<!ENTITY x 'x'><!ENTITY ¦p:q '<b>p:q</b>'>]><a/>", xml::kErrorColon, "'p:q'"},
    {u"<!DOCTYPE a [<!ENTITY % ¦p:q 'x'>]><a/>", xml::kErrorColon, "'p:q'"},
    {u"<!DOCTYPE a [<!ENTITY ¦p:q SYSTEM 'x' NDATA n>]><a/>", xml::kErrorColon, "'p:q'"},
    {u"<!DOCTYPE a [<!NOTATION ¦p:q SYSTEM 'x' >]><a/>", xml::kErrorColon, "'p:q'"},
    {u"<!DOCTYPE a [<!ELEMENT ¦b: ANY>]><a/>", xml::kErrorNoLocalPart, "'b:'"},
    {u"<!DOCTYPE a [<!ATTLIST a b CDATA 'x' ¦:c CDATA #IMPLIED>]><a/>", xml::kErrorNoPrefix, "':c'"},
    // Defaults from the document type are attributes like others; the element stands for them.
    {u"<!DOCTYPE a [<!ATTLIST b p:c CDATA ''>]><a><¦b d=''/></a>", xml::kErrorUnboundPrefix, "'p:c'"},
    {u"<!DOCTYPE a [<!ATTLIST b xmlns:p CDATA 'u'>]><a><b><p:c/></b><¦p:b/></a>", xml::kErrorUnboundPrefix,
     "'p:b'"},
    {u"<!DOCTYPE a [<!ATTLIST a p:b CDATA ''>]><a xmlns:p='u'><¦a xmlns:q='u' q:b=''/></a>",
     xml::kErrorSameAttribute, "'p:b'"},
    {u"<!DOCTYPE a [<!ATTLIST a xmlns:q NMTOKEN ' u '>]><a xmlns:p='u' p:b='' ¦q:b=''/>",
     xml::kErrorSameAttribute, "'q:b'"},
    // What stands in an entity is to blame where the entity is used.
    {u"<!DOCTYPE a [<!ENTITY e \"x<p:b/>\">]><a><!--;-->¦&e;></a>", xml::kErrorUnboundPrefix,
     "entity 'e' does not fit here: the prefix 'p'"},
    {u"<!DOCTYPE a [<!ENTITY % e '<!NOTATION p:q SYSTEM \"x\">'> ¦%e;]><a/>", xml::kErrorColon,
     "entity 'e' does not fit here"},
};

TEST(Namespace, NamesThatBreakTheRulesAreRefusedWhereTheyStand) {
    for (const Case& c : kRefused)
        ExpectRefusal(c);
}

TEST(Namespace, NamesThatKeepTheRulesAreTaken) {
    const char16_t* const good[] = {
        u"<p:a xml:lang='de' q:b='' p:b='' b='' xmlns:q='v' xmlns:p='u'><q:p xmlns='w'><p:q/></q:p></p:a>",
        u"<a xmlns='u' xmlns:p='u' b='' p:b=''><b xmlns=''/></a>", // a default is none of attributes
        u"<a xmlns:p='u'><b xmlns:p='v' xmlns:q='u' p:c='' q:c=''/><b p:c=''/><p:b/></a>",
        u"<a xmlns:xml='" XML_SPACE u"'><xmlns/><xml:b xmla='1'/></a>",
        u"<a xmlns:p='u' xmlns:q='U' p:b='' q:b=''/>", // names of namespaces are compared letter by letter
        u"<a xmlns:p='\u00fc' xmlns:q='\u4e2d' xmlns:r='\u4e2d\u00fc' p:b='' q:b='' r:b=''/>",
        u"<!DOCTYPE p:a [<!ATTLIST p:a xmlns:p CDATA 'u' q:b CDATA ''>"
        u"<!ENTITY e \"<q:c/><q:c xmlns:q='w'/>\">]><p:a xmlns:q='v'>&e;&e;</p:a>",
    };
    for (const char16_t* text : good) {
        xml::ParsedDocument document;
        EXPECT_TRUE(document.loadXML(QString::fromUtf16(text), {}, {}, xml::Prefixes::Declared))
            << QString::fromUtf16(text).toStdString() << document.parseError().reason.toStdString();
    }
}

/// A tag that isn't finished lacks more than its declarations.
TEST(Namespace, ATextThatEndsInATagIsTooShort) {
    const QString whole = QStringLiteral("<a><p:b q:c='1' xmlns:p='u' xmlns:q='v'>");
    for (qsizetype length = 1; length <= whole.size(); ++length) {
        xml::ParsedDocument document;
        EXPECT_FALSE(document.loadXML(whole.left(length), {}, {}, xml::Prefixes::Declared));
        EXPECT_FALSE(xml::IsNamespaceError(document.parseError().errorCode)) << length;
    }
}

/// Many declarations in each other, and elements with many attributes of several prefixes.
TEST(Namespace, DeclarationsEndWithTheirElement) {
    QString text = QStringLiteral("<a xmlns:p='0'>"), end = QStringLiteral("</a>");
    for (int i = 1; i <= 4000; ++i) {
        text += QStringLiteral("<p:a xmlns:p='%1' xmlns:q='%2' p:b='' q:b=''>").arg(i).arg(i - 1);
        end.prepend(QStringLiteral("<b q:b='' p:b=''/></p:a>"));
    }
    xml::ParsedDocument document;
    EXPECT_TRUE(document.loadXML(text + end, {}, {}, xml::Prefixes::Declared));
    QString tag = QStringLiteral("<a xmlns:p='u' xmlns:q='v' xmlns:r='u'");
    for (int i = 0; i < 3000; ++i)
        tag += QStringLiteral(" p:b%1='' q:b%1=''").arg(i);
    EXPECT_TRUE(document.loadXML(tag + QStringLiteral("/>"), {}, {}, xml::Prefixes::Declared));
    EXPECT_FALSE(document.loadXML(tag + QStringLiteral(" r:b1500=''/>"), {}, {}, xml::Prefixes::Declared));
    EXPECT_EQ(document.parseError().errorCode, xml::kErrorSameAttribute);
    EXPECT_EQ(document.parseError().filepos, tag.size() + 2);
}

} // namespace
