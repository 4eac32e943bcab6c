// SPDX-License-Identifier: GPL-3.0-or-later
// Entities, validation, both panes.
#include "tests/textview/TextDesk.h"
#include "textview/TextCommands.h"
#include "textview/TextState.h"

namespace {

using services::Answer;
using test::TextDesk;

TEST(TextCommand, EntitiesGoInAtTheCaretOfTheEditorThatShows) {
    TextDesk desk;
    const std::pair<const char*, const char*> buttons[] = {
        {"quote", "&quot;"}, {"apostraphe", "&apos;"}, {"lt", "&lt;"}, {"gt", "&gt;"}, {"amp", "&amp;"}};
    desk.SelectText(QStringLiteral("one"));
    QString inserted;
    for (const auto& [key, entity] : buttons) {
        desk.app.PressButton(QStringLiteral("tbTextEdit"), QLatin1String(key));
        inserted += QLatin1String(entity);
    }
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>%1</b>").arg(inserted)));
    EXPECT_TRUE(desk.PanesAgree());
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 5);

    desk.window().tbsXML.Select(QStringLiteral("listview"));
    desk.window().txtListView.SetVisible(true);
    desk.window().txtListView.SetText(QStringLiteral("ab"));
    desk.window().txtListView.Select(1, 0);
    const QString text = desk.Text();
    textview::InsertString(desk.window(), QStringLiteral("&amp;"));
    EXPECT_EQ(desk.window().txtListView.Text(), QStringLiteral("a&amp;b"));
    EXPECT_EQ(desk.Text(), text);
}

TEST(TextCommand, ValidatingSaysSoOrShowsTheParsersReport) {
    TextDesk desk;
    desk.app.prompts.Answer({Answer::Ok, Answer::Ok});
    desk.app.ChooseMenu(QStringLiteral("mnuXMLValidate"));
    EXPECT_EQ(desk.app.prompts.boxes.back().text, QStringLiteral("It is valid XML!"));
    desk.SelectText(QStringLiteral("</b>"));
    desk.Press(Qt::Key_Delete);
    desk.app.PressButton(QStringLiteral("tbTextEdit"), QStringLiteral("validate"));
    EXPECT_EQ(desk.app.prompts.boxes.back().title, QStringLiteral("This is not valid XML"));
}

TEST(TextCommand, SplittingShowsASecondPaneOnTheSameTextAndGivesTheKeysBack) {
    TextDesk desk;
    desk.app.ChooseMenu(QStringLiteral("mnuWinSplit"));
    EXPECT_TRUE(desk.window().pctSplitText.Visible());
    desk.Enter(desk.window().rtxtXML2);
    desk.CaretBehind(QStringLiteral("one"));
    desk.Type(QStringLiteral("x"));
    EXPECT_TRUE(desk.window().rtxtXML.Text().contains(QStringLiteral("onex")));
    desk.app.ChooseMenu(QStringLiteral("mnuSplitEditor"));
    EXPECT_FALSE(desk.window().pctSplitText.Visible());
    EXPECT_EQ(&desk.pane(), &desk.window().rtxtXML) << "the keys go to a pane that shows";
    desk.Type(QStringLiteral("y"));
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("onexy")));
    desk.pane().LostFocus();
    EXPECT_EQ(desk.window().tvXML.Nodes(1).Child().Child().Child().Text(), QStringLiteral("onexy"));
}

} // namespace
