// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that are short but stand for more than memory or time can hold.
#include "platform/xml/ParsedDocument.h"
#include <gtest/gtest.h>

namespace {

/// A pattern many times, with the number of the time for each '@' and the one before for each '@-1'.
QString Repeated(int count, const char* pattern) {
    QString out;
    for (int i = 1; i <= count; ++i)
        out += QString::fromLatin1(pattern)
                   .replace(QStringLiteral("@-1"), QString::number(i - 1))
                   .replace(u'@', QString::number(i));
    return out;
}

std::string Refusal(const QString& text) {
    xml::ParsedDocument document;
    return document.loadXML(text) ? std::string("accepted")
                                  : document.parseError().reason.trimmed().toStdString();
}

QString Laughs(const char* core) {
    return QStringLiteral("<!DOCTYPE a [<!ENTITY l0 \"") + QLatin1String(core) + QStringLiteral("\">") +
           Repeated(30, "<!ENTITY l@ \"&l@-1;&l@-1;&l@-1;&l@-1;\">") + QStringLiteral("]>");
}

TEST(Bounds, EntitiesThatMultiplyAreRefused) {
    for (const char* core : {"ha", "", "<b/>"}) {
        EXPECT_EQ(Refusal(Laughs(core) + QStringLiteral("<a>&l30;</a>")),
                  "The entity 'l30' expands to too much text.");
    }
    EXPECT_EQ(Refusal(Laughs("ha") + QStringLiteral("<a b=\"&l30;\"/>")),
              "The entity 'l30' expands to too much text.");
}

TEST(Bounds, OneLongEntityUsedOftenIsRefused) {
    const QString head = QStringLiteral("<!DOCTYPE a [<!ENTITY e \"%1\">]>").arg(QString(500'000, u'x'));
    const QString uses = QStringLiteral("&e;").repeated(2000);
    EXPECT_EQ(Refusal(head + QStringLiteral("<a>") + uses + QStringLiteral("</a>")),
              "The entity 'e' expands to too much text.");
    EXPECT_EQ(Refusal(head + QStringLiteral("<a b=\"") + uses + QStringLiteral("\"/>")),
              "The entity 'e' expands to too much text.");
}

TEST(Bounds, ManyUsesOfAShortEntityArePossible) {
    xml::ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<!DOCTYPE a [<!ENTITY nbsp \"&#160;\">]><a>") +
                                 QStringLiteral("&nbsp;").repeated(200'000) + QStringLiteral("</a>")));
    EXPECT_EQ(document.documentElement().firstChild().valueView().length, 200'000U);
}

TEST(Bounds, EntitiesThatReferToThemselvesAreRefused) {
    const QString head = QStringLiteral("<!DOCTYPE a [<!ENTITY e \"&f;&f;\"><!ENTITY f \"&e;&e;\">]>");
    for (const char* use : {"<a>&e;</a>", "<a b=\"&e;\"/>"})
        EXPECT_NE(Refusal(head + QLatin1String(use)).find("refers to itself"), std::string::npos) << use;
}

TEST(Bounds, ParameterEntitiesThatMultiplyAreRefused) {
    const QString levels = QStringLiteral("<!ENTITY % p0 \"xxxxxxxxxx\">") +
                           Repeated(20, "<!ENTITY % p@ \"&#37;p@-1;&#37;p@-1;&#37;p@-1;&#37;p@-1;\">");
    const std::string refusal =
        Refusal(QStringLiteral("<!DOCTYPE a [") + levels +
                QStringLiteral("<!ENTITY % q '<!ENTITY z \"&#37;p20;\">'>%q;]><a>&z;</a>"));
    EXPECT_EQ(refusal, "The entity 'q' expands to too much text.");
    EXPECT_NE(Refusal(QStringLiteral("<!DOCTYPE a [") + levels + QStringLiteral("%p20;]><a/>")), "accepted");
}

TEST(Bounds, DefaultsThatMultiplyAreRefused) {
    EXPECT_EQ(Refusal(QStringLiteral("<!DOCTYPE a [<!ATTLIST b") + Repeated(5000, " a@ CDATA 'value'") +
                      QStringLiteral(">]><a>") + QStringLiteral("<b/>").repeated(10'000) +
                      QStringLiteral("</a>")),
              "The default values of attributes amount to too much text.");
}

TEST(Bounds, LongListsOfNamesInADeclarationAreRefused) {
    EXPECT_EQ(Refusal(QStringLiteral("<!DOCTYPE a [<!ATTLIST a b (v") + Repeated(100'000, "|v@") +
                      QStringLiteral(") #IMPLIED>]><a/>")),
              "A declaration inside the document type declaration is too long.");
}

TEST(Bounds, LongTextsInTheDocumentTypeArePossible) {
    const QString text(300'000, u'x');
    EXPECT_EQ(
        Refusal(QStringLiteral(
                    "<!DOCTYPE a [<!ENTITY e \"%1\"><!--%1--><?p %1?><!ATTLIST a b CDATA \"%1\">]><a>&e;</a>")
                    .arg(text)),
        "accepted");
}

TEST(Bounds, FiveThousandLevelsArePossibleAndNoMore) {
    const auto nested = [](int depth) {
        return QStringLiteral("<a>").repeated(depth) + QStringLiteral("</a>").repeated(depth);
    };
    EXPECT_EQ(Refusal(nested(5000)), "accepted");
    xml::ParsedDocument document;
    EXPECT_FALSE(document.loadXML(nested(5001)));
    EXPECT_EQ(document.parseError().filepos, 3 * 5000 + 1);
    EXPECT_EQ(Refusal(QStringLiteral("<a>").repeated(1'000'000)),
              "The elements are nested too deep: more than 5000 levels.");
}

// Whatever carries a name counts: each of these texts holds more of them than the parser can look up quickly.
TEST(Bounds, NamesOfEveryKindAreBounded) {
    constexpr int kMany = 110'000;
    const auto inside = [](const char* pattern) {
        return QStringLiteral("<r>") + Repeated(kMany, pattern) + QStringLiteral("</r>");
    };
    const auto declared = [](const char* pattern) {
        return QStringLiteral("<!DOCTYPE r [") + Repeated(kMany, pattern) + QStringLiteral("]><r/>");
    };
    const std::string refusal = Refusal(inside("<e@/>"));
    EXPECT_EQ(refusal, "The document has too many different names: more than 100000.");
    for (const char* pattern : {"<?p@ x?>", "<a b@=''/>"})
        EXPECT_EQ(Refusal(inside(pattern)), refusal) << pattern;
    for (const char* pattern :
         {"<!ENTITY e@ 'x'>", "<!ATTLIST r a@ CDATA ''>", "<!NOTATION n@ SYSTEM 'x'>", "<!ELEMENT e@ ANY>"})
        EXPECT_EQ(Refusal(declared(pattern)), refusal) << pattern;
}

// The parser takes the content of an entity in one go: what would be stopped elsewhere would end there only
// after minutes.
TEST(Bounds, EntitiesHoldALimitedAmountOfMarkup) {
    const auto entities = [](int count, const QString& content) {
        QString text = QStringLiteral("<!DOCTYPE r [");
        for (int i = 0; i < count; ++i)
            text += QStringLiteral("<!ENTITY e%1 \"%2\">").arg(i).arg(content);
        return text + QStringLiteral("]><r>&e0;</r>");
    };
    const QString part = QStringLiteral("<p>boilerplate</p>").repeated(20'000);
    EXPECT_EQ(Refusal(entities(1, part)), "accepted");
    EXPECT_EQ(Refusal(entities(10, part)), "A declaration inside the document type declaration is too long.");
    EXPECT_EQ(Refusal(entities(10, QString(part).replace(u'<', u'('))), "accepted");
}

TEST(Bounds, OnlyAFewElementsMayHaveThousandsOfAttributes) {
    const auto elements = [](int count, int attributes) {
        return QStringLiteral("<r>") +
               (QStringLiteral("<a") + Repeated(attributes, " column@=''") + QStringLiteral("/>"))
                   .repeated(count) +
               QStringLiteral("</r>");
    };
    EXPECT_EQ(Refusal(elements(3, 9000)), "accepted");
    EXPECT_EQ(Refusal(elements(500, 600)), "accepted"); // a wide table
    EXPECT_EQ(Refusal(elements(40, 9000)), "Too many elements have hundreds or thousands of attributes.");
}

TEST(Bounds, LongNamesOfAttributesCountAsManyAttributes) {
    const auto tag = [](int count) {
        return QStringLiteral("<r><a") + Repeated(count, " @=''").replace(u' ', u' ' + QString(2000, u'n')) +
               QStringLiteral("/></r>");
    };
    EXPECT_EQ(Refusal(tag(500)), "accepted");
    EXPECT_EQ(Refusal(tag(3000)), "The element has too many attributes, or too long ones.");
}

TEST(Bounds, ATagHasTenThousandAttributesAtMost) {
    const auto tag = [](int count) {
        return QStringLiteral("<r>\r\n<a") + Repeated(count, " a@=''") + QStringLiteral("/></r>");
    };
    EXPECT_EQ(Refusal(tag(9000)), "accepted");
    for (const int count : {10'001, 300'000}) {
        xml::ParsedDocument document;
        EXPECT_FALSE(document.loadXML(tag(count)));
        EXPECT_EQ(document.parseError().filepos, 6) << count;
    }
    EXPECT_NE(Refusal(QStringLiteral("<!DOCTYPE a [<!ENTITY e \"&#60;b") + Repeated(300'000, " a@=''") +
                      QStringLiteral("/>\">]><a>&e;</a>")),
              "accepted");
}

TEST(Bounds, TextThatLooksLikeALongTagIsPossible) {
    const QString looks = QStringLiteral("if (i <n ") + QStringLiteral("a=b ").repeated(30'000);
    for (const char* frame : {"<a><![CDATA[%1]]></a>", "<a><!--%1--></a>", "<a><?p %1?></a>"})
        EXPECT_EQ(Refusal(QString::fromLatin1(frame).arg(looks)), "accepted") << frame;
    EXPECT_EQ(Refusal(QStringLiteral("<a>%1</a>").arg(QStringLiteral("a=b ").repeated(30'000))), "accepted");
}

} // namespace
