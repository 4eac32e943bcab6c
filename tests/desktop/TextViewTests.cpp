// SPDX-License-Identifier: GPL-3.0-or-later
// The text tab with real keys and clicks.
#include "tests/desktop/ShownApp.h"
#include <QClipboard>
#include <QDialog>
#include <QTimer>

namespace {

using test::ShownApp;
const QString kText = QStringLiteral("textview");

struct TextView : ::testing::Test {
    ShownApp t;
    void Open(const QByteArray& bytes) {
        t.OpenText(QStringLiteral("orders.xml"), bytes);
        t.ClickTab(kText);
    }
};

TEST_F(TextView, IsFilledWhenItIsFirstShownAndHasTheFocusThen) {
    t.OpenText(QStringLiteral("orders.xml"), "<orders><order/></orders>");
    EXPECT_TRUE(t.Text().toPlainText().isEmpty());
    t.ClickTab(kText);
    EXPECT_EQ(t.Text().toPlainText(), QStringLiteral("<orders><order/></orders>"));
    EXPECT_TRUE(t.Text().hasFocus());
}

TEST_F(TextView, TypedTextReachesTheTreeWhenTheTreeIsClicked) {
    Open("<orders><order/></orders>");
    t.Text().moveCursor(QTextCursor::Start);
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

TEST_F(TextView, AClickInTheTextSelectsItsNode) {
    Open("<orders>\n<order/>\n<invoice/>\n</orders>");
    QTextCursor cursor = t.Text().textCursor();
    cursor.setPosition(21);
    t.Click(*t.Text().viewport(), t.Text().cursorRect(cursor).center());
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("invoice"));
    EXPECT_EQ(t.Tree().currentIndex().data().toString(), QStringLiteral("invoice"));
}

TEST_F(TextView, TheErrorIsSelectedInTheEditor) {
    t.prompts.AllowAnyBox();
    Open("<a>\n\U0001F600<b></c></a>");
    ASSERT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), kText);
    EXPECT_EQ(t.Text().SelectionStart(), t.window().rtxtXML.SelStart());
    EXPECT_EQ(t.Text().SelectionLength(), 1);
    t.prompts.ForgetUnused();
}

// The box has taken the click: were it delivered behind the box, the list would hide the text with the error.
TEST_F(TextView, ABoxThatOpensWhileTheTextIsLeftTakesTheClick) {
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
    t.ClickTab(QStringLiteral("listview"));
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("listview"));
}

TEST_F(TextView, SavingWithTheKeyWritesWhatWasJustTyped) {
    Open("<a>1</a>");
    t.Press(Qt::Key_Home, Qt::ControlModifier);
    for (int i = 0; i < 4; ++i)
        t.Press(Qt::Key_Right);
    t.Type(QStringLiteral("23"));
    t.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(t.folder.Read(QStringLiteral("orders.xml")), "<a>123</a>");
}

// A menu entry without a command must not take its key away from the editor.
TEST_F(TextView, CopyAndPasteKeysWorkInTheEditor) {
    Open("<a/>");
    t.Press(Qt::Key_A, Qt::ControlModifier);
    t.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("<a/>"));
}

TEST_F(TextView, ClosingAfterAnEditAsksAndCancelKeepsTheWindow) {
    Open("<a/>");
    t.Press(Qt::Key_End, Qt::ControlModifier);
    t.Type(QStringLiteral(" "));
    t.prompts.Answer(services::Answer::Cancel);
    t.Press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_EQ(t.frame().FormCount(), 1);
    EXPECT_TRUE(t.Text().isVisible());
    EXPECT_EQ(t.Text().Content(), t.window().rtxtXML.Text());
    t.prompts.Answer(services::Answer::No);
    t.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(t.frame().FormCount(), 0);
    EXPECT_EQ(t.folder.Read(QStringLiteral("orders.xml")), "<a/>");
}

} // namespace
