// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: menus, documents side by side, the address box, the walk through the panes.
#include "tests/desktop/ShownApp.h"
#include "textview/TextCommands.h"
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

using test::ShownApp;

struct MainWindow : ::testing::Test {
    ShownApp t;
    QMdiArea& Area() { return *t.main->findChild<QMdiArea*>(); }
    void OpenTwo() {
        t.OpenText(QStringLiteral("one.xml"), "<one/>");
        t.OpenText(QStringLiteral("two.xml"), "<two/>");
    }
    QString ActiveTitle() { return Area().activeSubWindow()->windowTitle().section(QLatin1Char('/'), -1); }
};

TEST_F(MainWindow, ActionsFollowTheirMenuEntries) {
    auto* save = t.main->findChild<QAction*>(QStringLiteral("mnuFileSave"));
    ASSERT_TRUE(save);
    EXPECT_FALSE(save->isEnabled());
    t.OpenText(QStringLiteral("one.xml"), "<one/>");
    EXPECT_TRUE(save->isEnabled());
    EXPECT_EQ(t.main->findChild<QMenuBar*>()->actions().size(), 9); // the context menu isn't in the bar
    controls::MenuItem& recent = t.frame().Menu(QStringLiteral("mnuFileMRU"), 1);
    recent.SetCaption(QStringLiteral("/a&b.xml"));
    recent.SetVisible(true);
    auto* action = t.main->findChild<QAction*>(QStringLiteral("mnuFileMRU"));
    EXPECT_EQ(action->text(), QStringLiteral("/a&&b.xml"));
    EXPECT_TRUE(action->isVisible());
    // A name is shown in one line that leaves room for the menu, whatever the file system lets it be.
    recent.SetCaption(QStringLiteral("/start\tof\n") + QString(100'000, QLatin1Char('x')) +
                      QStringLiteral("/end.xml"));
    EXPECT_TRUE(action->text().startsWith(QStringLiteral("/start of ")));
    EXPECT_TRUE(action->text().endsWith(QStringLiteral("/end.xml")));
    EXPECT_LT(action->text().size(), 200);
}

TEST_F(MainWindow, WindowOrderIsTheFramesAndTheActiveOneIsInFront) {
    OpenTwo();
    EXPECT_EQ(ActiveTitle(), QStringLiteral("two.xml"));
    t.Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(ActiveTitle(), QStringLiteral("one.xml"));
    EXPECT_TRUE(t.frame().ActiveForm()->Caption.endsWith(QStringLiteral("one.xml")));
    Area().setActiveSubWindow(Area().subWindowList().at(1));
    EXPECT_TRUE(t.frame().ActiveForm()->Caption.endsWith(QStringLiteral("two.xml")));
    ASSERT_TRUE(Area().activeSubWindow()->isMaximized());
    t.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(ActiveTitle(), QStringLiteral("one.xml"));
    EXPECT_TRUE(Area().activeSubWindow()->isMaximized());
    EXPECT_EQ(Area().subWindowList().size(), 1);
}

// Laying out a title of a million characters takes many seconds, each time the window is painted.
TEST_F(MainWindow, ATitleShowsTheEndsOfALongNameInOneLine) {
    t.OpenText(QStringLiteral("one.xml"), "<one/>");
    t.window().SetCaption(QStringLiteral("/start\n") + QString(1'000'000, QLatin1Char('x')) +
                          QStringLiteral("/end.xml"));
    const QString title = Area().activeSubWindow()->windowTitle();
    EXPECT_TRUE(title.startsWith(QStringLiteral("/start xxx"))) << title.left(100).toStdString();
    EXPECT_TRUE(title.endsWith(QStringLiteral("xxx/end.xml")));
    EXPECT_LT(title.size(), 400);
}

TEST_F(MainWindow, TitleAndWindowMenuMarkUnsavedDocuments) {
    OpenTwo();
    const QString one = t.folder.Path(QStringLiteral("one.xml")),
                  two = t.folder.Path(QStringLiteral("two.xml"));
    t.EditText(QStringLiteral("<two>2</two>"));
    EXPECT_EQ(Area().activeSubWindow()->windowTitle(), u'*' + two);
    EXPECT_TRUE(t.main->windowTitle().contains(u'*' + two)) << t.main->windowTitle().toStdString();
    auto* menu = t.main->findChild<QMenu*>(QStringLiteral("mnuWindow"));
    const auto entries = [menu] {
        Q_EMIT menu->aboutToShow();
        return menu->actions().mid(menu->actions().size() - 2);
    };
    EXPECT_EQ(entries()[0]->text(), one);
    EXPECT_EQ(entries()[1]->text(), u'*' + two);
    EXPECT_TRUE(entries()[1]->isChecked());
    entries()[0]->trigger();
    EXPECT_EQ(t.window().Caption, one);
    EXPECT_TRUE(entries()[0]->isChecked());
    t.frame().ActivateForm(t.frame().Forms()[1]);
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(Area().activeSubWindow()->windowTitle(), two);
    EXPECT_EQ(entries()[1]->text(), two);
}

TEST_F(MainWindow, TilesLieAboveEachOtherOrSideBySideAndFillTheFrame) {
    OpenTwo();
    const QRect room = Area().viewport()->rect();
    const auto tiles = [&](const char* entry) {
        t.ChooseMenu(QLatin1String(entry));
        const auto windows = Area().subWindowList();
        return std::pair(windows.at(0)->geometry(), windows.at(1)->geometry());
    };
    const auto [below, above] = tiles("mnuWindowTileHorizontal");
    EXPECT_EQ(above | below, room);
    EXPECT_EQ(above.width(), room.width());
    EXPECT_EQ(above.bottom() + 1, below.top());
    const auto [right, left] = tiles("mnuWindowTileVertical");
    EXPECT_EQ(left | right, room);
    EXPECT_EQ(left.height(), room.height());
    EXPECT_EQ(left.right() + 1, right.left());
}

TEST_F(MainWindow, IconsAreArrangedInARowAtTheBottomAndNamedByTheirFiles) {
    OpenTwo();
    const auto windows = Area().subWindowList();
    for (QMdiSubWindow* window : windows) {
        Area().setActiveSubWindow(window); // as a click on its title does
        EXPECT_FALSE(window->isMinimized());
        window->showMinimized();
    }
    Area().setActiveSubWindow(windows.at(0));
    ASSERT_TRUE(windows.at(0)->isMinimized()) << "a click on an icon's title doesn't open it";
    for (QMdiSubWindow* window : windows)
        window->move(70, 40); // where the user left it
    t.ChooseMenu(QStringLiteral("mnuWindowArrangeIcons"));
    QRect one = windows.at(0)->geometry(), two = windows.at(1)->geometry();
    if (two.left() < one.left())
        std::swap(one, two);
    EXPECT_EQ(one.bottomLeft(), Area().viewport()->rect().bottomLeft());
    EXPECT_EQ(two.bottomLeft(), one.bottomRight() + QPoint(1, 0));
    EXPECT_EQ(windows.at(0)->windowTitle(), QStringLiteral("one.xml"));
    windows.at(0)->showNormal();
    EXPECT_EQ(windows.at(0)->windowTitle(), t.folder.Path(QStringLiteral("one.xml")));
}

TEST_F(MainWindow, EnterInTheAddressBoxOpensOnceAlsoForAKnownName) {
    const QString gone = t.folder.Path(QStringLiteral("gone.xml"));
    t.frame().cmbAddress().AddItem(gone);
    t.Press(Qt::Key_L, Qt::ControlModifier);
    const auto& box = *t.main->findChild<QComboBox*>(QStringLiteral("cmbAddress"));
    ASSERT_TRUE(box.hasFocus());
    t.Type(gone);
    t.prompts.Answer({services::Answer::Ok, services::Answer::No});
    t.Press(Qt::Key_Return);
    EXPECT_EQ(t.prompts.boxes.size(), 2U) << "an opening tells once and asks once whether to make the file";
}

TEST_F(MainWindow, ClosingTheFrameStopsAtTheDocumentThatIsKept) {
    OpenTwo();
    t.EditText(QStringLiteral("<two>2</two>"));
    t.prompts.Answer(services::Answer::Cancel);
    EXPECT_FALSE(t.main->close());
    EXPECT_TRUE(t.main->isVisible());
    EXPECT_EQ(t.frame().FormCount(), 2);
    t.prompts.Answer(services::Answer::No);
    EXPECT_TRUE(t.main->close());
    EXPECT_EQ(t.frame().FormCount(), 0);
}

// F6 must come by every part of the window, or the mouse is needed.
TEST_F(MainWindow, F6WalksThroughAllPanesAndBackToTheTree) {
    t.OpenText(QStringLiteral("one.xml"), "<one/>");
    ASSERT_TRUE(t.Tree().hasFocus());
    QStringList seen;
    for (int i = 0; i < 20; ++i) {
        t.Press(Qt::Key_F6);
        seen << QApplication::focusWidget()->objectName();
        if (seen.last() == QLatin1String("tvXML"))
            break;
    }
    EXPECT_EQ(seen.mid(0, 3), QStringList({QStringLiteral("txtXPath"), QStringLiteral("tbsXML"),
                                           QStringLiteral("ListView1")}));
    EXPECT_TRUE(seen.contains(QStringLiteral("cmbAddress")));
    EXPECT_EQ(seen.last(), QStringLiteral("tvXML"));
}

TEST_F(MainWindow, F6ComesByBothPanesOfASplitText) {
    DocumentWindow& window = t.OpenText(QStringLiteral("one.xml"), "<one/>");
    t.ClickTab(QStringLiteral("textview"));
    textview::SplitTextViewHalf(window);
    t.Press(Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("rtxtXML2"));
    t.Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("rtxtXML"));
}

} // namespace
