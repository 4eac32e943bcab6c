// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dump.h"
#include <gtest/gtest.h>

namespace {

TEST(Load, KeepsAllKindsOfNodesInDocumentOrder) {
    EXPECT_EQ(
        Dump(QStringLiteral(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<!-- list -->\r\n<?xml-stylesheet href=\"a.xsl\"?>\r\n<!DOCTYPE d:books SYSTEM \"b.dtd\">\r\n"
            "<d:books><book>One &amp; two</book><![CDATA[<raw>]]></d:books>\r\n<!--end--><?done?>")),
        "7:xml'version=\"1.0\" encoding=\"UTF-8\"' 8:#comment' list ' 7:xml-stylesheet'href=\"a.xsl\"' "
        "10:d:books'' 1:d:books[1:book[3:#text'One & two'] 4:#cdata-section'<raw>'] 8:#comment'end' "
        "7:done''");
}

TEST(Load, KeepsAttributesInTheOrderOfTheTextWithNamespaceDeclarationsAmongThem) {
    EXPECT_EQ(Dump(QStringLiteral(
                  "<a z=\"1\" xmlns:q=\"u\" b='&lt;&quot;&#x4e2d;' xmlns=\"d\" nobody:c=\"x\r\ny\"/>")),
              "1:a(z=1)(xmlns:q=u)(b=<\"中)(xmlns=d)(nobody:c=x y)");
}

TEST(Load, IgnoresTheEncodingThatTheTextNames) {
    for (const char* label :
         {"UTF-16", "GB2312", "1252", "8859-1", "850", "MS-KANJI", "x-nobody-knows", "UTF-7"}) {
        const QString data =
            QStringLiteral("version=\"1.0\" encoding=\"%1\" standalone='yes'").arg(QLatin1String(label));
        const QString text = QStringLiteral("<?xml ") + data + QStringLiteral("?><a>żółw 😀 中</a>");
        EXPECT_EQ(Dump(text), "7:xml'" + data.toStdString() + "' 1:a[3:#text'żółw 😀 中']");
    }
}

TEST(Load, JoinsTextOverReferencesAndKeepsItApartAroundMarkup) {
    EXPECT_EQ(Dump(QStringLiteral("<!DOCTYPE a [<!ENTITY e \"in<b>side</b>out\"><!ENTITY n \"N\">]>"
                                  "<a>1&n;2&#51;&e;4<!--c-->5<![CDATA[6]]><![CDATA[7]]>8\r\n9\r0</a>")),
              "10:a'' 1:a[3:#text'1N23in' 1:b[3:#text'side'] 3:#text'out4' 8:#comment'c' 3:#text'5' "
              "4:#cdata-section'6' 4:#cdata-section'7' 3:#text'8\n9\n0']");
}

TEST(Load, DropsTextOfWhiteSpaceAlone) {
    EXPECT_EQ(Dump(QStringLiteral("<a> \r\n\t<b> </b> &#32;&#9; <c> x </c> <!----> </a>")),
              "1:a[1:b 1:c[3:#text' x '] 8:#comment'']");
}

TEST(Load, KeepsWhiteSpaceWhereXmlSpaceSaysSo) {
    EXPECT_EQ(
        Dump(QStringLiteral(
            "<a> <b xml:space=\"preserve\"> <c xml:space=\"default\"> <d/></c> <e> </e></b> </a>")),
        "1:a[1:b(xml:space=preserve)[3:#text' ' 1:c(xml:space=default)[1:d] 3:#text' ' 1:e[3:#text' ']]]");
}

TEST(Load, AddsDeclaredDefaultsAndTrimsTokens) {
    EXPECT_EQ(Dump(QStringLiteral(
                  "<!DOCTYPE a [<!-- x --><?y z?>\n<!ATTLIST a kind CDATA \"plain\" ids NMTOKENS #IMPLIED>\n"
                  "<!ATTLIST a kind CDATA \"second\">]><a ids=\"  x   y \"><a kind=\"own\"/></a>")),
              "10:a'' 1:a(ids=x y)(kind=plain)[1:a(kind=own)]");
}

TEST(Load, PassesOverExternalSubsetsAndParameterEntities) {
    EXPECT_EQ(Dump(QStringLiteral(
                  "<!DOCTYPE a SYSTEM \"file:///etc/passwd\" [<!ENTITY % p SYSTEM \"file:///etc/passwd\">\n"
                  "%p;<!ENTITY x \"1\">]><a>&x;</a>")),
              "10:a'' 1:a[3:#text'1']");
}

TEST(Load, TakesNamesWithPrefixesAsTheyAreWritten) {
    EXPECT_EQ(Dump(QStringLiteral("<a:b:c :d=\"1\"><Größe-1.x/></a:b:c>")), "1:a:b:c(:d=1)[1:Größe-1.x]");
}

TEST(Load, HandlesTellWhereTheyStand) {
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<!--c--><r a=\"1\" b=\"zwei\"><x/>t</r>")));
    const xml::Node root = document.documentElement();
    EXPECT_EQ(root.nodeName(), QStringLiteral("r"));
    EXPECT_EQ(AttributeOf(root, "b"), QStringLiteral("zwei"));
    EXPECT_TRUE(AttributeOf(root, "c").isEmpty());
    EXPECT_EQ(root.parentNode(), document.document());
    EXPECT_EQ(root.firstChild().parentNode(), root);
    EXPECT_TRUE(root.firstChild().firstChild().isNothing());
    EXPECT_TRUE(root.firstChild().nextSibling().nextSibling().isNothing());
    EXPECT_TRUE(document.document().parentNode().isNothing());
    EXPECT_EQ(document.nodeCount(), 4U);
    EXPECT_EQ(document.document().nodeTypeString(), QStringLiteral("document"));
}

TEST(Load, AFailedLoadLeavesNothingOfTheDocumentBefore) {
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<a/>")));
    EXPECT_FALSE(document.loadXML(QStringLiteral("<a>"), QStringLiteral("c:\\x.xml")));
    EXPECT_TRUE(document.document().isNothing());
    EXPECT_TRUE(document.documentElement().isNothing());
    EXPECT_EQ(document.parseError().url, QStringLiteral("c:\\x.xml"));
    ASSERT_TRUE(document.loadXML(QStringLiteral("<b/>")));
    EXPECT_EQ(document.parseError().errorCode, 0);
}

/// Pieces longer than any buffer on the way, with characters of one to four bytes at every offset of its
/// edges.
TEST(Load, KeepsLongContentOfAllScriptsWhole) {
    QString text = QStringLiteral("x");
    while (text.size() < 70'000)
        text += QStringLiteral("é中😀abc");
    xml::ParsedDocument document;
    for (int shift = 0; shift < 5; ++shift) {
        text += u'.';
        ASSERT_TRUE(
            document.loadXML(QStringLiteral("<a b=\"%1\">%1<!--%1--><![CDATA[%1]]><?p %1?></a>").arg(text)));
        const xml::Node root = document.documentElement();
        EXPECT_EQ(AttributeOf(root, "b"), text);
        int pieces = 0;
        for (xml::Node node = root.firstChild(); node; node = node.nextSibling(), ++pieces)
            EXPECT_EQ(node.nodeValue(), text) << "node type " << node.nodeType();
        EXPECT_EQ(pieces, 4);
    }
}

/// More nodes and attributes than one chunk of the storage holds.
TEST(Load, KeepsManyNodesInOrder) {
    QString text = QStringLiteral("<r>");
    for (int i = 0; i < 50'000; ++i)
        text += QStringLiteral("<e n=\"%1\" m=\"x\" o=\"y\"/>").arg(i);
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(text + QStringLiteral("</r>")));
    int next = 0;
    for (xml::Node node = document.documentElement().firstChild(); node; node = node.nextSibling(), ++next) {
        ASSERT_EQ(AttributeOf(node, "n"), QString::number(next));
        ASSERT_EQ(AttributeOf(node, "o"), QStringLiteral("y"));
    }
    EXPECT_EQ(next, 50'000);
}

} // namespace
