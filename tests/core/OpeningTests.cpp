// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using services::Answer;
using test::TestApp;

TEST(Opening, ShowsTheDocumentAsItsFileHasIt) {
    TestApp app;
    const DocumentWindow& window = app.OpenText(
        QStringLiteral("order.xml"), "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\n");
    EXPECT_EQ(window.rtxtXML.Text().toStdString(),
              "<order id=\"7\"><item>Tee</item><item>Milch</item></order>\r\n");
    EXPECT_EQ(window.Caption, app.folder.Path(QStringLiteral("order.xml")));
    EXPECT_EQ(window.tvXML.Nodes(1).Key(), window.Caption);
    EXPECT_TRUE(window.tvXML.Nodes(1).Expanded());
    EXPECT_EQ(window.tvXML.SelectedItem(), window.tvXML.Nodes(1));
    EXPECT_EQ(window.ListView1.Count(), 1);
    EXPECT_EQ(app.frame().cmbAddress().Text(), window.Caption);
}

// Colouring puts a blank into comments, and the error stands behind them.
TEST(Opening, BadTextIsShownWithItsErrorSelected) {
    TestApp app;
    app.prompts.Answer(Answer::Ok);
    const DocumentWindow& window =
        app.OpenText(QStringLiteral("bad.xml"), "<!--a--><!--b--><a>\n<b></c>\n</a>");
    ASSERT_EQ(app.prompts.boxes.size(), 1U);
    EXPECT_EQ(app.prompts.boxes[0].title, QStringLiteral("This is not valid XML"));
    EXPECT_EQ(app.prompts.boxes[0].icon, services::Icon::Critical);
    const QStringList lines = app.prompts.boxes[0].text.split(QStringLiteral("\r\n"));
    EXPECT_EQ(lines.mid(1, 3), QStringList({QStringLiteral("FilePos:27"), QStringLiteral("Line:2"),
                                            QStringLiteral("LinePos:6")}));
    EXPECT_EQ(lines.mid(6), QStringList({QStringLiteral("SrcText:<b></c>"), QStringLiteral("Url:")}));
    EXPECT_EQ(window.tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_EQ(window.rtxtXML.SelText(), QStringLiteral("c"));
    EXPECT_EQ(app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 2 , Col 6"));
    EXPECT_EQ(window.tvXML.Nodes(1).Children(), 2); // a declaration and a comment stand in
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());
}

TEST(Opening, WhatIsNoAddressIsANewDocumentOfThatName) {
    TestApp app;
    app.frame().OpenNamed(QStringLiteral("plain.xml"));
    EXPECT_EQ(app.window().Caption, QStringLiteral("plain.xml"));
    EXPECT_EQ(app.window().tvXML.Nodes(1).Child().Tag(),
              QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
}

// The preview is a file of its own beside the document's.
TEST(Opening, ThePreviewGoesWithItsWindow) {
    TestApp app;
    DocumentWindow& window = app.OpenText(QStringLiteral("order.xml"), "<order/>");
    for (const char* view : {"tableview", "browserview", "schema", "listview"})
        window.tbsXML.Select(QString::fromLatin1(view));
    const QString preview = window.IE.LocationURL();
    ASSERT_TRUE(preview.endsWith(QStringLiteral("tempbv_forVantrel.xml")));
    EXPECT_TRUE(app.app().services.files.Exists(preview));
    app.frame().CloseForm(&window);
    EXPECT_FALSE(app.app().services.files.Exists(preview));
}

} // namespace
