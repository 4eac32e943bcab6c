// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextRow.h"
#include <gtest/gtest.h>

namespace {

// A long row is set in pieces: every character has to stand where it would in the whole.
TEST(TextRow, CuttingALongRowMovesNothing) {
    const desktop::RowFont font(QFont(QStringLiteral("Monospace"), 10));
    const QStringList texts{QStringLiteral("<row a=\"1\"/>").repeated(150),
                            QStringLiteral("\t\t<\u540D\u524D>\u00FC").repeated(120),
                            QStringLiteral("\u540D\u524D\u3068\u304B\u3099a").repeated(200),
                            QStringLiteral("<a>\u05D0\u05D1\u05D2</a> ").repeated(60),
                            QStringLiteral("e\u0301\u0302\U0001F600x\u200D").repeated(100)};
    for (const QString& text : texts) {
        QTextLayout whole(text, font.font);
        QTextOption option;
        option.setTextDirection(Qt::LeftToRight);
        option.setTabStopDistance(4 * font.blank);
        option.setWrapMode(QTextOption::NoWrap);
        whole.setTextOption(option);
        whole.beginLayout();
        QTextLine line = whole.createLine();
        line.setLineWidth(1'000'000);
        whole.endLayout();
        const desktop::TextRow row({text, {}}, font);
        for (qsizetype at = 0; at < text.size(); at += 13) {
            const int settled = whole.isValidCursorPosition(static_cast<int>(at))
                                    ? static_cast<int>(at)
                                    : whole.previousCursorPosition(static_cast<int>(at));
            const double x = line.cursorToX(settled);
            ASSERT_NEAR(row.XOf(settled), x, 0.5) << text.left(8).toStdString() << " at " << settled;
            ASSERT_EQ(row.OffsetAt(x + 0.25), line.xToCursor(x + 0.25));
        }
    }
}

} // namespace
