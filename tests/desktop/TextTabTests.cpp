// SPDX-License-Identifier: GPL-3.0-or-later
// The text tab with real keys and clicks.
#include "tests/desktop/ShownApp.h"
#include "textview/TextState.h"
#include <QDialog>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QTimer>

namespace {

using desktop::TextView;
using test::ShownApp;
const QString kText = QStringLiteral("textview");

struct TextTab : ::testing::Test {
    ShownApp t;
    void Open(const QByteArray& bytes) {
        t.OpenText(QStringLiteral("orders.xml"), bytes);
        t.ClickTab(kText);
    }
};

// Each pane has a place of its own in the same text.
TEST_F(TextTab, TheSecondPaneIsShownBelowOnceTheTextIsSplit) {
    Open("<orders>" + QByteArray("\n<order/>").repeated(300) + "</orders>");
    auto& second = t.Find<TextView>(QStringLiteral("rtxtXML2"));
    EXPECT_FALSE(second.isVisible());
    t.window().pctSplitText.SetVisible(true);
    QCoreApplication::processEvents();
    ASSERT_TRUE(second.isVisible());
    EXPECT_GT(second.mapTo(t.main.get(), QPoint()).y(), t.Text().mapTo(t.main.get(), QPoint()).y());
    EXPECT_TRUE(second.Model().Text() == t.Text().Model().Text());
    t.Click(*second.viewport(), second.RectAt(10).center());
    t.Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_GT(second.FirstRow(), 200);
    t.Type(QStringLiteral(" "));
    EXPECT_TRUE(t.Text().Model().Text().endsWith(u' '));
    EXPECT_EQ(t.Text().FirstRow(), 0);
}

TEST_F(TextTab, BothPanesHaveOneSizeOfLetters) {
    Open("<orders/>");
    auto& second = t.Find<TextView>(QStringLiteral("rtxtXML2"));
    const int height = t.Text().RectAt(0).height();
    t.Text().Zoom(8);
    ASSERT_GT(t.Text().RectAt(0).height(), height);
    t.ChooseMenu(QStringLiteral("mnuWinSplit"));
    QCoreApplication::processEvents();
    EXPECT_EQ(second.RectAt(0).height(), t.Text().RectAt(0).height());
    second.setFocus();
    t.Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(second.RectAt(0).height(), height);
    EXPECT_EQ(t.Text().RectAt(0).height(), height);
    EXPECT_EQ(t.window().rtxtXML.FontSize(), t.app().options.TextSize) << "the views alone are zoomed";
}

TEST_F(TextTab, SelectingAllScrollsNeitherByKeyNorByMenu) {
    Open("<orders>" + QByteArray("\n<order/>").repeated(300) + "</orders>");
    for (const bool menu : {false, true}) {
        t.Click(*t.Text().viewport(), t.Text().RectAt(10).center());
        t.Text().verticalScrollBar()->setValue(120);
        if (menu)
            t.ChooseMenu(QStringLiteral("mnuSelectAll"));
        else
            t.Press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(t.Text().FirstRow(), 120);
        EXPECT_EQ(t.Text().Selection().end, t.Text().Model().Long().size());
        EXPECT_EQ(t.window().rtxtXML.SelLength(), t.Text().Model().Long().size());
        EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuEditCopy")).Enabled());
        t.Text().verticalScrollBar()->setValue(0);
    }
}

// An input method hands over several characters at once.
TEST_F(TextTab, EachCharacterOfATextThatIsPutInAtOnceHasItsColour) {
    Open("<orders></orders>");
    t.Click(*t.Text().viewport(), t.Text().RectAt(8).center());
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("<\u540D=>"));
    QApplication::sendEvent(&t.Text(), &done);
    controls::RichTextBox& pane = t.window().rtxtXML;
    ASSERT_EQ(pane.Text(), QStringLiteral("<orders><\u540D=></orders>"));
    std::vector<std::uint32_t> colours;
    for (qsizetype at = 8; at < 12; ++at) {
        pane.UserSelected(at, 1);
        colours.push_back(pane.SelColor());
    }
    EXPECT_EQ(colours, (std::vector<std::uint32_t>{0xff0000, 0, 0x3232ff, 0xff0000}));
    EXPECT_EQ(t.window().rtxtXML2.Runs(), pane.Runs());
    EXPECT_EQ(textview::StateOf(t.window()).UndoPos, 1);
}

TEST_F(TextTab, TypedTextReachesTheTreeWhenTheTreeIsClicked) {
    Open("<orders><order/></orders>");
    t.Press(Qt::Key_Home, Qt::ControlModifier);
    t.Press(Qt::Key_End);
    for (int i = 0; i < 9; ++i)
        t.Press(Qt::Key_Left);
    t.Type(QStringLiteral("<invoice/>"));
    EXPECT_EQ(t.window().tvXML.Nodes.Count(), 3);
    const QModelIndex root = t.Tree().model()->index(0, 0);
    t.ClickTreeRow(t.Tree().model()->index(0, 0, root));
    EXPECT_EQ(t.window().tvXML.Nodes.Count(), 4);
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("orders"));
    EXPECT_EQ(t.window().tvXML.SelectedItem().LastChild().Text(), QStringLiteral("invoice"));
}

TEST_F(TextTab, AClickInTheTextSelectsItsNode) {
    Open("<orders>\n<order/>\n<invoice/>\n</orders>");
    t.Click(*t.Text().viewport(), t.Text().RectAt(22).center());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("invoice"));
    EXPECT_EQ(t.Tree().currentIndex().data().toString(), QStringLiteral("invoice"));
}

// The box has taken the click: were it delivered behind the box, the list would hide the text with the error.
TEST_F(TextTab, ABoxThatOpensWhileTheTextIsLeftTakesTheClick) {
    Open("<a><b/></a>");
    t.prompts.AllowAnyBox();
    t.prompts.onBox = [](const test::Box&) {
        QDialog dialog(QApplication::activeWindow());
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
    };
    t.Type(QStringLiteral("<<"));
    t.ClickTab(QStringLiteral("listview"));
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), kText);
    t.ClickTab(kText); // a second click at one place would count as a double click
    t.ClickTab(QStringLiteral("listview"));
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("listview"));
}

// The document's commands come first, and what they did the editor doesn't do again.
TEST_F(TextTab, KeysRunTheCommandsOfTheDocumentOnce) {
    Open("<a/>");
    t.Press(Qt::Key_A, Qt::ControlModifier);
    t.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(t.clipboard.GetText(), QStringLiteral("<a/>"));
    t.Press(Qt::Key_Home, Qt::ControlModifier);
    t.Press(Qt::Key_Tab);
    EXPECT_EQ(t.window().rtxtXML.Text(), QStringLiteral("\t<a/>"));
    EXPECT_TRUE(t.Text().hasFocus());
    t.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(t.window().rtxtXML.Text(), QStringLiteral("\t<a/><a/>"));
}

} // namespace
