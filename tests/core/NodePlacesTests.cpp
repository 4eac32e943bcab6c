// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "platform/controls/TreeCursor.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

using test::TestApp;

namespace {

// Everything that looks like a start tag and is none, often enough to lie across the pieces of a text.
QByteArray Awkward() {
    QByteArray text = "<?xml version=\"1.0\"?>\n<!-- a <b> ' -->\n<!DOCTYPE r [\n<!-- it's <r> -->\n"
                      "<!ENTITY e \"<x>]></x>\">\n<?no <node>?>\n<!ELEMENT r ANY>\n]>\n<?go <x> ?>\n<r>";
    for (int i = 0; i < 6000; ++i) {
        const QByteArray number = QByteArray::number(i);
        text += "<a n=\"" + number + " > 1\"><![CDATA[<c>" + QByteArray(i % 7, ']') + "</c>]]></a>";
        text += "<!-- <no" + number + "> - -> -->text <?go on>" + number + "<?><b" + QByteArray(i % 5, ' ') +
                "/>";
    }
    return text + "</r><!-- <end> -->";
}

QString Opener(controls::TreeCursor node) {
    switch (m_tvXML::GetKeyType(node)) {
    case m_tvXML::kElement:
        return u'<' + node.text().toString();
    case m_tvXML::kInstruction:
        return QStringLiteral("<?") + node.text().toString() + u' ' + node.tag().toString().left(6);
    default:
        return QStringLiteral("<!--") + node.tag().toString();
    }
}

} // namespace

TEST(NodePlaces, EachNumberedNodeIsFoundInTheTextAsItWasWritten) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("awkward.xml"), Awkward());
    ASSERT_FALSE(app.app().lastParseError) << app.app().lastParseError->reason.toStdString();
    const text::LongText& text = window.rtxtXML.Long();
    const controls::TreeCursor top(window.tvXML.Nodes(1));
    long number = 0;
    for (controls::TreeCursor node = top.firstChild(); node; node = node.nextBelow(top)) {
        const int kind = m_tvXML::GetKeyType(node);
        if (kind != m_tvXML::kElement && kind != m_tvXML::kComment && kind != m_tvXML::kInstruction)
            continue;
        ++number;
        if (number % 97 > 2) // each search reads the text from its beginning
            continue;
        const qsizetype place = m_tvXML::GetTextPositionByNodeNum(text, number);
        const QString opener = Opener(node);
        ASSERT_GT(place, 0);
        EXPECT_EQ(text.mid(place - 1, opener.size()), opener) << number;
        EXPECT_EQ(m_tvXML::GetNodeNumByTextPosition(text, place), number);
        EXPECT_EQ(m_tvXML::GetNodeNumByTextPosition(text, place - 1), number - 1);
        EXPECT_EQ(m_tvXML::GetBeforeNodeNumber(app.app(), node.node()), number);
    }
    EXPECT_EQ(number,
              3 + 1 + 6000 * 4 + 1); // declaration, comment, instruction; r; a, comment, go, b; comment
    EXPECT_EQ(m_tvXML::GetTextPositionByNodeNum(text, number + 1), 0);
}

// A path leads to what it was made from, also in a document with a document type and sections.
TEST(NodePlaces, PathsCountSiblingsOfOneKindAndName) {
    TestApp app;
    DocumentWindow& window = app.OpenText(
        QStringLiteral("r.xml"), "<!DOCTYPE r [<!ELEMENT r ANY>]>\n<r><a/>one<?a b?><a/>two<a/></r>");
    const controls::TreeNode r = window.tvXML.Nodes(1).LastChild();
    app.ClickNode(r);
    EXPECT_EQ(window.txtXPath.Text(), QStringLiteral("/r[1]"));
    app.ClickNode(r.LastChild());
    EXPECT_EQ(window.txtXPath.Text(), QStringLiteral("/r[1]/a[3]"));
    app.ClickNode(r.LastChild().Previous());
    EXPECT_EQ(window.txtXPath.Text(), QStringLiteral("/r[1]/text()[2]"));
    const controls::TreeNode two = window.tvXML.SelectedItem();
    app.ClickNode(r);
    window.txtXPath.SetText(QStringLiteral("/r[1]/text()[2]"));
    window.txtXPath.KeyUp(Qt::Key_Return, 0);
    EXPECT_EQ(window.tvXML.SelectedItem(), two);
}
