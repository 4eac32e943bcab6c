// SPDX-License-Identifier: GPL-3.0-or-later
// Where the next key goes: into what the user was in, after windows were changed, arranged or turned over,
// and after a text was written anew.
#include "tests/desktop/ShownApp.h"
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>

namespace {

using desktop::TextView;
using test::ShownApp;

const QString kText = QStringLiteral("textview");

struct NextKey : ::testing::Test {
    ShownApp t;
    QMdiArea& Area() { return *t.main->findChild<QMdiArea*>(); }
    QString Front() { return t.window().Caption.section(QLatin1Char('/'), -1); }

    /// A document in the text view, with the caret behind a text of it.
    DocumentWindow& OpenText(const char* name, const QByteArray& bytes, const char* behind) {
        DocumentWindow& window = t.OpenText(QLatin1String(name), bytes);
        t.ClickTab(kText);
        CaretBehind(behind);
        return window;
    }
    void CaretBehind(const char* text) {
        const QString wanted = QLatin1String(text);
        const qsizetype place = t.Text().Model().Text().indexOf(wanted) + wanted.size();
        t.Text().Select(place, place);
        t.Click(*t.Text().viewport(), t.Text().RectAt(place).center());
    }
    void TurnOver(bool back) {
        t.Press(back ? Qt::Key_Backtab : Qt::Key_Tab,
                Qt::ControlModifier | (back ? Qt::ShiftModifier : Qt::NoModifier));
    }
    void OpenThree() {
        for (const char* name : {"a.xml", "b.xml", "c.xml"})
            OpenText(name, "<list><item>one</item></list>", "one");
    }
};

TEST_F(NextKey, GoesToTheWindowInFrontWhicheverWayTheyAreTurnedOver) {
    OpenThree();
    for (const bool maximised : {true, false}) {
        if (!maximised)
            t.ChooseMenu(QStringLiteral("mnuWindowCascade"));
        QString seen;
        for (const bool back : {false, false, true, true, true, true}) {
            TurnOver(back);
            ASSERT_TRUE(QApplication::focusWidget());
            EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("rtxtXML"));
            t.Type(QStringLiteral("x"));
            seen += Front().left(1);
        }
        EXPECT_EQ(seen, maximised ? QStringLiteral("babcab") : QStringLiteral("acabca"));
    }
    QString texts;
    for (DocumentWindow* window : t.frame().Forms())
        texts += window->rtxtXML.Text().section(QStringLiteral("<item>"), 1).section(u'<', 0, 0) + u' ';
    EXPECT_EQ(texts, QStringLiteral("onexxxxx onexxxx onexxx "));
}

TEST_F(NextKey, GoesToTheTreeOfAWindowThatWasLeftThere) {
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.OpenText(QStringLiteral("b.xml"), "<b/>");
    OpenText("c.xml", "<list><item>one</item></list>", "one");
    t.Type(QStringLiteral("x"));
    for (const char* name : {"b", "a", "c", "b"}) {
        TurnOver(false);
        EXPECT_EQ(Front().left(1), QLatin1String(name));
        EXPECT_EQ(Area().activeSubWindow()->windowTitle().section(u'/', -1), Front());
        EXPECT_TRUE(Area().activeSubWindow()->isAncestorOf(QApplication::focusWidget())) << name;
        EXPECT_EQ(QApplication::focusWidget()->objectName(),
                  *name == 'c' ? QStringLiteral("rtxtXML") : QStringLiteral("tvXML"));
    }
}

// Caret, selection, scrolling and current node as well.
TEST_F(NextKey, FindsTheWindowAsItWasLeftHoweverItsShapeChanges) {
    OpenText("a.xml", "<list>" + QByteArray("\n\t<item>one</item>").repeated(300) + "\n</list>", "one");
    OpenText("b.xml", "<list><item>one</item></list>", "one");
    DocumentWindow& window = *t.frame().Forms().front();
    t.frame().ActivateForm(&window);
    const qsizetype place = window.rtxtXML.Text().lastIndexOf(QStringLiteral("one</item>"));
    t.Text().Select(place + 3, place);
    window.rtxtXML.Click();
    t.Text().verticalScrollBar()->setValue(250);
    const controls::TreeNode node = window.tvXML.SelectedItem();
    const auto state = [&] {
        const auto* focus = qobject_cast<TextView*>(QApplication::focusWidget());
        return QStringLiteral("%1 %2+%3 caret %4 node %5")
            .arg(focus && &focus->Model() == &window.rtxtXML ? QStringLiteral("text")
                                                             : QStringLiteral("elsewhere"))
            .arg(window.rtxtXML.SelStart() - place)
            .arg(window.rtxtXML.SelLength())
            .arg(focus ? focus->Caret() - place : -1)
            .arg(window.tvXML.SelectedItem() == node ? QStringLiteral("same") : QStringLiteral("other"));
    };
    const QString before = QStringLiteral("text 0+3 caret 0 node same");
    ASSERT_EQ(state(), before);
    QMdiSubWindow& sub = *Area().activeSubWindow();
    const std::pair<const char*, std::function<void()>> acts[] = {
        {"restored", [&] { sub.showNormal(); }},
        {"maximised", [&] { sub.showMaximized(); }},
        {"cascaded", [&] { t.ChooseMenu(QStringLiteral("mnuWindowCascade")); }},
        {"tiled", [&] { t.ChooseMenu(QStringLiteral("mnuWindowTileHorizontal")); }},
        {"maximised again", [&] { sub.showMaximized(); }},
        {"turned over and back",
         [&] {
             TurnOver(false);
             TurnOver(true);
         }},
        {"minimised and restored",
         [&] {
             sub.showMinimized();
             QCoreApplication::processEvents();
             sub.showNormal();
         }},
        {"behind another one",
         [&] {
             t.OpenText(QStringLiteral("c.xml"), "<c/>");
             t.Press(Qt::Key_W, Qt::ControlModifier);
         }},
    };
    for (const auto& [name, act] : acts) {
        act();
        QCoreApplication::processEvents();
        EXPECT_EQ(state(), before) << name;
    }
    EXPECT_EQ(window.bond.standing(), Standing::Agree);
    t.Type(QStringLiteral("x"));
    EXPECT_TRUE(window.rtxtXML.Text().endsWith(QStringLiteral("<item>x</item>\r\n</list>")));
}

TEST_F(NextKey, ThePanelTellsTheCaretOfWhatIsInFront) {
    OpenText("a.xml", "<list>\n\t<item>one</item>\n</list>", "one");
    const auto panel = [&] { return t.frame().StatusBar1().Panel(2); };
    const QString place = panel();
    EXPECT_EQ(place, QStringLiteral("Ln 2 , Col 11"));
    t.ClickTab(QStringLiteral("listview"));
    EXPECT_EQ(panel(), QString());
    t.ClickTab(kText);
    EXPECT_EQ(panel(), QStringLiteral("Ln 2 , Col 2")) << "the current node";
    t.OpenText(QStringLiteral("b.xml"), "<b/>");
    EXPECT_EQ(panel(), QString());
    t.Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(panel(), QStringLiteral("Ln 2 , Col 2"));
}

// --- a text written anew -----------------------------------------------------------------------------------

TEST_F(NextKey, StaysInItsElementAndInItsRowOfTheViewWhenTheTextIsSaved) {
    QByteArray loose = "<list>";
    for (int i = 0; i < 200; ++i)
        loose += "<item>n" + QByteArray::number(i) + "</item>" + QByteArray(i % 2 == 0 ? "\n" : "\n\n\n");
    OpenText("a.xml", "<list/>", "<list");
    t.EditText(QString::fromLatin1(loose + "</list>"));
    DocumentWindow& window = t.window();
    // As it was typed, with a caret in the middle of it.
    t.Text().setFocus();
    for (int i = 0; i < 1; ++i)
        t.Press(Qt::Key_Z, Qt::ControlModifier);
    CaretBehind("n150");
    t.Type(QStringLiteral("x"));
    const auto row = [&] {
        const qsizetype place = window.rtxtXML.Text().indexOf(QStringLiteral("n150x"));
        return window.rtxtXML.Long().rowOf(place) - t.Text().FirstRow();
    };
    const qsizetype before = row();
    t.Press(Qt::Key_S, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(row(), before);
    t.Type(QStringLiteral("y"));
    EXPECT_TRUE(window.rtxtXML.Text().contains(QStringLiteral("<item>n150xy</item>")));
}

// A large part of the text away from the caret: the change is shown.
TEST_F(NextKey, UndoShowsTheChangeAndKeysGoOnThere) {
    OpenText("a.xml", "<list>" + QByteArray("\n\t<item>one</item>").repeated(300) + "\n</list>", "<item>one");
    t.Type(QStringLiteral("x"));
    t.Press(Qt::Key_End, Qt::ControlModifier);
    ASSERT_GT(t.Text().FirstRow(), 100);
    t.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.Text().FirstRow(), 0);
    t.Type(QStringLiteral("y"));
    EXPECT_TRUE(t.window().rtxtXML.Text().startsWith(QStringLiteral("<list>\r\n\t<item>oney<")));
    t.Press(Qt::Key_End, Qt::ControlModifier);
    t.Press(Qt::Key_Z, Qt::ControlModifier);
    t.Press(Qt::Key_End, Qt::ControlModifier);
    t.Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(t.Text().FirstRow(), 0);
    EXPECT_TRUE(t.window().rtxtXML.Text().startsWith(QStringLiteral("<list>\r\n\t<item>oney<")));
}

TEST_F(NextKey, AMarkedNodeKeepsItsFirstCharacter) {
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_X, "<list>\r\n\tx<item>one</item>\r\n</list>"},
        {Qt::Key_Delete, "<list>\r\n\t<item>one</item>\r\n</list>"},
        {Qt::Key_Backspace, "<list>\r\n\t<item>one</item>\r\n</list>"},
        {Qt::Key_Return, "<list>\r\n\t\r\n\t<item>one</item>\r\n</list>"}};
    OpenText("a.xml", "<list>\n\t<item>one</item>\n</list>", "one");
    for (const auto& [key, after] : keys) {
        t.ClickTab(QStringLiteral("listview"));
        t.ClickTab(kText);
        ASSERT_TRUE(t.Text().hasFocus());
        ASSERT_TRUE(t.window().rtxtXML.IsMark());
        EXPECT_EQ(t.Text().Caret(), t.window().rtxtXML.SelStart());
        if (key == Qt::Key_X)
            t.Type(QStringLiteral("x"));
        else
            t.Press(key);
        EXPECT_EQ(t.window().rtxtXML.Text(), QLatin1String(after));
        if (t.window().rtxtXML.Text().size() != 36)
            t.Press(Qt::Key_Z, Qt::ControlModifier);
    }
}

TEST_F(NextKey, TheOtherPaneSelectsNothingOfWhatIsTyped) {
    OpenText("a.xml", "<list>\n\t<item>one</item>\n</list>", "one");
    t.ChooseMenu(QStringLiteral("mnuWinSplit"));
    QCoreApplication::processEvents();
    t.Type(QStringLiteral("xy"));
    EXPECT_EQ(t.window().rtxtXML2.SelLength(), 0);
    t.Press(Qt::Key_F6);
    ASSERT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("rtxtXML2"));
    t.Type(QStringLiteral("z"));
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("onexyz")));
}

} // namespace
