// SPDX-License-Identifier: GPL-3.0-or-later
// The bar and its Cancel while a large document is opened.
#include "core/edit/Open.h"
#include "core/edit/Save.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

QByteArray Large() {
    return "<list>" + QByteArray("<record number=\"1\">text</record>").repeated(50'000) + "</list>";
}

class Progress : public ::testing::Test {
protected:
    Progress() { app.OpenText(QStringLiteral("bystander.xml"), "<a><b/></a>"); }

    /// Steps that the next opening takes.
    int StepsOf(const QString& address) {
        const int before = app.progress.steps;
        app.EnterAddress(address);
        const int steps = app.progress.steps - before;
        app.frame().CloseForm(app.frame().ActiveForm());
        return steps;
    }
    test::TestApp app;
};

TEST_F(Progress, AFileCanBeCancelledUntilTheWindowTakesIt) {
    const QString large = app.folder.Write(QStringLiteral("large.xml"), Large());
    const int steps = StepsOf(large);
    EXPECT_GE(steps, 5);
    for (int at = 0; at < steps; ++at) {
        SCOPED_TRACE(at);
        app.progress.cancelAtStep = app.progress.steps + at;
        app.EnterAddress(large);
        EXPECT_EQ(app.progress.steps, app.progress.cancelAtStep + 1);
        EXPECT_EQ(app.frame().FormCount(), 1);
        EXPECT_EQ(app.app().CurrentFileName, app.folder.Path(QStringLiteral("bystander.xml")));
    }
    EXPECT_TRUE(app.prompts.boxes.empty()); // who cancels isn't asked anything
    EXPECT_EQ(app.progress.begun.size(), static_cast<std::size_t>(app.progress.ended));
}

TEST_F(Progress, AReloadThatIsCancelledLeavesTheWindowAsItWas) {
    const QString large = app.folder.Write(QStringLiteral("large.xml"), Large());
    const int steps = StepsOf(large);
    DocumentWindow* window = &app.window();
    const QString text = window->rtxtXML.Text();
    const int nodes = window->tvXML.Nodes.Count();
    app.progress.cancelAtStep = app.progress.steps + steps - 1;
    edit::OpenFile(app.app(), large, window);
    EXPECT_EQ(window->rtxtXML.Text(), text);
    EXPECT_EQ(window->tvXML.Nodes.Count(), nodes);
    EXPECT_EQ(window->Caption, app.folder.Path(QStringLiteral("bystander.xml")));
    EXPECT_TRUE(window->bLoaded);
    app.progress.cancelAtStep = -1;
    app.prompts.Answer(services::Answer::Ok);
    edit::OpenFile(app.app(), app.folder.Path(QStringLiteral("gone.xml")), window);
    EXPECT_TRUE(app.prompts.Texts().last().startsWith(QStringLiteral("Can not find ")));
    EXPECT_EQ(window->rtxtXML.Text(), text) << "nor does one that fails";
    EXPECT_EQ(app.app().CurrentFileName, window->Caption);
    edit::OpenFile(app.app(), large, window);
    EXPECT_EQ(window->tvXML.Nodes.Count(), 100'002); // root, list, and a record with its text each
    EXPECT_EQ(app.progress.begun.size(), static_cast<std::size_t>(app.progress.ended));
}

} // namespace
