// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/SourceEdit.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

namespace {

QString Hard(int unit) {
    return QString(QChar(static_cast<char16_t>(unit)));
}

// What a text document by itself would change or take for the end of a line, between ordinary letters.
QString AwkwardText() {
    QString text = QStringLiteral("<a>no\u00A0break");
    for (const int unit : {0x2028, 0x2029, 0xFDD0, 0xFDD1, 0xFDD2, 0xFDD3, 0xFDD5, 0xFFFC, 0xFFFE, 0x0000,
                           0x000B, 0xD83D, 0xE000})
        text += Hard(unit) + QStringLiteral("|\r\n");
    return text + QStringLiteral("\U0001F600</a>");
}

TEST(EditorText, ComesBackAsItWasAlsoAfterAnEditBesideIt) {
    SourceEdit edit;
    edit.Fill(AwkwardText());
    EXPECT_EQ(edit.Content(), AwkwardText());
    edit.moveCursor(QTextCursor::End);
    QTest::keyClicks(&edit, QStringLiteral("!"));
    EXPECT_EQ(edit.Content(), AwkwardText() + QLatin1Char('!'));
    edit.Fill({});
    EXPECT_EQ(edit.Content(), QString());
}

TEST(EditorText, PositionsCountLineEndsTwiceAndPairsAsTwo) {
    SourceEdit edit;
    const QString text = QStringLiteral("<a>\r\n\r\n\U0001F600\u00A0x\r\n</a>\r\n");
    edit.Fill(text);
    for (qsizetype at = 0; at <= text.size(); ++at) {
        if (at > 0 && text[at - 1] == QLatin1Char('\r'))
            continue; // between the two halves of a line end nobody can stand
        edit.Select(at, 0);
        EXPECT_EQ(edit.SelectionStart(), at);
    }
    edit.Select(5, 8);
    EXPECT_EQ(edit.SelectionStart(), 5);
    EXPECT_EQ(edit.SelectionLength(), 8);
    EXPECT_EQ(edit.textCursor().selectedText(), QStringLiteral("\u2029\U0001F600\u00A0x\u2029"));
    edit.Select(text.size() + 100, 5);
    EXPECT_EQ(edit.SelectionStart(), text.size());
}

TEST(EditorText, AVeryLongLineIsCutForTheEyeOnly) {
    SourceEdit edit;
    const QString line = QStringLiteral("\U0001F600").repeated(EditorText::kLongestLine);
    const QString text = QStringLiteral("<a>\r\n") + line + QStringLiteral("\r\n</a>");
    edit.Fill(text);
    EXPECT_GT(edit.blockCount(), 3);
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next())
        EXPECT_LE(block.length(), EditorText::kLongestLine + 3);
    EXPECT_EQ(edit.Content(), text);
    for (const qsizetype at :
         {qsizetype(0), qsizetype(5), qsizetype(4999), qsizetype(5005), qsizetype(9999), text.size() - 4}) {
        edit.Select(at, 2);
        EXPECT_EQ(edit.SelectionStart(), at);
    }
}

TEST(EditorText, TypingAtTheCutOfALongLineChangesNoMoreThanWasTyped) {
    SourceEdit edit;
    const QString line(3 * EditorText::kLongestLine, QLatin1Char('x'));
    edit.Fill(line);
    const qsizetype cut = EditorText::kLongestLine;
    edit.Select(cut, 0);
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    EXPECT_EQ(edit.Content(), line.left(cut) + QStringLiteral("ab") + line.mid(cut));
    EXPECT_EQ(edit.SelectionStart(), cut + 2);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(edit.Content(), line.left(cut) + QStringLiteral("ab\r\n") + line.mid(cut));
    edit.ReplaceText(0, edit.Content().size() - 3, QStringLiteral("y"));
    EXPECT_EQ(edit.Content(), QStringLiteral("yxxx"));
}

TEST(EditorText, TheClipboardTakesAndGivesTheSameCharacters) {
    SourceEdit edit;
    const QString text = QStringLiteral("a\u00A0b\u2029c\r\nd");
    edit.Fill(text);
    edit.selectAll();
    edit.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("a\u00A0b\u2029c\nd"));
    const QString longLine(2 * EditorText::kLongestLine, QLatin1Char('z'));
    QGuiApplication::clipboard()->setText(longLine + QStringLiteral("\u2029\n\ufdd0"));
    edit.selectAll();
    edit.paste();
    EXPECT_EQ(edit.Content(), longLine + QStringLiteral("\u2029\r\n\ufdd0"));
}

TEST(EditorText, ShiftEnterStartsALineAndPutsNoSeparatorIntoTheText) {
    SourceEdit edit;
    QTest::keyClick(&edit, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edit.Content(), QStringLiteral("\r\n"));
}

} // namespace
