// SPDX-License-Identifier: GPL-3.0-or-later
// What is accepted as a name, a value or a text, and what the user hears of the rest.
#include "core/edit/Report.h"
#include "core/edit/Validate.h"
#include "core/model/FileNames.h"
#include "core/model/Parse.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using namespace m_tvXML;

const QString kElementName = QStringLiteral("x");

// A name is judged by the parser, without what stands in front of its first colon.
TEST(Validate, NodeNamesAreWhatTheParserTakesBehindThePrefix) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    for (const char* good : {"book", "a:b", "a b:c", "_x.1-y", "书"})
        EXPECT_TRUE(edit::ValidateNodeName(t.app(), QString::fromUtf8(good))) << good;
    for (const char* bad : {"1a", "a b", "x:", "a<b", "a>", "a/", "a\"", " "})
        EXPECT_FALSE(edit::ValidateNodeName(t.app(), QString::fromUtf8(bad))) << bad;
    ASSERT_FALSE(t.prompts.boxes.empty());
    EXPECT_EQ(t.prompts.boxes.front().title, QStringLiteral("XML node name fomula"));
    EXPECT_EQ(t.prompts.boxes.front().icon, services::Icon::Information);
    EXPECT_TRUE(
        t.prompts.boxes.front().text.startsWith(QStringLiteral("Sample:Abc\r\nXML node name ::= (Letter")));

    const std::size_t boxes = t.prompts.boxes.size();
    EXPECT_FALSE(edit::ValidateNodeName(t.app(), {}));
    EXPECT_EQ(t.prompts.boxes.size(), boxes) << "an empty name is refused without a word";
}

// Values and texts are pasted in raw, so they are judged as escaped XML.
TEST(Validate, ValuesAndTextsAreJudgedAsEscapedXml) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    for (const char* good : {"it's", "&amp;", "", ">"})
        EXPECT_TRUE(edit::ValidateNodeAttributeValue(t.app(), QLatin1String(good), kElementName,
                                                     QStringLiteral("id")))
            << good;
    for (const char* bad : {"a \"b\"", "&", "<"})
        EXPECT_FALSE(
            edit::ValidateNodeAttributeValue(t.app(), QLatin1String(bad), kElementName, QStringLiteral("id")))
            << bad;
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("This is not a validate attribute value"));
    EXPECT_FALSE(edit::ValidateNodeAttributeValue(t.app(), QStringLiteral("1"), {}, QStringLiteral("id")));

    for (const char* good : {"", "<b>x</b>", "a</x><x>b", "a \"b\""})
        EXPECT_TRUE(edit::ValidateNodeText(t.app(), QLatin1String(good), kElementName)) << good;
    for (const char* bad : {"</y><y>", "</x>", "a & b"})
        EXPECT_FALSE(edit::ValidateNodeText(t.app(), QLatin1String(bad), kElementName)) << bad;
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("This is not a validate node text"));
    EXPECT_TRUE(edit::ValidateNodeText(t.app(), QStringLiteral("y"), QStringLiteral("ns:x")));
}

TEST(Validate, AttributeNamesAndLists) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    for (const char* good : {"id", "xlink:href"})
        EXPECT_TRUE(edit::ValidateNodeAttributeName(t.app(), QLatin1String(good), kElementName)) << good;
    for (const char* bad : {"1d", "a b", ""})
        EXPECT_FALSE(edit::ValidateNodeAttributeName(t.app(), QLatin1String(bad), kElementName)) << bad;
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("This is not a validate attribute name"));
    EXPECT_EQ(t.prompts.boxes.back().icon, services::Icon::Critical);

    for (const char* good : {"", "a=\"1\" b='2'"})
        EXPECT_TRUE(edit::ValidateNodeAttributes(t.app(), QLatin1String(good), kElementName, true)) << good;
    for (const char* bad : {"a=\"1\" a=\"2\"", "a=1"})
        EXPECT_FALSE(edit::ValidateNodeAttributes(t.app(), QLatin1String(bad), kElementName, true)) << bad;
    EXPECT_EQ(t.prompts.boxes.back().title, QStringLiteral("This is not valid attributes"));
}

// The parser has nothing against another attribute, but one name or value was meant.
TEST(Validate, WhatWouldBeAnotherAttributeIsRefused) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    EXPECT_FALSE(edit::ValidateNodeName(t.app(), QStringLiteral("x a=\"1\"")));
    EXPECT_FALSE(edit::ValidateNodeAttributeName(t.app(), QStringLiteral("a=\"1\" b"), kElementName));
    EXPECT_FALSE(edit::ValidateNodeAttributeValue(t.app(), QStringLiteral("1\" b=\"3"), kElementName,
                                                  QStringLiteral("a")));
    EXPECT_EQ(t.prompts.boxes.size(), 3U);
    EXPECT_TRUE(edit::ValidateNodeAttributeValue(t.app(), QStringLiteral("1&quot; b='3'"), kElementName,
                                                 QStringLiteral("a")));
}

// While the user types, the complaint comes without a box, with the line ends that the quiet load's lacks.
TEST(Validate, AQuietComplaintStandsOnTheStatusPanelAlone) {
    test::TestApp t;
    EXPECT_FALSE(edit::ValidateNodeAttributes(t.app(), QStringLiteral("a=1"), QStringLiteral("x"), false));
    const QString complaint = t.frame().StatusBar1().Panel(1);
    EXPECT_TRUE(complaint.contains(QStringLiteral("\r\nFilePos:"))) << complaint.toStdString();
    EXPECT_EQ(t.prompts.beeps, 1);
    EXPECT_FALSE(edit::ValidateXML(t.app(), QStringLiteral("<a>"), edit::Tone::Quiet));
    EXPECT_TRUE(t.frame().StatusBar1().Panel(1).contains(QStringLiteral("--FilePos:")));
    EXPECT_TRUE(edit::ValidateXML(t.app(), QStringLiteral("<a/>"), edit::Tone::Quiet));
    EXPECT_EQ(t.frame().StatusBar1().Panel(1), QString());
}

// The place of its error counts in a tiny document, not in the shown text: the next key would go astray.
TEST(Validate, AFailedProbeLeavesTheCaretOfAShownText) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), "<orders><order id=\"1\"/></orders>");
    w.tbsXML.Select(QStringLiteral("textview"));
    w.rtxtXML.UserSelected(3, 2);
    for (const bool box : {false, true})
        edit::ValidateNodeAttributes(t.app(), QStringLiteral("a=1"), QStringLiteral("x"), box);
    edit::ValidateNodeText(t.app(), QStringLiteral("<"), QStringLiteral("x"));
    EXPECT_EQ(w.rtxtXML.SelStart(), 3);
    EXPECT_EQ(w.rtxtXML.SelLength(), 2);
    EXPECT_FALSE(t.app().lastParseError);
}

TEST(Validate, DroppedTextIsClassified) {
    test::TestApp t;
    t.prompts.AllowAnyBox();
    const struct {
        const char* text;
        int type;
    } cases[] = {{"a=\"1\"", 2}, {"", 2},     {"<a/>", 1}, {"<a/><b/>", 100},
                 {"x<a/>", 100}, {"abc", -1}, {"<a>", -1}};
    for (const auto& c : cases)
        EXPECT_EQ(edit::GetSelTextType(t.app(), QLatin1String(c.text)), c.type) << c.text;
    EXPECT_EQ(t.prompts.boxes.size(), 1U) << "only a wrong attribute list is told in a box";
}

} // namespace
