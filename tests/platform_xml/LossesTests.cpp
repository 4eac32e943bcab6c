// SPDX-License-Identifier: GPL-3.0-or-later
// What a document that is written anew from its nodes would lack.
#include "platform/xml/ParsedDocument.h"
#include <gtest/gtest.h>

namespace {

/// Document types, sections, references, blanks, preserved.
std::string LossesOf(const QString& text) {
    xml::ParsedDocument document;
    if (!document.loadXML(text))
        return document.parseError().reason.toStdString();
    const xml::Losses losses = document.losses();
    std::string all;
    for (const int count :
         {losses.documentTypes, losses.sections, losses.references, losses.blanks, losses.preserved})
        all += std::to_string(count) + ' ';
    EXPECT_EQ(losses.any(), all != "0 0 0 0 0 ");
    return all;
}

TEST(Losses, AreCountedByTheirKind) {
    const std::pair<const char*, const char*> cases[] = {
        {"<?xml version='1.0'?>\n<!--c-->\n<a b='&lt;&#10;'>\r\n\t<b/>\n <c>x &amp;&#x4e2d; </c> <!----></a>",
         "0 0 0 1 0 "},
        {"<!DOCTYPE a><a/>", "1 0 0 0 0 "},
        {"<a><![CDATA[]]>x<![CDATA[y]]></a>", "0 2 0 0 0 "},
        // References, the five and numbers left out; those inside an entity or a declaration don't count.
        {"<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY f '&e;&e;'><!ENTITY g '&f;<c/><![CDATA[]]>'><!ATTLIST a d "
         "CDATA '&e;'>]>"
         "<a b='&e;&lt;&f;' c='&f;'>&f;&g;&g;<b/>&amp;&#65;&e;</a>",
         "1 2 7 0 0 "},
        {"<!DOCTYPE a [<!ENTITY lt '&#38;#60;'>]><a>&lt;</a>", "1 0 0 0 0 "},
        // Blanks between two siblings without a line end, or beside text.
        {"<a> <b/> <c/> </a>", "0 0 0 1 0 "},
        {"<a>\n <b/>\n <c/>\n</a>", "0 0 0 0 0 "},
        {"<a>\n <b/>\n <c/>\n x</a>", "0 0 0 1 0 "},
        {"<a>x<b/>\r\n<c/>\r <!--c-->\n\t<?p?> <d/>\n</a>", "0 0 0 4 0 "},
        // Those between tags that are written so come back.
        {"<a>x<b/>\r\n\t<c/>\r<!--c-->\n<?p?>\n\t<d>y<e/>\n\t\t<f/></d>\n</a>", "0 0 0 0 0 "},
        {"<a><b/>\n<c/>\n<![CDATA[x]]></a>", "0 1 0 2 0 "},
        {"<a>x<b>\n<c/>\n<c/>\n</b>\n</a>", "0 0 0 0 0 "},
        {"<a><b> </b>\n<b>\n</b></a>", "0 0 0 0 0 "},
        // Elements whose spacing counts.
        {"<a xml:space='preserve'>x y<b> </b><b>\nx</b><b>x\n</b><b>x</b> <c/>\n</a>", "0 0 0 0 4 "},
        {"<a xml:space='preserve'><b xml:space='default'> <c> </c> <d/></b>x</a>", "0 0 0 1 0 "},
        {"<a xml:space='preserve'><b> x </b></a>", "0 0 0 0 0 "},
    };
    for (const auto& [text, counts] : cases)
        EXPECT_EQ(LossesOf(QString::fromUtf8(text)), counts) << text;
}

TEST(Losses, BelongToTheDocumentThatWasLoadedLast) {
    xml::ParsedDocument document;
    EXPECT_FALSE(document.losses().any());
    ASSERT_TRUE(document.loadXML(QStringLiteral("<!DOCTYPE a><a><![CDATA[x]]></a>")));
    EXPECT_TRUE(document.losses().any());
    EXPECT_FALSE(document.loadXML(QStringLiteral("<!DOCTYPE a><a><![CDATA[x]]>")));
    EXPECT_FALSE(document.losses().any());
    ASSERT_TRUE(document.loadXML(QStringLiteral("<a/>")));
    EXPECT_FALSE(document.losses().any());
}

} // namespace
