// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Journal.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

using services::Answer;
using test::TestApp;

namespace {

// A document is edited and the program ends without a word, as it does when it is killed.
void EditAndEnd(TestApp& app, const char* text) {
    app.EditText(QString::fromUtf8(text));
    edit::JournalOf(app.app()).Tick();
}

} // namespace

TEST(Recovery, WhatARunLeftBehindComesBackChangedAndCanBeSaved) {
    TestApp app;
    app.OpenText(QStringLiteral("a.xml"), "<a>one</a>");
    EditAndEnd(app, "<a>two</a>");
    app.prompts.Answer(Answer::Yes);
    app.Restart();
    EXPECT_TRUE(app.prompts.boxes.back().text.contains(QStringLiteral("a.xml")));
    EXPECT_EQ(app.window().rtxtXML.Text(), QStringLiteral("<a>two</a>"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("a.xml")), "<a>one</a>");
}

TEST(Recovery, SavedAndDroppedDocumentsAreNotOfferedAgain) {
    TestApp app;
    app.OpenText(QStringLiteral("a.xml"), "<a>one</a>");
    EditAndEnd(app, "<a>two</a>");
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    app.Restart();
    EXPECT_TRUE(app.prompts.boxes.empty()) << "it was saved";

    app.OpenText(QStringLiteral("b.xml"), "<b>one</b>");
    EditAndEnd(app, "<b>two</b>");
    app.prompts.Answer(Answer::No);
    app.Restart();
    app.Restart();
    EXPECT_EQ(app.prompts.boxes.size(), 1U) << "and this one was given up";

    app.OpenText(QStringLiteral("c.xml"), "<c>one</c>");
    EditAndEnd(app, "<c>two</c>");
    app.prompts.Answer(Answer::No); // at the question on closing
    app.frame().CloseForm(&app.window());
    app.Restart();
    EXPECT_EQ(app.prompts.boxes.size(), 2U);

    app.OpenText(QStringLiteral("d.xml"), "<d>one</d>");
    EditAndEnd(app, "<d>two</d>");
    app.folder.Write(QStringLiteral("d.xml"),
                     "<d>two</d>"); // killed when the file was there, and before more
    app.Restart();
    EXPECT_EQ(app.prompts.boxes.size(), 2U);
}

// Exit asks nothing and saves nothing.
TEST(Recovery, WhatExitDroppedComesBackUntilTheUserSaysNo) {
    TestApp app;
    app.OpenText(QStringLiteral("a.xml"), "<a>one</a>");
    app.EditText(QStringLiteral("<a>two</a>"));
    app.ChooseMenu(QStringLiteral("mnuFileExit"));
    for (int run = 0; run < 2; ++run) {
        app.prompts.Answer(Answer::Cancel);
        app.Restart();
        EXPECT_EQ(app.frame().FormCount(), 0) << "later, perhaps";
    }
    app.prompts.Answer(Answer::Yes);
    app.Restart();
    EXPECT_EQ(app.window().rtxtXML.Text(), QStringLiteral("<a>two</a>"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("a.xml")), "<a>two</a>");
    app.Restart();
    EXPECT_EQ(app.prompts.boxes.size(), 3U);
}
