// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of nodes, rows and texts that are dropped.
#include "nodes/DragDrop.h"
#include "tests/support/TestApp.h"
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;

const QString kTree = QStringLiteral("tvXML"), kList = QStringLiteral("ListView1");

struct DragDrop : testing::Test {
    test::TestApp t;
    DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), "<a><b n=\"1\"><c/></b><d/></a>");
    TreeNode Named(const char* name) {
        for (int i = 1; i <= w.tvXML.Nodes.Count(); ++i)
            if (w.tvXML.Nodes(i).Text() == QLatin1String(name))
                return w.tvXML.Nodes(i);
        return {};
    }
    std::string Text() {
        return w.rtxtXML.Text().remove(QRegularExpression(QStringLiteral("\\s*[\\r\\n]\\s*"))).toStdString();
    }
    bool Has(const char* part) { return Text().find(part) != std::string::npos; }
};

TEST_F(DragDrop, ANodeIsCopiedIntoTheTargetButNotIntoItselfOrTheRoot) {
    t.ClickNode(Named("b"));
    const std::string before = Text();
    tvXML_DragDrop(w, kTree, Named("b"));
    tvXML_DragDrop(w, kTree, w.tvXML.Nodes(1));
    EXPECT_EQ(Text(), before);
    tvXML_DragDrop(w, kTree, Named("d"));
    EXPECT_TRUE(Has("<d><b n=\"1\"><c></c></b></d>")) << Text();
    tvXML_DragDrop(w, kTree, Named("c")); // its own child
    EXPECT_TRUE(Has("<c><b n=\"1\"><c></c></b></c>")) << Text();
}

TEST_F(DragDrop, RowsGoWhereTheyFitAndAreToldOtherwise) {
    t.ClickNode(Named("b"));
    w.ListView1.SelectAll();
    tvXML_DragDrop(w, kList, Named("d"));
    EXPECT_TRUE(Has("<d n=\"1\"><c></c></d>")) << Text();
    const std::string before = Text();
    w.ListView1.SelectAll(); // the list was filled anew
    t.prompts.Answer(services::Answer::Ok);
    tvXML_DragDrop(w, kList, w.tvXML.Nodes(1));
    EXPECT_EQ(t.prompts.Texts(), QStringList{QStringLiteral("This type of data can not paste!")});
    EXPECT_EQ(Text(), before);
}

TEST_F(DragDrop, ATextFromElsewhereIsNodesOrAttributes) {
    tvXML_OLEDragDrop(w, QStringLiteral("<x/><y/>"), Named("d"));
    tvXML_OLEDragDrop(w, QStringLiteral("m='2'"), Named("b"));
    EXPECT_TRUE(Has("<d><x></x><y></y></d>")) << Text();
    EXPECT_TRUE(Has("<b n=\"1\" m=\"2\">")) << Text();
    const std::string before = Text();
    t.prompts.AllowAnyBox();
    tvXML_OLEDragDrop(w, QStringLiteral("m=\"3\""), Named("b"));
    tvXML_OLEDragDrop(w, QStringLiteral("plain"), Named("b"));
    EXPECT_EQ(t.prompts.boxes.size(), 2U);
    tvXML_OLEDragDrop(w, QStringLiteral("<x>"), Named("b"));
    EXPECT_EQ(Text(), before);
}

} // namespace
