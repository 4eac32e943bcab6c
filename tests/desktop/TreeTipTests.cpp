// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/ShownApp.h"
#include <QHelpEvent>
#include <QToolTip>

namespace {

using test::ShownApp;

struct TreeTip : ::testing::Test {
    ShownApp t;
    const QString words =
        QStringLiteral("He said &lt;b>once&lt;/b> and then fell silent. ").repeated(3).trimmed();
    TreeTip() { t.OpenText(QStringLiteral("talk.xml"), "<talk>" + words.toUtf8() + "</talk>"); }
    ~TreeTip() override { QToolTip::hideText(); }
    QString TipOver(const QModelIndex& index) {
        QToolTip::hideText();
        t.Tree().expandRecursively(t.Tree().model()->index(0, 0));
        const QPoint place = t.Tree().visualRect(index).center();
        QHelpEvent help(QEvent::ToolTip, place, t.Tree().viewport()->mapToGlobal(place));
        QApplication::sendEvent(t.Tree().viewport(), &help);
        QString shown = QToolTip::text();
        return shown.remove(0, shown.indexOf(QLatin1Char('>')) + 1).remove(QStringLiteral("</p>"));
    }
    QModelIndex Text() {
        const QModelIndex root = t.Tree().model()->index(0, 0);
        return t.Tree().model()->index(0, 0, t.Tree().model()->index(0, 0, root));
    }
};

TEST_F(TreeTip, OverACutTextIsTheWholeOneAndNeverMarkup) {
    EXPECT_EQ(TipOver(Text().parent()), QString()) << "a name that fits needs none";
    const QString whole = t.window().tvXML.Nodes(3).Tag();
    EXPECT_EQ(TipOver(Text()), whole.toHtmlEscaped());
    t.app().options.TreeToolTipShowLength = 7;
    EXPECT_EQ(TipOver(Text()), QStringLiteral("He said..."));
}

// Blanks alone would not keep them narrower than the screen; and half a character is none.
TEST_F(TreeTip, WordsLongerThanALineAreBrokenAndCharactersAreCutWhole) {
    t.OpenText(QStringLiteral("word.xml"), "<w>" + QByteArray(300, 'x') + "</w>");
    const QString tip = TipOver(Text());
    EXPECT_EQ(tip.count(QLatin1Char('x')), 300);
    for (const QString& piece : tip.split(QChar(0x200B)))
        EXPECT_LE(piece.size(), 81);
    t.OpenText(QStringLiteral("faces.xml"), "<w>" + QByteArray("\xF0\x9F\x98\x80").repeated(100) + "</w>");
    t.app().options.TreeToolTipShowLength = 5;
    EXPECT_EQ(TipOver(Text()), QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x80..."));
}

} // namespace
