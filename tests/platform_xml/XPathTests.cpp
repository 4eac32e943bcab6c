// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dump.h"
#include <gtest/gtest.h>

namespace {

const char16_t kBooks[] =
    u"<?xml version=\"1.0\"?><!DOCTYPE s:list><s:list xmlns=\"urn:d\" xmlns:s=\"urn:s\">"
    u"<book id=\"1\" s:kind=\"a:b\">One<![CDATA[ & more]]></book><!--note--><s:book id=\"2\"/>"
    u"<nobody:book xml:lang=\"de\"><book id=\"3\">Größe 😀</book></nobody:book><?go on?></s:list>";

/// Paths with two blanks or a line end between them.
QStringList PathsOf(const char* paths) {
    return QString::fromUtf8(paths).replace(u'\n', QStringLiteral("  ")).split(QStringLiteral("  "));
}

/// Names, or values of nodes without a name of their own, of what a path selects.
std::string Selected(const char* path) {
    xml::ParsedDocument document;
    if (!document.loadXML(QString::fromUtf16(kBooks)))
        return document.parseError().reason.toStdString();
    QString error;
    QString out;
    for (const xml::Node& node : document.selectNodes(QString::fromUtf8(path), &error)) {
        const QString name = node.nodeName();
        out += (name.startsWith(u'#') ? u'\'' + node.nodeValue() + u'\'' : name + AttributeOf(node, "id")) +
               u' ';
    }
    return (error.isEmpty() ? out.trimmed() : QStringLiteral("error")).toStdString();
}

TEST(XPath, MatchesPrefixesAsTheyAreWritten) {
    EXPECT_EQ(Selected("//book"), "book1 book3");
    EXPECT_EQ(Selected("//s:book"), "s:book2");
    EXPECT_EQ(Selected("/s:list/nobody:book/book"), "book3");
    EXPECT_EQ(Selected("//unknown:book"), "");
    EXPECT_EQ(Selected("//*[local-name()='book']"), "book1 s:book2 nobody:book book3");
    EXPECT_EQ(Selected("//book[@s:kind='a:b']"), "book1");
    EXPECT_EQ(Selected("//*[@xml:lang]"), "nobody:book");
    EXPECT_EQ(Selected("//*[@xmlns:s]"), "s:list");
}

TEST(XPath, FindsEveryKindOfNode) {
    EXPECT_EQ(Selected("//text()"), "'One' ' & more' 'Größe 😀'");
    EXPECT_EQ(Selected("//comment()"), "'note'");
    EXPECT_EQ(Selected("//processing-instruction()"), "xml go");
    EXPECT_EQ(Selected("//book[.='One & more']"), "book1");
    EXPECT_EQ(Selected("/"), "''");
}

TEST(XPath, GivesNodesOnceInDocumentOrderAndElementsForAttributes) {
    EXPECT_EQ(Selected("//book[@id='3'] | //@id | //nobody:book"), "book1 s:book2 nobody:book book3");
    EXPECT_EQ(Selected("//book[@id='3']/ancestor::*"), "s:list nobody:book");
    EXPECT_EQ(Selected("//book[@id='1|2'] | //comment()"), "'note'");
}

/// Paths are walked step by step; in parentheses the engine takes them as a whole. Both must find the same
/// nodes in the same order.
TEST(XPath, StepsSelectWhatTheEngineSelects) {
    const char* const texts[] = {
        "<s:list xmlns:s='urn:s' s:on='1'><book id='1'>One<![CDATA[ & more]]></book><!--note--><s:book/>"
        "<no:body><book id='3' lang='de'>x</book><book/></no:body><?go on?></s:list>",
        "<?xml version='1.0'?><!DOCTYPE a><!--first--><a n='0'><a n='1'><a n='2'>deep<b/></a><b>1</b><a "
        "n='3'/>"
        "</a><b n='4'>2<b>3</b></b><c.d-e/><a><b/><a/></a>tail</a><?last?>",
    };
    const QStringList paths = PathsOf(
        R"(/s:list/book  /s:list/*[2]  /s:list/book[1]/text()[2]  s:list/comment()  /*/*/*[1]  //book  //a
//a//b  //a/a//text()  //a//a//b  //b//b  //text()  //comment()  //node()
//processing-instruction()  //s:*  //s:book  //a[1]  //a[2]  //*[1][1]  //b[last()]
//a[position()<3]  //b[.='3']  //a[b][2]  //a[.//b]/b  //*[@id='3']  //*[a|b]  //a[count(a)=1]
//b[../a]  //book[@id>1]/..  //@id  //@*  //a/@n  /*/@s:on  //@xmlns:s  //b/..  //./b  //..  .
//b/ancestor::a  //a/descendant::b[1]  //b/preceding-sibling::*[1]  //b/following::*
//a[@n='1']/following-sibling::node()  //b/ancestor-or-self::*[2]  //a/self::a[@n]
/ * / * [ 1 ]  //c.d-e | //b | //a[1]  //text()[contains(., '[/]') or . = 'x']  //a[//b]/text())");
    for (const QString& plain : paths) {
        const std::string path = plain.toStdString();
        std::size_t selected = 0;
        for (const char* text : texts) {
            xml::ParsedDocument document;
            ASSERT_TRUE(document.loadXML(QString::fromUtf8(text)));
            QString error;
            const auto nodes = document.selectNodes(plain, &error);
            EXPECT_TRUE(error.isEmpty()) << path << ": " << error.toStdString();
            EXPECT_EQ(nodes, document.selectNodes(u'(' + plain + u')')) << path;
            selected += nodes.size();
        }
        EXPECT_GT(selected, 0U) << path << " proves nothing";
    }
}

TEST(XPath, AStepNeverSelectsThePlaceZero) {
    EXPECT_EQ(Selected("/s:list/book[0]"), "");
    EXPECT_EQ(Selected("//book[00]/text()"), "");
}

TEST(XPath, TellsAWrongPathFromOneThatSelectsNothing) {
    QStringList wrong = PathsOf(
        R"(//book[  count(//book)  //book/fly()  $x  //book |  x:f()  document('a')  /a[  /a//  /1a  /a[1]x
//a[]  //a/[1]  //book[@id=]  //a]  //a[1  .[1]  //@id[  a b  //nowhere::a)");
    wrong << QString() << QStringLiteral("  ");
    for (const QString& path : wrong)
        EXPECT_EQ(Selected(path.toUtf8().constData()), "error") << path.toStdString();
    EXPECT_EQ(Selected("//nothing"), "");
}

TEST(XPath, HostilePathsEndInAnError) {
    const QByteArray nested = QByteArray("(").repeated(5000) + '1' + QByteArray(")").repeated(5000);
    EXPECT_EQ(Selected(nested.constData()), "error");
    const QByteArray ones = "//book" + QByteArray("[1]").repeated(6000);
    EXPECT_EQ(Selected(("(" + ones + ")").constData()), "error");
    EXPECT_EQ(Selected(ones.constData()), "book1 book3"); // long, but it costs nothing
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<r>%1</r>").arg(QStringLiteral("<a/>").repeated(4000))));
    QString error;
    EXPECT_TRUE(document.selectNodes(QStringLiteral("//*[count(//*[count(//*)>1])>1]"), &error).empty());
    EXPECT_EQ(error, QStringLiteral("The path takes too long to evaluate."));
    EXPECT_EQ(document.selectNodes(QStringLiteral("//a"), &error).size(), 4000U);
    EXPECT_TRUE(error.isEmpty());
}

// The engine compares each node of one set with each of another where sets of many nodes meet. Paths that
// would make it do so with a large document's are walked, or refused.
TEST(XPath, LargeSetsAreJoinedQuicklyOrNotAtAll) {
    const QString record = QStringLiteral("<r><a>x</a><a>y</a></r>");
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<l>%1</l>").arg(record.repeated(100'000))));
    const std::pair<const char*, std::size_t> found[] = {
        {"/l/r//text()", 200'000},          {"//r//a//text()", 200'000},        {"//a/..", 100'000},
        {"//r[.//a='y']//text()", 200'000}, {"//r[1] | //a[2] | //r", 200'000}, {"//a/ancestor::r", 100'000},
    };
    for (const auto& [path, count] : found)
        EXPECT_EQ(document.selectNodes(QString::fromLatin1(path)).size(), count) << path;
    for (const char* path : {"(/l/r//text())[2]", "/l[count(r//text())>1]", "//a[preceding::a]", "(//a/..)/a",
                             "/l[//a | //r]", "/l[count(r/descendant::a)>1]"}) {
        QString error;
        EXPECT_TRUE(document.selectNodes(QString::fromLatin1(path), &error).empty());
        EXPECT_EQ(error, QStringLiteral("The path takes too long to evaluate.")) << path;
    }
}

TEST(XPath, AnEmptyDocumentHasNothingToSelect) {
    const xml::ParsedDocument document;
    EXPECT_TRUE(document.selectSingleNode(QStringLiteral("/")).isNothing());
}

} // namespace
