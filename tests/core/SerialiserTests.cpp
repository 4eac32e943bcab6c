// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "core/model/Serialise.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

QString Serialised(DocumentWindow& window) {
    return m_tvXML::GetTreeNodesXML(window.tvXML.Nodes(1), QStringLiteral("\t"));
}

TEST(Serialiser, WritesTheFormOfTheTree) {
    struct Case {
        const char* in;
        const char* out;
    };
    const std::vector<Case> cases{
        {"<a><b/></a>", "<a>\r\n\t<b></b>\r\n</a>"},
        {"<a x=\"1\">t</a>", "<a x=\"1\">t</a>"},
        {"<a>t<b/>u</a>", "<a>t<b></b>u</a>"},
        {"<a><b>x</b>t</a>", "<a>\r\n\t<b>x</b>t</a>"},
        {"<a><b><!--deep--><c/></b></a>", "<a>\r\n\t<b>\r\n<!--deep-->\r\n\t\t<c></c>\r\n\t</b>\r\n</a>"},
        {"<?xml version=\"1.0\"?><!--c--><a/><?after all?>",
         "<?xml version=\"1.0\"?>\r\n<!--c-->\r\n<a></a>\r\n<?after all?>"},
        {"<a><![CDATA[gone]]></a>", "<a>\r\n\r\n</a>"},
        {"<!DOCTYPE a><a/>", "\r\n<a></a>"},
        {"<a b='&lt;&quot;&apos;'>&amp;&lt;&gt;</a>", "<a b=\"&lt;&quot;&apos;\">&amp;&lt;&gt;</a>"},
        {"<a xml:space=\"preserve\"> <b/> </a>", "<a xml:space=\"preserve\"> <b></b> </a>"}};
    TestApp app;
    int n = 0;
    for (const Case& c : cases) {
        DocumentWindow& window = app.OpenText(QStringLiteral("s%1.xml").arg(++n), c.in);
        EXPECT_EQ(Serialised(window).toStdString(), c.out) << c.in;
    }
}

TEST(Serialiser, ItsOwnTextComesBackUnchanged) {
    TestApp app;
    for (const char* name : {"orders.xml", "book.xml", "namespaces.xml", "poems-utf8.xml", "orders.xsd"}) {
        app.frame().OpenNamed(QStringLiteral(VANTREL_SOURCE_DIR "/samples/") + QString::fromLatin1(name));
        const QString once = Serialised(app.window());
        DocumentWindow& again =
            app.OpenText(QStringLiteral("again-") + QString::fromLatin1(name), once.toUtf8());
        const QString twice = Serialised(again);
        EXPECT_EQ(once, twice) << name;
        // Node numbers are the places of "<" in this text, as long as none stands inside a comment.
        const text::LongText text(twice);
        const long all = m_tvXML::GetNodeNumByTextPosition(text, text.size());
        EXPECT_GT(all, 5) << name;
        for (long number = 1; number <= all; number += 7) {
            const qsizetype place = m_tvXML::GetTextPositionByNodeNum(text, number);
            EXPECT_EQ(m_tvXML::GetNodeNumByTextPosition(text, place), number) << name;
        }
    }
}

TEST(Serialiser, DeepDocumentsNeedNoDeepStack) {
    constexpr int kLevels = 200'000; // far more frames than a stack holds
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("deep.xml"), "<d/>");
    TreeNode deepest = window.tvXML.Nodes(1).Child();
    for (int level = 2; level <= kLevels; ++level)
        deepest = window.tvXML.Nodes.Add(deepest, controls::tvwChild,
                                         m_tvXML::GetDistinctElementKey(app.app(), 1), QStringLiteral("d"),
                                         QStringLiteral("element"), QStringLiteral("openelement"));
    // Without an indentation, which at this depth would take gigabytes.
    const QString text = m_tvXML::GetTreeNodesXML(window.tvXML.Nodes(1), {});
    EXPECT_EQ(text.count(QStringLiteral("<d>")), kLevels);
    EXPECT_TRUE(text.endsWith(QStringLiteral("</d>\r\n</d>")));
    EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), deepest), kLevels);
}

} // namespace
