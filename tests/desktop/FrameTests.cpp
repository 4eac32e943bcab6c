// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: menus, documents side by side, dropped files, the address box.
#include "tests/desktop/ShownApp.h"
#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QUrl>

namespace {

using test::ShownApp;

struct FrameWindow : ::testing::Test {
    ShownApp t;
    QMdiArea& Area() { return *t.main->findChild<QMdiArea*>(); }
    void OpenTwo() {
        t.OpenText(QStringLiteral("one.xml"), "<one/>");
        t.OpenText(QStringLiteral("two.xml"), "<two/>");
    }
    QString ActiveTitle() { return Area().activeSubWindow()->windowTitle().section(QLatin1Char('/'), -1); }
};

TEST_F(FrameWindow, ActionsFollowTheirMenuEntries) {
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
}

TEST_F(FrameWindow, WindowOrderIsTheFramesAndTheActiveOneIsInFront) {
    OpenTwo();
    EXPECT_EQ(ActiveTitle(), QStringLiteral("two.xml"));
    t.Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(ActiveTitle(), QStringLiteral("one.xml"));
    EXPECT_TRUE(t.frame().ActiveForm()->Caption.endsWith(QStringLiteral("one.xml")));
    Area().setActiveSubWindow(Area().subWindowList().at(1));
    EXPECT_TRUE(t.frame().ActiveForm()->Caption.endsWith(QStringLiteral("two.xml")));
    t.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(ActiveTitle(), QStringLiteral("one.xml"));
    EXPECT_EQ(Area().subWindowList().size(), 1);
}

TEST_F(FrameWindow, HorizontalTilesLieAboveEachOtherVerticalOnesSideBySide) {
    OpenTwo();
    const auto tiles = [&](const char* entry) {
        t.ChooseMenu(QLatin1String(entry));
        return std::pair(Area().subWindowList().at(0)->geometry(), Area().subWindowList().at(1)->geometry());
    };
    const auto [front, back] = tiles("mnuWindowTileHorizontal");
    EXPECT_EQ(front.left(), back.left());
    EXPECT_FALSE(front.intersects(back));
    const auto [left, right] = tiles("mnuWindowTileVertical");
    EXPECT_EQ(left.top(), right.top());
    EXPECT_FALSE(left.intersects(right));
}

TEST_F(FrameWindow, DroppedFilesAreOpenedAlsoOverTheTextEditor) {
    t.OpenText(QStringLiteral("one.xml"), "<one/>");
    t.ClickTab(QStringLiteral("textview"));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(t.folder.Write(QStringLiteral("a b&c.xml"), "<two/>")),
                   QUrl::fromLocalFile(t.folder.Write(QStringLiteral("three.xsd"), "<three/>"))});
    QWidget& over = *t.Text().viewport();
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&over, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&over, &drop);
    EXPECT_TRUE(drop.isAccepted());
    QCoreApplication::processEvents();
    ASSERT_EQ(t.frame().FormCount(), 3);
    EXPECT_EQ(t.frame().Forms().at(1)->Caption, t.folder.Path(QStringLiteral("a b&c.xml")));
    EXPECT_TRUE(t.frame().Forms().at(2)->kind.schema);
    EXPECT_EQ(t.frame().Forms().at(0)->rtxtXML.Text(), QStringLiteral("<one/>"));
}

TEST_F(FrameWindow, EnterInTheAddressBoxOpensOnceAlsoForAKnownName) {
    const QString name = t.folder.Write(QStringLiteral("one.xml"), "<one/>");
    t.frame().cmbAddress().AddItem(name);
    int opened = 0;
    t.frame().cmbAddress().Click.connect([&opened] { ++opened; });
    t.Press(Qt::Key_L, Qt::ControlModifier);
    auto& box = *t.main->findChild<QComboBox*>(QStringLiteral("cmbAddress"));
    EXPECT_TRUE(box.hasFocus());
    box.lineEdit()->clear();
    for (const QChar unit : name)
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(unit), {});
    EXPECT_EQ(t.frame().cmbAddress().Text(), name);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(t.frame().FormCount(), 1);
    EXPECT_EQ(opened, 0);
}

TEST_F(FrameWindow, ClosingTheFrameStopsAtTheDocumentThatIsKept) {
    OpenTwo();
    t.EditText(QStringLiteral("<two>2</two>"));
    t.prompts.Answer(services::Answer::Cancel);
    EXPECT_FALSE(t.main->close());
    EXPECT_TRUE(t.main->isVisible());
    EXPECT_EQ(t.frame().FormCount(), 2);
}

// F6 must come by every part of the window, or the mouse is needed.
TEST_F(FrameWindow, F6WalksThroughAllPanesAndBackToTheTree) {
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

} // namespace
