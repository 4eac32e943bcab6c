// SPDX-License-Identifier: GPL-3.0-or-later
// The find dialog with its real widgets, beside the text that it searches.
#include "desktop/dialogs/FindDialog.h"
#include "tests/desktop/ShownApp.h"
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace {

using desktop::FindDialog;
using desktop::TextView;
using test::ShownApp;

class FindDesk : public ShownApp {
public:
    FindDesk() {
        QByteArray document = "<list>";
        for (int i = 0; i < 300; ++i)
            document += "\n<item>n" + QByteArray::number(i) + "</item>";
        OpenText(QStringLiteral("list.xml"), document + "</list>");
        ClickTab(QStringLiteral("textview"));
        Press(Qt::Key_Home, Qt::ControlModifier);
        Press(Qt::Key_F, Qt::ControlModifier);
    }
    FindDialog& Dialog() {
        auto* dialog = dynamic_cast<FindDialog*>(main->findChild<QDialog*>(QStringLiteral("frmFind")));
        if (!dialog)
            throw std::runtime_error("no find dialog");
        return *dialog;
    }
    template <typename Widget> Widget& Part(const char* name) {
        return *Dialog().findChild<Widget*>(QLatin1String(name));
    }
    void Enter(const char* box, const QString& text) {
        auto& line = *Part<QComboBox>(box).lineEdit();
        line.selectAll();
        QTest::keyClicks(&line, text);
    }
    void PressThere(Qt::Key key) {
        QTest::keyClick(Dialog().focusWidget(), key);
        QCoreApplication::processEvents();
    }
};

TEST(FindDialog, FindsOnEnterBringsTheHitIntoViewAndClosesOnEscape) {
    FindDesk desk;
    EXPECT_TRUE(desk.Dialog().isVisible());
    EXPECT_FALSE(desk.Dialog().isModal());
    EXPECT_EQ(desk.Dialog().focusWidget()->objectName(), QStringLiteral("cmbFind"));
    const int top = desk.Text().verticalScrollBar()->value();
    desk.Enter("cmbFind", QStringLiteral("N250"));
    desk.PressThere(Qt::Key_Return);
    EXPECT_EQ(desk.window().rtxtXML.SelText(), QStringLiteral("n250"));
    EXPECT_GT(desk.Text().verticalScrollBar()->value(), top + 100);
    EXPECT_TRUE(desk.Dialog().isVisible());
    desk.PressThere(Qt::Key_Escape);
    EXPECT_FALSE(desk.Dialog().isVisible());
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(desk.Dialog().isVisible());
    EXPECT_EQ(desk.Part<QComboBox>("cmbFind").currentText(), QStringLiteral("N250")) << "of the history";
}

TEST(FindDialog, MakesWayForWhatItFinds) {
    FindDesk desk;
    desk.prompts.AllowAnyBox();
    desk.Enter("cmbFind", QStringLiteral("n150"));
    desk.PressThere(Qt::Key_Return);
    const TextView& text = desk.Text();
    const auto hit = [&] {
        const QRect place = text.RectAt(text.Selection().start);
        return QRect(text.viewport()->mapToGlobal(place.topLeft()), place.size());
    };
    desk.Dialog().move(hit().topLeft() - QPoint(40, 40));
    desk.PressThere(Qt::Key_Return); // there is no other one: the hit is the same
    ASSERT_TRUE(text.viewport()->rect().contains(text.RectAt(text.Selection().start)));
    EXPECT_FALSE(desk.Dialog().frameGeometry().intersects(hit()));
    const QPoint place = desk.Dialog().pos();
    desk.PressThere(Qt::Key_Return);
    EXPECT_EQ(desk.Dialog().pos(), place) << "it stays where it covers nothing";
}

TEST(FindDialog, ReplacingLeavesTheOtherPaneWhereItIs) {
    FindDesk desk;
    desk.prompts.AllowAnyBox();
    desk.ChooseMenu(QStringLiteral("mnuWinSplit"));
    QCoreApplication::processEvents();
    auto& other = desk.Find<TextView>(QStringLiteral("rtxtXML2"));
    desk.Click(*other.viewport(), other.RectAt(0).center());
    other.verticalScrollBar()->setValue(100); // its caret is out of sight
    desk.Click(*desk.Text().viewport(), desk.Text().RectAt(0).center());
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    desk.Enter("cmbFind", QStringLiteral("item"));
    desk.Enter("cmbReplace", QStringLiteral("entry"));
    QTest::mouseClick(&desk.Part<QPushButton>("cmdReplace"), Qt::LeftButton);
    QTest::mouseClick(&desk.Part<QPushButton>("cmdReplace"), Qt::LeftButton);
    QCoreApplication::processEvents();
    ASSERT_TRUE(desk.window().rtxtXML2.Text().contains(QStringLiteral("<entry>n0")));
    EXPECT_EQ(other.FirstRow(), 100);
    desk.Tree().setFocus(); // whatever has the focus of the window behind
    QTest::mouseClick(&desk.Part<QPushButton>("cmdReplaceAll"), Qt::LeftButton);
    QTest::qWait(1);
    ASSERT_TRUE(desk.window().rtxtXML2.Text().contains(QStringLiteral("<entry>n299")));
    EXPECT_EQ(other.FirstRow(), 100);
}

TEST(FindDialog, ReplacesWithEachBoxInForceWhileTheTextStaysEditable) {
    FindDesk desk;
    desk.Enter("cmbFind", QStringLiteral("n7"));
    desk.Enter("cmbReplace", QStringLiteral("seven"));
    desk.Part<QAbstractButton>("chkWW").click();
    desk.Part<QAbstractButton>("optDA").click();
    EXPECT_FALSE(desk.Part<QRadioButton>("optDD").isChecked());
    desk.prompts.AllowAnyBox();
    QTest::mouseClick(&desk.Part<QPushButton>("cmdReplaceAll"), Qt::LeftButton);
    EXPECT_TRUE(desk.window().rtxtXML.Text().contains(QStringLiteral("<item>seven</item>")));
    EXPECT_TRUE(desk.window().rtxtXML.Text().contains(QStringLiteral("<item>n70</item>")));
    desk.main->activateWindow();
    desk.Text().setFocus();
    desk.Press(Qt::Key_Home, Qt::ControlModifier);
    desk.Type(QStringLiteral("x"));
    EXPECT_TRUE(desk.window().rtxtXML.Text().startsWith(QStringLiteral("x<list>")));
    EXPECT_TRUE(desk.Dialog().isVisible());
    desk.Press(Qt::Key_Z, Qt::ControlModifier);
    desk.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(desk.window().rtxtXML.Text().contains(QStringLiteral("<item>n7</item>")));
    QTest::mouseClick(&desk.Part<QPushButton>("cmdDelete"), Qt::LeftButton);
    EXPECT_EQ(desk.Part<QComboBox>("cmbFind").currentText() +
                  desk.Part<QComboBox>("cmbReplace").currentText(),
              QString());
}

} // namespace
