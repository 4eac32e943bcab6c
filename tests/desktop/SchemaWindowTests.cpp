// SPDX-License-Identifier: GPL-3.0-or-later
// The schema window with real keys and clicks: lists to choose from, and the diagnostics under the views.
#include "tests/desktop/ShownApp.h"
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QToolButton>

namespace {

constexpr char kSchema[] =
    "<schema xmlns='http://www.w3.org/2001/XMLSchema'>"
    "<group name='g'><sequence><element name='a' type='string'/></sequence></group></schema>";

struct SchemaWindow : ::testing::Test {
    test::ShownApp t;

    QLineEdit& Editor() { return t.Find<QLineEdit>(QStringLiteral("txtListView")); }
    /// The entries of the open list; empty where none is open.
    QStringList Offers() {
        const auto* list = qobject_cast<QListView*>(QApplication::activePopupWidget());
        QStringList texts;
        for (int row = 0; list && row < list->model()->rowCount(); ++row)
            texts << list->model()->index(row, 0).data().toString();
        return texts;
    }
    /// To the open list, as the window system would do it.
    void PressInOffers(Qt::Key key) { QTest::keyClick(QApplication::activePopupWidget(), key); }
    void OpenCell(int row) {
        const QModelIndex cell = t.List().model()->index(row, 0);
        t.Click(*t.List().viewport(), t.List().visualRect(cell).center());
        t.Press(Qt::Key_Tab);
        ASSERT_TRUE(Editor().hasFocus());
    }
    QString Type() { return t.window().tvXML.SelectedItem().Tag(); }
};

TEST_F(SchemaWindow, KeysOpenTheListOfAValueNarrowItAndChooseFromIt) {
    t.OpenText(QStringLiteral("a.xsd"), kSchema);
    t.Press(Qt::Key_Down);
    for (int level = 0; level < 3; ++level) {
        t.Press(Qt::Key_Right);
        t.Press(Qt::Key_Down);
    }
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("element"));
    OpenCell(3);
    t.Press(Qt::Key_Down, Qt::AltModifier); // a shortcut elsewhere
    EXPECT_EQ(Offers().size(), 44);
    t.Type(QStringLiteral("dec"));
    EXPECT_EQ(Offers(), QStringList{QStringLiteral("decimal")});
    PressInOffers(Qt::Key_Escape);
    EXPECT_EQ(Offers(), QStringList());
    EXPECT_TRUE(Editor().isVisible()) << "the list alone is left";
    EXPECT_EQ(Editor().text(), QStringLiteral("dec"));
    t.Press(Qt::Key_Escape);
    EXPECT_FALSE(Editor().isVisible());
    EXPECT_EQ(Type(), QStringLiteral("name=\"a\" type=\"string\""));

    OpenCell(3);
    t.Press(Qt::Key_F4);
    PressInOffers(Qt::Key_Down);
    PressInOffers(Qt::Key_Down);
    PressInOffers(Qt::Key_Return);
    EXPECT_EQ(Editor().text(), QStringLiteral("boolean"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(Type(), QStringLiteral("name=\"a\" type=\"boolean\""));

    OpenCell(0); // a name takes plain text
    t.Press(Qt::Key_F4);
    EXPECT_EQ(Offers(), QStringList());
}

TEST_F(SchemaWindow, TheMouseOpensAListAndChoosesFromIt) {
    t.OpenText(QStringLiteral("a.xsd"), kSchema);
    t.window().tvXML.SetSelectedItem(t.window().tvXML.Nodes(1).Child().Child().Child().Child());
    t.ClickTreeRow(t.Tree().currentIndex());
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("element"));
    const QRect cell = t.List().visualRect(t.List().model()->index(3, 1));
    t.Click(*t.List().viewport(), t.List().visualRect(t.List().model()->index(3, 0)).center());
    t.Click(*t.List().viewport(), cell.center()); // of the row that is current already
    ASSERT_TRUE(QTest::qWaitFor([&] { return Editor().isVisible(); }));
    auto& button = t.Find<QToolButton>(QStringLiteral("cmdPop"));
    t.Click(button, button.rect().center());
    EXPECT_EQ(Offers().size(), 44);
    auto* list = qobject_cast<QListView*>(QApplication::activePopupWidget());
    ASSERT_TRUE(list);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(3, 0)).center());
    EXPECT_EQ(Editor().text(), QStringLiteral("date"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(Type(), QStringLiteral("name=\"a\" type=\"date\""));
}

TEST_F(SchemaWindow, KeysSwitchACompositorInTheListAndNowhereElse) {
    t.OpenText(QStringLiteral("a.xsd"), kSchema);
    const controls::TreeNode group = t.window().tvXML.Nodes(1).Child().Child();
    t.window().tvXML.SetSelectedItem(group);
    t.ClickTreeRow(t.Tree().currentIndex());
    t.Press(Qt::Key_F2); // in the tree its name stays
    EXPECT_FALSE(Editor().isVisible());
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("group"));
    t.Click(*t.List().viewport(), t.List().visualRect(t.List().model()->index(0, 0)).center());
    t.Press(Qt::Key_F2);
    ASSERT_TRUE(Editor().hasFocus());
    t.Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Offers(),
              (QStringList{QStringLiteral("sequence"), QStringLiteral("all"), QStringLiteral("choice")}));
    for (int down = 0; down < 3; ++down)
        PressInOffers(Qt::Key_Down);
    PressInOffers(Qt::Key_Return);
    EXPECT_EQ(Editor().text(), QStringLiteral("choice"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(group.Child().Text(), QStringLiteral("choice"));
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("<choice>")));
}

// Opened by its name, with nothing that waits for it: the program's own clock looks after the check.
TEST_F(SchemaWindow, TheCheckOfAnOpenedSchemaComesByItself) {
    t.prompts.Answer(services::Answer::Ok);
    t.frame().OpenNamed(
        t.folder.Write(QStringLiteral("a.xsd"), QByteArray(kSchema).replace("string", "nothing")));
    EXPECT_TRUE(t.prompts.boxes.empty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !t.prompts.boxes.empty(); }, 30'000));
    EXPECT_EQ(t.prompts.boxes.front().title, QStringLiteral("Schema error!"));
    EXPECT_TRUE(t.Find<QTreeView>(QStringLiteral("lvDiagnostics")).isVisible());
}

TEST_F(SchemaWindow, AClickInTheListOfDiagnosticsGoesToItsNodeAndPlace) {
    t.prompts.AllowAnyBox();
    t.OpenText(QStringLiteral("a.xsd"), QByteArray(kSchema).replace("string", "nothing"));
    auto& list = t.Find<QTreeView>(QStringLiteral("lvDiagnostics"));
    ASSERT_TRUE(list.isVisible());
    ASSERT_EQ(list.model()->rowCount(), 1);
    t.ClickTreeRow(t.Tree().model()->index(0, 0));
    t.Click(*list.viewport(), list.visualRect(list.model()->index(0, 0)).center());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("element"));
    EXPECT_EQ(t.Text().Caret(), t.Text().Model().Text().indexOf(QStringLiteral("/>")) + 2);
    t.Press(Qt::Key_A, Qt::ControlModifier);
    t.Type(QString::fromUtf8(kSchema));
    t.ClickTab(QStringLiteral("listview"));
    t.FinishChecks();
    EXPECT_FALSE(list.isVisible()) << "the fault is mended";
}

TEST_F(SchemaWindow, TheContextMenuHoldsWhatCanBeInserted) {
    t.OpenText(QStringLiteral("a.xsd"), kSchema);
    t.Press(Qt::Key_Down);
    const auto shown = [this]() -> QStringList {
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QStringList captions;
        for (const QAction* action : popup ? popup->actions().value(0)->menu()->actions() : QList<QAction*>())
            if (action->isVisible() && action->isEnabled())
                captions << action->text();
        if (popup)
            popup->close();
        return captions;
    };
    Q_EMIT t.Tree().customContextMenuRequested(t.Tree().visualRect(t.Tree().currentIndex()).center());
    EXPECT_EQ(shown().size(), 11);
}

} // namespace
