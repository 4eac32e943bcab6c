// SPDX-License-Identifier: GPL-3.0-or-later
// The tree's widget in the window, with real keys, clicks and pulls.
#include "tests/desktop/ShownApp.h"
#include <QAccessible>
#include <QScrollBar>

namespace {

using test::ShownApp;

struct TreeWidget : ::testing::Test {
    ShownApp t;
    void Open(const QByteArray& bytes) { t.OpenText(QStringLiteral("shop.xml"), bytes); }
    void OpenSmall() { Open("<shop><pen><ink/><Cap/></pen><nib/></shop>"); }
    /// A document whose thousands of rows are all open.
    void OpenLarge() {
        Open("<shop>" + QByteArray("<pen><ink><dot/></ink><cap/></pen>").repeated(1500) + "</shop>");
        t.Press(Qt::Key_Asterisk);
    }
    desktop::TreeWidget& Tree() { return t.Tree(); }
    int Current() { return Tree().rowOf(Tree().currentIndex()); }
    std::string CurrentText() { return Tree().currentIndex().data().toString().toStdString(); }
    QPoint Label(int row) { return Tree().visualRect(Tree().indexAtRow(row)).center(); }
    QPoint Mark(int row) {
        const QRect label = Tree().visualRect(Tree().indexAtRow(row));
        return {label.left() - Tree().style()->pixelMetric(QStyle::PM_TreeViewIndentation) / 2,
                label.center().y()};
    }
    void Click(QPoint place) { t.Click(*Tree().viewport(), place); }
    bool InSight(int row) { return Tree().viewport()->rect().contains(Label(row)); }
    int Scrolled() { return Tree().verticalScrollBar()->value(); }

    static void Walk(controls::TreeNode node, QStringList& texts) {
        for (; node; node = node.Next()) {
            texts << node.Text();
            if (node.Expanded())
                Walk(node.Child(), texts);
        }
    }
    void ExpectRowsOfTree(int count) {
        QStringList wanted, shown;
        Walk(t.window().tvXML.Nodes(1), wanted);
        for (int row = 0; row < Tree().rowCount(); ++row)
            shown << Tree().indexAtRow(row).data().toString();
        EXPECT_EQ(shown, wanted);
        EXPECT_EQ(shown.size(), count);
        EXPECT_EQ(Tree().currentIndex().data().toString(), t.SelectedNode());
        EXPECT_TRUE(InSight(Current()));
    }
};

TEST_F(TreeWidget, KeysOpenAndCloseNodesAndWalkTheRows) {
    OpenSmall();
    t.Press(Qt::Key_Asterisk);
    EXPECT_EQ(Tree().rowCount(), 6);
    t.Press(Qt::Key_End);
    EXPECT_EQ(CurrentText(), "nib");
    t.Press(Qt::Key_Up);
    EXPECT_EQ(CurrentText(), "Cap");
    t.Press(Qt::Key_Left);
    EXPECT_EQ(CurrentText(), "pen");
    t.Press(Qt::Key_Left);
    EXPECT_EQ(Tree().rowCount(), 4);
    t.Press(Qt::Key_Right);
    EXPECT_EQ(CurrentText(), "pen") << "it opens first";
    t.Press(Qt::Key_Right);
    EXPECT_EQ(CurrentText(), "ink");
    t.Press(Qt::Key_Left);
    t.Press(Qt::Key_Left);
    t.Press(Qt::Key_Left);
    EXPECT_EQ(CurrentText(), "shop");
    t.Press(Qt::Key_Minus);
    EXPECT_EQ(Tree().rowCount(), 2);
    t.Press(Qt::Key_Plus);
    EXPECT_EQ(Tree().rowCount(), 4) << "what is below is as it was left";
    t.Press(Qt::Key_Home);
    t.Press(Qt::Key_Minus);
    EXPECT_EQ(Tree().rowCount(), 4) << "the root of the tree stays open";
    EXPECT_EQ(Current(), 0);
}

TEST_F(TreeWidget, LettersGoToTheNextRowThatBeginsWithThem) {
    Open("<shop><pen/><Cap/><pot/></shop>");
    const int usual = QApplication::keyboardInputInterval();
    const auto type = [&](const char* letters, int interval) {
        QApplication::setKeyboardInputInterval(interval);
        t.Type(QString::fromLatin1(letters));
        QApplication::setKeyboardInputInterval(usual);
        return CurrentText();
    };
    EXPECT_EQ(type("po", 60'000), "pot");
    EXPECT_EQ(type("c", 0), "Cap") << "from the top again";
    EXPECT_EQ(type("x", 0), "Cap");
    EXPECT_EQ(type("p", 0), "pot");
    EXPECT_EQ(type("p", 60'000), "pen") << "the same letter goes on";
    EXPECT_EQ(type("p", 60'000), "pot");
}

TEST_F(TreeWidget, ADoubleClickOrAClickOnTheMarkOpensAndTheMarkSelectsAndPullsNothing) {
    OpenSmall();
    Click(Mark(2));
    EXPECT_EQ(Tree().rowCount(), 6);
    EXPECT_EQ(Current(), 0);
    bool pulled = false;
    Tree().runsDrag = [&](QDrag&) {
        pulled = true;
        return Qt::IgnoreAction;
    };
    Click(Label(3));
    QWindow* window = t.main->windowHandle();
    const QPoint mark = Tree().viewport()->mapTo(t.main.get(), Mark(2));
    QTest::mousePress(window, Qt::LeftButton, {}, mark);
    for (int i = 1; i < 12; ++i)
        QTest::mouseMove(window, mark + QPoint(2 * i, 3 * i));
    QTest::mouseRelease(window, Qt::LeftButton, {}, mark + QPoint(22, 33));
    EXPECT_FALSE(pulled);
    EXPECT_EQ(Tree().rowCount(), 4);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink")) << "hidden, but the current one";
    t.Press(Qt::Key_Up);
    EXPECT_EQ(Current(), 1) << "from where it is hidden";
    Click(Label(2));
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, Label(2));
    EXPECT_EQ(Tree().rowCount(), 6);
}

TEST_F(TreeWidget, MovesAndDeletionsAmongThousandsOfOpenRowsShowWhatTheTreeHolds) {
    OpenLarge();
    constexpr int kRows = 2 + 1500 * 4;
    ExpectRowsOfTree(kRows);
    t.Press(Qt::Key_End);
    EXPECT_EQ(Current(), kRows - 1);
    Tree().scrollTo(Tree().indexAtRow(3002), QAbstractItemView::PositionAtCenter);
    Click(Label(3002));
    ASSERT_EQ(CurrentText(), "pen");
    const int scrolled = Scrolled();
    t.ChooseMenu(QStringLiteral("mnuMoveDown"));
    EXPECT_EQ(Current(), 3006);
    ExpectRowsOfTree(kRows);
    EXPECT_EQ(Scrolled(), scrolled);
    t.Press(Qt::Key_Delete);
    EXPECT_EQ(CurrentText(), "pen") << "the next one";
    ExpectRowsOfTree(kRows - 4);
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_Delete);
    EXPECT_EQ(CurrentText(), "cap");
    ExpectRowsOfTree(kRows - 6);
    t.ChooseMenu(QStringLiteral("mnuNewNode"));
    t.Type(QStringLiteral("lid"));
    t.Press(Qt::Key_Return);
    ExpectRowsOfTree(kRows - 5);
    EXPECT_EQ(Scrolled(), scrolled);
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    ExpectRowsOfTree(kRows - 6);
    t.Press(Qt::Key_Home);
    for (const int page : {1, 2}) {
        t.Press(Qt::Key_PageDown);
        EXPECT_EQ(Current(), page * Tree().verticalScrollBar()->pageStep());
        EXPECT_TRUE(InSight(Current()));
    }
    t.Press(Qt::Key_PageUp);
    t.Press(Qt::Key_PageUp);
    EXPECT_EQ(Scrolled(), 0);
}

TEST_F(TreeWidget, ADeepRowIsScrolledToWhereItBeginsAndBack) {
    Open(QByteArray("<deep>").repeated(60) + QByteArray("</deep>").repeated(60));
    t.Press(Qt::Key_Asterisk);
    t.Press(Qt::Key_End);
    const QRect label = Tree().visualRect(Tree().currentIndex());
    EXPECT_GT(Tree().horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(Tree().viewport()->rect().contains(label.topLeft()));
    t.Press(Qt::Key_Home);
    EXPECT_EQ(Tree().horizontalScrollBar()->value(), 0);
}

TEST_F(TreeWidget, TheCurrentRowIsPaintedAsSelectedAndGoesAlongWhenRowsOpenAboveIt) {
    OpenSmall();
    t.Press(Qt::Key_End);
    for (const int row : {3, 5}) {
        ASSERT_EQ(Current(), row);
        const QImage painted = Tree().viewport()->grab().toImage();
        const QColor selected = Tree().palette().color(QPalette::Highlight);
        for (int each = 0; each < Tree().rowCount(); ++each) {
            const QPoint corner = Tree().visualRect(Tree().indexAtRow(each)).topLeft() + QPoint(1, 1);
            EXPECT_EQ(painted.pixelColor(corner) == selected, each == row) << each;
        }
        Click(Mark(2)); // opens the pen above it
    }
}

TEST_F(TreeWidget, AssistiveProgramsReadTheRows) {
    OpenSmall();
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_Down);
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&Tree());
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    EXPECT_EQ(tree->text(QAccessible::Name), QStringLiteral("XML"));
    EXPECT_EQ(tree->childCount(), 4);
    QAccessibleInterface* pen = tree->focusChild();
    ASSERT_TRUE(pen);
    EXPECT_EQ(pen, tree->child(2)) << "the same object each time";
    EXPECT_EQ(tree->indexOfChild(pen), 2);
    EXPECT_EQ(pen->parent(), tree);
    EXPECT_EQ(pen->text(QAccessible::Name), QStringLiteral("pen"));
    EXPECT_TRUE(pen->state().selected && pen->state().focused && pen->state().collapsed);
    EXPECT_EQ(tree->childAt(pen->rect().center().x(), pen->rect().center().y()), pen);
    EXPECT_TRUE(tree->child(1)->state().expanded);
    t.Press(Qt::Key_Delete);
    EXPECT_EQ(tree->focusChild()->text(QAccessible::Name), QStringLiteral("nib"));
    EXPECT_FALSE(pen->isValid());
}

} // namespace
