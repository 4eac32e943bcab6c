// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ParsedDocument.h"
#include <gtest/gtest.h>

namespace {

const char16_t kBooks[] =
    u"<?xml version=\"1.0\"?><!DOCTYPE s:list><s:list xmlns=\"urn:d\" xmlns:s=\"urn:s\">"
    u"<book id=\"1\" s:kind=\"a:b\">One<![CDATA[ & more]]></book><!--note--><s:book id=\"2\"/>"
    u"<nobody:book xml:lang=\"de\"><book id=\"3\">Größe 😀</book></nobody:book><?go on?></s:list>";

/// Names, or values of nodes without a name of their own, of what a path selects.
std::string Selected(const char* path) {
    xml::ParsedDocument document;
    if (!document.loadXML(QString::fromUtf16(kBooks)))
        return document.parseError().reason.toStdString();
    QString error;
    QString out;
    for (const xml::Node& node : document.selectNodes(QString::fromUtf8(path), &error)) {
        const QString name = node.nodeName();
        out += (name.startsWith(u'#') ? u'\'' + node.nodeValue() + u'\''
                                      : name + node.getAttribute(QStringLiteral("id"))) +
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

/// Paths of plain steps go a way of their own; written in long form they go through the engine. Both must
/// agree.
TEST(XPath, PlainStepsSelectWhatTheEngineSelects) {
    const std::pair<const char*, const char*> paths[] = {
        {"/s:list/book", "/child::s:list/child::book"},
        {"/s:list[1]/*", "/child::s:list[1]/child::*"},
        {"/s:list/*[2]", "/child::s:list/child::*[2]"},
        {"/s:list/book[1]/text()", "/child::s:list/child::book[1]/child::text()"},
        {"/s:list/book[1]/text()[2]", "/child::s:list/child::book[1]/child::text()[2]"},
        {"/s:list/*/book[1]", "/child::s:list/child::*/child::book[1]"},
        {"/s:list/comment()[1]", "/child::s:list/child::comment()[1]"},
        {"/s:list/book[0]", "/child::s:list/child::book[0]"},
        {"/list", "/child::list"},
    };
    for (const auto& [plain, engine] : paths)
        EXPECT_EQ(Selected(plain), Selected(engine)) << plain;
    EXPECT_EQ(Selected("/s:list/nobody:book[1]/book[1]"), "book3");
    EXPECT_EQ(Selected("/s:list/book[1]/text()[2]"), "' & more'");
}

TEST(XPath, TellsAWrongPathFromOneThatSelectsNothing) {
    for (const char* path : {"//book[", "", "  ", "count(//book)", "//book/fly()", "$x", "//book |", "x:f()",
                             "document('a')", "/a[", "/a//", "/1a", "/a[1]x"})
        EXPECT_EQ(Selected(path), "error") << path;
    EXPECT_EQ(Selected("//nothing"), "");
}

TEST(XPath, HostilePathsEndInAnError) {
    EXPECT_EQ(
        Selected(
            QByteArray("(").repeated(5000).append('1').append(QByteArray(")").repeated(5000)).constData()),
        "error");
    EXPECT_EQ(Selected(QByteArray("//book").append(QByteArray("[1]").repeated(6000)).constData()), "error");
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<r>%1</r>").arg(QStringLiteral("<a/>").repeated(4000))));
    QString error;
    EXPECT_TRUE(document.selectNodes(QStringLiteral("//*[count(//*[count(//*)>1])>1]"), &error).empty());
    EXPECT_EQ(error, QStringLiteral("The path takes too long to evaluate."));
    EXPECT_EQ(document.selectNodes(QStringLiteral("//a"), &error).size(), 4000U);
    EXPECT_TRUE(error.isEmpty());
}

TEST(XPath, AnEmptyDocumentHasNothingToSelect) {
    const xml::ParsedDocument document;
    EXPECT_TRUE(document.selectSingleNode(QStringLiteral("/")).isNothing());
}

} // namespace
