// SPDX-License-Identifier: GPL-3.0-or-later
// Tree, list and path box with real keys and clicks.
#include "tests/desktop/ShownApp.h"
#include <QLineEdit>

namespace {

using test::ShownApp;

struct TreeAndList : ::testing::Test {
    ShownApp t;
    TreeAndList() {
        t.OpenText(QStringLiteral("shop.xml"), "<shop><pen colour='red'/><ink>blue</ink></shop>");
    }
    QLineEdit& Path() { return t.Find<QLineEdit>(QStringLiteral("txtXPath")); }
};

TEST_F(TreeAndList, ArrowKeysWalkTheTreeAndListAndPathFollow) {
    EXPECT_TRUE(t.Tree().hasFocus());
    t.Press(Qt::Key_Down);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
    EXPECT_EQ(t.List().model()->rowCount(), 2);
    t.Press(Qt::Key_Right);
    EXPECT_TRUE(t.window().tvXML.SelectedItem().Expanded());
    t.Press(Qt::Key_Down);
    EXPECT_EQ(Path().text(), QStringLiteral("/shop[1]/pen[1]"));
    EXPECT_EQ(t.List().model()->index(0, 0).data().toString(), QStringLiteral("colour"));
}

TEST_F(TreeAndList, TheRootCannotBeClosed) {
    t.Press(Qt::Key_Left);
    EXPECT_TRUE(t.Tree().isExpanded(t.Tree().model()->index(0, 0)));
    EXPECT_TRUE(t.window().tvXML.Nodes(1).Expanded());
}

TEST_F(TreeAndList, ADoubleClickInTheListWalksDown) {
    t.Press(Qt::Key_Down);
    const QRect row = t.List().visualRect(t.List().model()->index(1, 0));
    t.Click(*t.List().viewport(), row.center());
    QTest::mouseDClick(t.List().viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
    EXPECT_EQ(t.Tree().currentIndex().data().toString(), QStringLiteral("ink"));
}

TEST_F(TreeAndList, ListRowsAreSelectedBothWays) {
    t.Press(Qt::Key_Down);
    auto& list = t.window().ListView1;
    t.Click(*t.List().viewport(), t.List().visualRect(t.List().model()->index(0, 0)).center());
    QTest::keyClick(&t.List(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(list.Selected(1));
    EXPECT_TRUE(list.Selected(2));
    list.ClearSelected();
    EXPECT_FALSE(t.List().selectionModel()->hasSelection());
    list.SetSelectedItem(2);
    EXPECT_EQ(t.List().selectionModel()->selectedRows().constFirst().row(), 1);
}

TEST_F(TreeAndList, AfterRemovingTheSelectedNodeTreeAndWidgetAgree) {
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_Right);
    t.Press(Qt::Key_Down);
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("pen"));
    t.window().tvXML.Nodes.Remove(t.window().tvXML.SelectedItem());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
    EXPECT_EQ(t.Tree().currentIndex().data().toString(), QStringLiteral("ink"));
}

TEST_F(TreeAndList, EnterInThePathBoxSelectsTheNode) {
    Path().setFocus();
    Path().clear();
    t.Type(QStringLiteral("/shop/ink"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
}

// The Enter that closes a box is released over the path box, which must not search once more.
TEST_F(TreeAndList, AKeyThatIsOnlyReleasedHereRaisesNothing) {
    Path().setFocus();
    Path().clear();
    t.Type(QStringLiteral("/nothing"));
    QTest::keyRelease(&Path(), Qt::Key_Return);
    EXPECT_TRUE(t.prompts.boxes.empty());
    t.prompts.Answer(services::Answer::Ok);
    t.Press(Qt::Key_Return);
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
}

} // namespace
