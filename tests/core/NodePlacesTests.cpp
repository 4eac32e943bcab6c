// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/NodePath.h"
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

// A path leads to what it was made from, also in a document with a document type.
TEST(NodePlaces, PathsLeadThereAndBack) {
    TestApp app;
    DocumentWindow& window = app.OpenText(
        QStringLiteral("p.xml"), "<!DOCTYPE p:a [<!ELEMENT r ANY>]>\n<p:a xmlns:p=\"u\"><!--one--><b/>"
                                 "<!--two--><b>x<c/>x<?c d?><c/></b><?pi data?></p:a>");
    const controls::TreeNode element = window.tvXML.Nodes(1).LastChild();
    for (const char* path :
         {"/p:a[1]/b[2]/c[2]", "/p:a[1]/comment()[2]", "/p:a[1]/b[2]/text()[2]", "/p:a[1]/b[1]", "/p:a[1]"}) {
        window.txtXPath.UserTyped(QString::fromLatin1(path));
        window.txtXPath.KeyUp(Qt::Key_Return, 0);
        EXPECT_EQ(edit::GetXPath(window.tvXML.SelectedItem()).toStdString(), path);
    }
    app.ClickNode(element.LastChild().Previous().LastChild());
    EXPECT_EQ(window.txtXPath.Text(), QStringLiteral("/p:a[1]/b[2]/c[2]"));
    EXPECT_EQ(edit::GetXPath(window.tvXML.Nodes(1)), QString());
    EXPECT_EQ(edit::GetXPath(element.LastChild()).toStdString(), "/p:a[1]/"); // an instruction adds nothing
    app.prompts.Answer(services::Answer::Ok);
    window.txtXPath.UserTyped(QStringLiteral("/nowhere["));
    window.txtXPath.KeyUp(Qt::Key_Enter, 0);
    EXPECT_EQ(app.prompts.Texts().last(), QStringLiteral("Can not find any node by path:"));
}
