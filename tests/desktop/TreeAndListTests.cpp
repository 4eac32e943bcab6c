// SPDX-License-Identifier: GPL-3.0-or-later
// Tree, list and path box with real keys and clicks.
#include "tests/desktop/ShownApp.h"
#include <QLineEdit>
#include <QMenu>

namespace {

using test::ShownApp;

struct TreeAndList : ::testing::Test {
    ShownApp t;
    TreeAndList() {
        t.OpenText(QStringLiteral("shop.xml"), "<shop><pen colour='red'/><ink>blue</ink></shop>");
    }
    QMenu& Popup() { return *t.main->findChild<QMenu*>(QStringLiteral("mnuPopup")); }
    QLineEdit& Path() { return t.Find<QLineEdit>(QStringLiteral("txtXPath")); }
};

TEST_F(TreeAndList, ArrowKeysWalkTheTreeAndListAndPathFollow) {
    EXPECT_TRUE(t.Tree().hasFocus());
    t.Press(Qt::Key_Down);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
    EXPECT_EQ(t.List().model()->rowCount(), 2);
    EXPECT_TRUE(t.window().tvXML.SelectedItem().Expanded()) << "the first node is opened with its document";
    t.Press(Qt::Key_Down);
    EXPECT_EQ(Path().text(), QStringLiteral("/shop[1]/pen[1]"));
    EXPECT_EQ(t.List().model()->index(0, 0).data().toString(), QStringLiteral("colour"));
}

// Which view had the attention before doesn't matter, nor whether the node is the current one already.
TEST_F(TreeAndList, TheContextMenuWorksOnTheNodeItIsOpenedOver) {
    t.Press(Qt::Key_Down);
    for (const char* node : {"shop", "shop.xml"}) {
        const QModelIndex root = t.Tree().model()->index(0, 0);
        const bool top = qstrlen(node) > 4;
        t.window().miPopupContext = kContextList;
        t.Click(*t.Tree().viewport(),
                t.Tree().visualRect(top ? root : root.model()->index(0, 0, root)).center(), Qt::RightButton);
        EXPECT_TRUE(Popup().isVisible());
        EXPECT_TRUE(t.SelectedNode().endsWith(QLatin1String(node)));
        EXPECT_EQ(t.window().miPopupContext, kContextTree);
        EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuDeleteP")).Enabled(), !top);
        t.Press(Qt::Key_Escape);
    }
}

TEST_F(TreeAndList, ShiftF10OpensTheContextMenuWhereTheFocusIs) {
    t.Press(Qt::Key_Down);
    const QPoint node =
        t.Tree().viewport()->mapToGlobal(t.Tree().visualRect(t.Tree().currentIndex()).center());
    t.Press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(Popup().isVisible());
    EXPECT_LT((Popup().pos() - node).manhattanLength(), 20);
    t.Press(Qt::Key_Escape);
    EXPECT_FALSE(Popup().isVisible());
}

// The text is built into a new tree while the button goes down: what it was meant for is another row then.
TEST_F(TreeAndList, AClickBehindATextEditChoosesTheNodeThatWasClicked) {
    t.Press(Qt::Key_Down);
    for (int times = 0; times < 2; ++times) {
        t.ClickTab(QStringLiteral("textview"));
        controls::RichTextBox& text = t.window().rtxtXML;
        text.SetSelStart(text.Text().indexOf(QStringLiteral("<pen")));
        text.SetSelLength(0);
        t.Type(QStringLiteral("<new/>"));
        const QModelIndex shop = t.Tree().model()->index(0, 0, t.Tree().model()->index(0, 0));
        const QModelIndex ink = shop.model()->index(shop.model()->rowCount(shop) - 1, 0, shop);
        ASSERT_EQ(ink.data().toString(), QStringLiteral("ink"));
        const QPoint place = t.Tree().visualRect(ink).center();
        QCursor::setPos(t.Tree().viewport()->mapToGlobal(place));
        t.Click(*t.Tree().viewport(), place);
        EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
        EXPECT_EQ(t.Tree().currentIndex().data().toString(), QStringLiteral("ink"));
        EXPECT_EQ(t.window().miPopupContext, kContextTree);
        EXPECT_TRUE(t.Tree().hasFocus());
        EXPECT_TRUE(t.Tree().isExpanded(t.Tree().currentIndex().parent())) << "as it was";
    }
    t.Press(Qt::Key_Delete);
    EXPECT_FALSE(t.window().rtxtXML.Text().contains(QStringLiteral("<ink>")));
}

TEST_F(TreeAndList, TheCurrentNodeIsMarkedWhereverTheTreeIsClicked) {
    t.Press(Qt::Key_Down);
    t.Click(*t.Tree().viewport(), t.Tree().viewport()->rect().bottomRight() - QPoint(5, 5));
    EXPECT_TRUE(t.Tree().selectionModel()->isSelected(t.Tree().currentIndex()));
    QTest::mouseClick(t.Tree().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      t.Tree().visualRect(t.Tree().currentIndex()).center());
    EXPECT_TRUE(t.Tree().selectionModel()->isSelected(t.Tree().currentIndex()));
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
}

TEST_F(TreeAndList, ARefusedLabelStaysAsItWasTypedAndEscapeTakesANewNodeBack) {
    const auto editor = [] { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); };
    const QString before = t.window().rtxtXML.Text();
    t.Press(Qt::Key_Down);
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    ASSERT_TRUE(editor());
    t.Type(QStringLiteral("my pen"));
    t.prompts.Answer(services::Answer::Ok);
    t.Press(Qt::Key_Return);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("my pen"));
    t.prompts.Answer(services::Answer::Ok);
    t.Click(*t.List().viewport(), QPoint(5, 5));
    ASSERT_TRUE(editor()) << "nor does it go by itself";
    t.Press(Qt::Key_Escape);
    EXPECT_TRUE(t.Tree().hasFocus());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
    EXPECT_EQ(t.window().rtxtXML.Text(), before);
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuEditUndo")).Enabled());
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    t.Type(QStringLiteral("cap"));
    t.Press(Qt::Key_Return);
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("<cap></cap>")));
}

// A label can be edited again, whatever became of the editor that was open.
TEST_F(TreeAndList, AnEditorThatGoesWithoutTheUserLeavesTheLabelAsItWas) {
    controls::TreeView& tree = t.window().tvXML;
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_F2);
    t.Type(QStringLiteral("store"));
    { const controls::TreeUpdate replaced(tree); }
    EXPECT_FALSE(tree.LabelEditNode());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop"));
    t.Tree().setFocus();
    t.Press(Qt::Key_F2);
    ASSERT_TRUE(tree.LabelEditNode());
    t.Type(QStringLiteral("store"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("store"));
}

TEST_F(TreeAndList, AWrongNameIsComplainedAboutWhileItIsTyped) {
    const auto complaint = [&] { return t.frame().StatusBar1().Panel(1); };
    t.Press(Qt::Key_F2);
    t.Type(QStringLiteral("my shop.xml"));
    EXPECT_EQ(complaint(), QString()) << "a document's name is none of XML";
    t.Press(Qt::Key_Escape);
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_F2);
    t.Type(QStringLiteral("7"));
    EXPECT_FALSE(complaint().isEmpty());
    t.Press(Qt::Key_Backspace);
    EXPECT_EQ(complaint(), QString()) << "an empty name says nothing yet";
    t.Type(QStringLiteral("7up"));
    t.Press(Qt::Key_Escape);
    EXPECT_EQ(complaint(), QString()) << "given up";
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

// After a deletion another node is current: a key that is held must not go on with that one.
TEST_F(TreeAndList, AHeldDeleteKeyDeletesOneNode) {
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_Down);
    ASSERT_EQ(t.SelectedNode(), QStringLiteral("pen"));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QApplication::sendEvent(&t.Tree(), &press);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier, {}, true);
        QApplication::sendEvent(&t.Tree(), &up);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
        QApplication::sendEvent(&t.Tree(), &down);
    }
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("<pen")));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier);
    QApplication::sendEvent(&t.Tree(), &release);
    EXPECT_EQ(t.window().rtxtXML.Text(), QStringLiteral("<shop>\r\n\t<ink>blue</ink>\r\n</shop>"));
    EXPECT_EQ(t.Tree().currentIndex().data().toString(), t.SelectedNode());
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
    Path().clear();
    t.Type(QStringLiteral("/shop/ink"));
    t.Press(Qt::Key_Return);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
}

TEST_F(TreeAndList, TheFirstDownInTheListSelectsTheFirstRow) {
    t.Press(Qt::Key_Down);
    controls::ListView& list = t.window().ListView1;
    for (const int style : {controls::lvwReport, controls::lvwList}) {
        list.SetView(style);
        list.SetSelectedItem(0);
        list.ClearSelected();
        t.Tree().setFocus();
        list.SetFocus();
        EXPECT_EQ(list.SelectedItem(), 0) << "the focus alone chooses nothing";
        t.Press(Qt::Key_Down);
        EXPECT_EQ(list.SelectedItem(), 1);
        EXPECT_TRUE(list.Selected(1));
        t.Press(Qt::Key_Down);
        EXPECT_EQ(list.SelectedItem(), 2);
        EXPECT_FALSE(list.Selected(1));
    }
}

} // namespace
