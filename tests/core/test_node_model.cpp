// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Attributes.h"
#include "core/model/Escaping.h"
#include "core/model/FileNames.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "core/model/Parse.h"
#include "core/model/Serialise.h"
#include "tests/support/TestApp.h"
#include "textview/TreeText.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

QString Serialised(DocumentWindow& window) {
    return m_tvXML::GetTreeNodesXML(window.tvXML.Nodes(1), QStringLiteral("\t"));
}

TEST(NodeKeys, TypeIsReadFromAnyKey) {
    const std::vector<std::pair<const char*, int>> keys{
        {"<1>42", 1},  {"<10>7", 10}, {"abc", 0},          {"", 0},           {"<1>12/id", 1},
        {"a=<3>9", 3}, {"=<8>1", 8},  {"/tmp/a<b.xml", 0}, {"x=<1>=<7>2", 7}, {"<1e1>5", 1},
        {"<3.9>5", 3}, {"< 8>5", 0},  {"<-1>5", 0},        {"<70000>5", 0}};
    for (const auto& [key, type] : keys)
        EXPECT_EQ(m_tvXML::GetKeyType(QString::fromLatin1(key)), type) << key;
}

TEST(NodeKeys, AreNeverUsedTwiceInARun) {
    TestApp app;
    DocumentWindow& first = app.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    const QString key = first.tvXML.Nodes(1).Child().Key();
    app.ChooseMenu(QStringLiteral("mnuFileClose"));
    DocumentWindow& second = app.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    EXPECT_FALSE(second.tvXML.Nodes.Find(key));
    EXPECT_EQ(app.app().ElementKeyCounter, 4);
}

TEST(NodeNumbers, CountNodesInDocumentOrderWithoutTexts) {
    TestApp app;
    DocumentWindow& window =
        app.OpenText(QStringLiteral("a.xml"), "<?xml version=\"1.0\"?><!--c--><a>x<b/></a>");
    const TreeNode root = window.tvXML.Nodes(1);
    const TreeNode a = root.LastChild();
    EXPECT_EQ(a.Text(), QStringLiteral("a"));
    EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), a), 3);
    EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), a.LastChild()), 4);
    EXPECT_EQ(m_tvXML::GetAllChildNodeNumber(root), 4);
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

TEST(NodeNumbers, AMissLeavesTheCounterForTheNextSearch) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("a.xml"), "<a><b/><c/></a>");
    const TreeNode root = window.tvXML.Nodes(1);
    EXPECT_FALSE(m_tvXML::GetNodeByNumber(app.app(), 9, root));
    EXPECT_EQ(app.app().NodeWalkCounter, 3);
    // 3 stand on the counter, so the fifth is met at the second node.
    EXPECT_EQ(m_tvXML::GetNodeByNumber(app.app(), 5, root).Text(), QStringLiteral("b"));
    EXPECT_EQ(m_tvXML::GetNodeByNumber(app.app(), 3, root).Text(), QStringLiteral("c"));
}

TEST(AttributeStrings, AreTakenApartAtTheQuotes) {
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

TEST(Names, PrefixAndLengthRules) {
    QString prefix = QStringLiteral("kept");
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("name"), prefix), QStringLiteral("name"));
    EXPECT_EQ(prefix, QStringLiteral("kept"));
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("a:b:c"), prefix), QStringLiteral("b:c"));
    EXPECT_EQ(prefix, QStringLiteral("a"));
    EXPECT_EQ(m_tvXML::GetPureName(QStringLiteral("  "), prefix), QString());
    EXPECT_EQ(m_tvXML::Truncate(QStringLiteral("12345"), 5), QStringLiteral("12345"));
    EXPECT_EQ(m_tvXML::Truncate(QStringLiteral("123456"), 5), QStringLiteral("12345..."));
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
        EXPECT_EQ(all, m_tvXML::GetAllChildNodeNumber(again.tvXML.Nodes(1))) << name;
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

TEST(Fetching, AddressTypesAndNames) {
    const std::vector<std::pair<const char*, int>> addresses{{"  http://h/x.xml ", 2},
                                                             {"HTTP://h/x.xml", 2},
                                                             {"https://h", 2},
                                                             {"ftp://h/x", -1},
                                                             {"x.xml", -1},
                                                             {"a:b", 1},
                                                             {"1:b", -1},
                                                             {"c:\\x.xml", 1},
                                                             {"/home/u/x.xml", 1},
                                                             {"", -1}};
    for (const auto& [address, type] : addresses)
        EXPECT_EQ(mXMLEdit::GetAddressType(QString::fromLatin1(address)), type) << address;
    EXPECT_TRUE(mXMLEdit::IsBinaryFile(QStringLiteral("c:\\dir\\x.EXE")));
    EXPECT_FALSE(mXMLEdit::IsBinaryFile(QStringLiteral("/exe/x.xml")));
    EXPECT_EQ(mXMLEdit::GetExtName(QStringLiteral("/a.b/file")), QString());
    EXPECT_EQ(mXMLEdit::GetFSFolderName(QStringLiteral("c:\\dir\\x.xml")), QStringLiteral("c:\\dir"));
    EXPECT_EQ(mXMLEdit::GetFSFolderName(QStringLiteral("c:\\x.xml")), QStringLiteral("c:\\"));
    EXPECT_EQ(mXMLEdit::GetFSFolderName(QStringLiteral("/x.xml")), QStringLiteral("/"));
    EXPECT_EQ(mXMLEdit::GetFSFileName(QStringLiteral("/a/b/x.xml")), QStringLiteral("x.xml"));
    EXPECT_EQ(mXMLEdit::convertStringToXML(QStringLiteral("a<b&c")), QStringLiteral("a&lt;b&amp;c"));
    EXPECT_EQ(mXMLEdit::convertStringToXML(QStringLiteral("&lt;'\"")),
              QStringLiteral("&amp;lt;&apos;&quot;"));
}

} // namespace
