// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

TEST(Node, KeysAreNeverUsedTwiceInARun) {
    TestApp app;
    DocumentWindow& first = app.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    const QString key = first.tvXML.Nodes(1).Child().Key();
    app.ChooseMenu(QStringLiteral("mnuFileClose"));
    DocumentWindow& second = app.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    EXPECT_FALSE(second.tvXML.Nodes.Find(key));
    EXPECT_EQ(app.app().ElementKeyCounter, 4);
}

TEST(Node, NumbersGoByDocumentOrderWithoutTexts) {
    TestApp app;
    DocumentWindow& window =
        app.OpenText(QStringLiteral("a.xml"), "<?xml version=\"1.0\"?><!--c--><a>x<b/></a>");
    const TreeNode root = window.tvXML.Nodes(1);
    const TreeNode a = root.LastChild();
    EXPECT_EQ(a.Text(), QStringLiteral("a"));
    EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), a), 3);
    EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), a.LastChild()), 4);
    for (long number = 1; number <= 4; ++number) {
        const TreeNode found = m_tvXML::GetNodeByNumber(app.app(), number, root);
        ASSERT_TRUE(found);
        EXPECT_NE(m_tvXML::GetKeyType(found), 3);
        EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), found), number);
    }
    EXPECT_EQ(m_tvXML::GetNodeLevel(root), 1);
    EXPECT_EQ(m_tvXML::GetNodeLevel(a), 1);
    EXPECT_EQ(m_tvXML::GetNodeLevel(a.LastChild()), 2);
}

TEST(Node, AMissLeavesItsCountForTheNextSearch) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("a.xml"), "<a><b/><c/></a>");
    const TreeNode root = window.tvXML.Nodes(1);
    EXPECT_FALSE(m_tvXML::GetNodeByNumber(app.app(), 9, root));
    EXPECT_EQ(app.app().NodeWalkCounter, 3);
    // 3 stand on the counter, so the fifth is met at the second node.
    EXPECT_EQ(m_tvXML::GetNodeByNumber(app.app(), 5, root).Text(), QStringLiteral("b"));
    EXPECT_EQ(m_tvXML::GetNodeByNumber(app.app(), 3, root).Text(), QStringLiteral("c"));
}

TEST(Node, AttributesAreTakenApartAtTheQuotes) {
    QStringList names;
    QStringList values;
    m_tvXML::GetAllAttributesNameAndValue(QStringLiteral(" a=\"1\" b=\"x &quot;y&quot;\""), names, values);
    EXPECT_EQ(names, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(values, (QStringList{QStringLiteral("1"), QStringLiteral("x &quot;y&quot;")}));
    EXPECT_EQ(m_tvXML::GetAllAttributesNameAndValue({}, names, values), 0);
    EXPECT_TRUE(names.isEmpty());
    // A value without a name leaves its place empty.
    EXPECT_EQ(m_tvXML::GetAllAttributesNameAndValue(QStringLiteral("\"lost\" b=\"2\""), names, values), 6);
    EXPECT_EQ(names, (QStringList{QString(), QStringLiteral("b")}));
    EXPECT_EQ(values, (QStringList{QString(), QStringLiteral("2")}));
}

TEST(Node, ThePureNameStandsBehindTheFirstColon) {
    QString prefix = QStringLiteral("kept");
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("name"), prefix), QStringLiteral("name"));
    EXPECT_EQ(prefix, QStringLiteral("kept"));
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("a:b:c"), prefix), QStringLiteral("b:c"));
    EXPECT_EQ(prefix, QStringLiteral("a"));
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("  "), prefix), QString());
}

} // namespace
